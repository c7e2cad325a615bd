#include "sqlproof/Candidates.h"
#include "sqlproof/Columns.h"
#include "sqlproof/PlainDates.h"
#include "sqlproof/Sweeps.h"

#include "automation/Coercion.h"
#include "automation/Views.h"

#include <algorithm>

namespace orv::sqlproof {

using automation::Collection;
using automation::Dictionary;
using automation::toObject;
using automation::toText;
using conditions::CompareEntry;

namespace {

constexpr std::int32_t classTypes[] = {1000101, 1000201, 1000202, 1000301, 1000801, 1000901, 1000902};

/// A field of a class type with the comparisons that the host offers for it.
struct Field {
    std::u16string column;
    std::int32_t colType = 0;
    std::vector<CompareEntry> entries;
};

std::vector<Field> fieldsOf(erp::ErpHost& host, std::int32_t classType) {
    const automation::ObjectRef service = host.dataService(classType);
    const Collection list(toObject(automation::get(service, u"SelectList")));
    const Dictionary table(toObject(automation::get(service, u"TableInfo")));
    std::vector<Field> fields;
    for (std::int32_t i = 1; i <= list.count(); ++i) {
        const metadata::FieldRecord record(Dictionary(toObject(table.get(toText(list.record(i).get(u"Fkey"))))));
        Field& field = fields.emplace_back();
        field.column = record.text(metadata::fieldKey::fieldNameExt);
        field.colType = record.number(metadata::fieldKey::colType);
        const Collection entries(
            toObject(automation::call(service, u"getCondition", record.value(metadata::fieldKey::condition))));
        for (std::int32_t position = 1; position <= entries.count(); ++position)
            field.entries.push_back(CompareEntry::read(entries.record(position)));
    }
    return fields;
}

void checkColumn(Proof& proof, std::int32_t classType, const std::u16string& column, const Question& question,
                 const Table& table) {
    const Expectation expectation = expectationOf(question);
    proof.check({classType, {{column, question, u"", u"", false}}}, expectation.answer, [&] {
        return static_cast<std::size_t>(
            std::ranges::count_if(table.rows, [&](const auto& row) { return expectation.picks(row[0]); }));
    });
}

bool isRangeOfDays(const CompareEntry& entry) {
    return entry.FOperate.find(u"BETWEEN") != std::u16string::npos && !entry.FValue.empty();
}

} // namespace

void sweepFields(erp::ErpHost& host, Proof& proof) {
    for (const std::int32_t classType : classTypes)
        for (const Field& field : fieldsOf(host, classType)) {
            const Table table = readColumns(host, classType, {field.column});
            for (const CompareEntry& entry : field.entries) {
                if (isRangeOfDays(entry))
                    continue; // see sweepKeywords
                Question question{entry, field.colType, table.storages[0], u"", dayOf("2024-02-29")};
                for (const std::u16string& value : valuesFor(question, table.rows)) {
                    question.value = value;
                    checkColumn(proof, classType, field.column, question, table);
                }
            }
        }
}

void sweepKeywords(erp::ErpHost& host, Proof& proof) {
    constexpr const char* days[] = {"2024-02-29", "2024-03-31", "2023-12-31", "2024-01-01",
                                    "2023-03-01", "2024-05-31", "2024-02-25", "2024-02-26"};
    for (const std::int32_t classType : classTypes)
        for (const Field& field : fieldsOf(host, classType)) {
            if (std::ranges::none_of(field.entries, isRangeOfDays))
                continue;
            const Table table = readColumns(host, classType, {field.column});
            for (const CompareEntry& entry : field.entries)
                for (const char* day : days) {
                    if (!isRangeOfDays(entry))
                        continue;
                    Question question{entry, field.colType, table.storages[0], u"", dayOf(day)};
                    for (const std::u16string& value : valuesFor(question, table.rows)) {
                        question.value = value;
                        checkColumn(proof, classType, field.column, question, table);
                    }
                }
        }
}

void sweepTypes(erp::ErpHost& host, Proof& proof) {
    constexpr std::int32_t receipts = 1000201;
    constexpr std::int32_t colTypes[] = {-2, -1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 500, 501, 502};
    constexpr const char16_t* operators[] = {u"=",      u"!=",         u"<>",   u"<",        u"<=",        u">", u">=",
                                             u" Like ", u" NOT LIKE ", u" in ", u" NOT IN ", u" BETWEEN ", u"!<"};
    constexpr const char16_t* keywords[] = {u"ISNULL", u"TODAY", u"TODAYBEFORE", u"UNHEARDOF"};
    constexpr const char16_t* columns[] = {u"t_RP_RBill.FDate", u"t_RP_RBill.FAmountFor", u"t_RP_RBill.FYear",
                                           u"t_RP_RBill.FExplanation", u"t_RP_RBill.FPrepaid"};
    for (const char16_t* column : columns) {
        const Table table = readColumns(host, receipts, {column});
        const auto checkAll = [&](const CompareEntry& entry, std::int32_t colType) {
            Question question{entry, colType, table.storages[0], u"", dayOf("2024-02-29")};
            for (const std::u16string& value : valuesFor(question, {})) {
                question.value = value;
                checkColumn(proof, receipts, column, question, table);
            }
        };
        for (const std::int32_t colType : colTypes) {
            for (const char16_t* operation : operators)
                for (const char16_t* input : {u"0", u"1", u"2", u"3"}) {
                    CompareEntry entry;
                    entry.FOperate = operation;
                    entry.FInput = true;
                    entry.FInputCtlType = input;
                    entry.FDataFieldIndex = colType % 2 == 0 ? u"2" : u"1";
                    checkAll(entry, colType);
                }
            for (const char16_t* keyword : keywords)
                for (const char16_t* operation : {u"=", u"<>", u" BETWEEN "}) {
                    CompareEntry entry;
                    entry.FOperate = operation;
                    entry.FValue = keyword;
                    checkAll(entry, colType);
                }
        }
    }
}

} // namespace orv::sqlproof
