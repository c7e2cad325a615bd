#include "erp/windows/ScriptHost.h"

#include "automation/Coercion.h"
#include "automation/Records.h"
#include "erp/host/BillList.h"
#include "erp/host/ErpHost.h"
#include "erp/host/MemberObject.h"
#include "erp/host/RecordsetObject.h"
#include "erp/windows/ConditionTyping.h"
#include "erp/windows/HostProcess.h"
#include "support/PairList.h"
#include "support/Pieces.h"

namespace orv::erp {

using automation::Arguments;
using automation::Value;

namespace {

constexpr std::size_t shownKeys = 10;

std::u16string textOf(const automation::Argument& argument) {
    return argument.value().isMissing() ? std::u16string() : automation::toText(argument.value());
}

/// The columns that a control's header asks for.
std::vector<BillColumn> columnsOf(const automation::Collection& header) {
    std::vector<BillColumn> columns;
    const std::int32_t count = header.count();
    for (std::int32_t i = 1; i <= count; ++i) {
        const automation::Dictionary column = header.record(i);
        columns.push_back({.key = automation::toText(column.get(u"FKey")),
                           .expression = automation::toText(column.get(u"FFieldNameExt")),
                           .page = automation::toInt32(column.get(u"FPage")),
                           .isSummed = automation::toInt32(column.get(u"FNeedCount")) != 0});
    }
    return columns;
}

class ScriptHost final : public MemberObject {
  public:
    std::span<const Member> members() const override;

    void open(Arguments arguments) { openHostOfProcess(textOf(arguments[0])); }
    Value logOn(Arguments arguments) {
        const auto& host = hostOfProcess();
        host->logOn(textOf(arguments[0]), textOf(arguments[1]));
        return support::lookupPair(host->props(), u"UserName", support::propsSeparator);
    }
    Value getNow(Arguments) { return hostOfProcess()->database().now(); }
    void letNow(Arguments arguments) { hostOfProcess()->setNow(automation::toDate(arguments[0].value())); }
    Value classTypes(Arguments) { return hostOfProcess()->classTypes().object(); }
    Value dataService(Arguments arguments) {
        return hostOfProcess()->dataService(automation::toInt32(arguments[0].value()));
    }
    Value settings(Arguments) { return hostOfProcess()->defaultSettings().object(); }
    Value rows(Arguments arguments) { return static_cast<std::int32_t>(run(arguments).rows); }
    Value list(Arguments arguments) {
        const ListResult result = run(arguments);
        std::u16string keys;
        for (const std::u16string& key : result.firstKeys)
            keys += (keys.empty() ? u"" : u",") + key;
        const automation::Dictionary answer = automation::makeDictionary();
        answer.set(u"Rows", static_cast<std::int32_t>(result.rows));
        answer.set(u"Bills", static_cast<std::int32_t>(result.bills));
        answer.set(u"FirstKeys", keys);
        answer.set(u"SQL", result.sql);
        return answer.object();
    }
    Value billList(Arguments arguments) {
        const std::vector<BillColumn> columns =
            columnsOf(automation::Collection(automation::toObject(arguments[1].value())));
        BillList result = hostOfProcess()->billList(automation::toInt32(arguments[0].value()), columns,
                                                    textOf(arguments[2]), textOf(arguments[3]), textOf(arguments[4]));
        const automation::Dictionary sums = automation::makeDictionary();
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (columns[i].isSummed)
                sums.set(columns[i].key, result.sums[i]);
        const automation::Dictionary answer = automation::makeDictionary();
        answer.set(u"Rows", static_cast<std::int32_t>(result.records.rows.size()));
        answer.set(u"Bills", static_cast<std::int32_t>(result.bills));
        answer.set(u"Sums", sums.object());
        answer.set(u"SQL", result.sql);
        answer.set(u"Records", automation::ObjectRef(RecordsetObject::make(std::move(result.records))));
        return answer.object();
    }
    void fillRow(Arguments arguments) {
        fillConditionRow(automation::toObject(arguments[0].value()), automation::toInt32(arguments[1].value()),
                         {.left = textOf(arguments[2]),
                          .field = textOf(arguments[3]),
                          .compare = textOf(arguments[4]),
                          .value = textOf(arguments[5]),
                          .right = textOf(arguments[6]),
                          .logic = textOf(arguments[7])});
    }
    Value text(Arguments arguments) {
        std::u16string built;
        const std::u16string units = textOf(arguments[0]);
        for (std::ptrdiff_t n = 1;; ++n) {
            const std::u16string_view unit = support::GetPiece(units, n, u" ");
            if (unit.empty())
                return built;
            // Units above 7FFF read as negative 16-bit numbers.
            built += static_cast<char16_t>(automation::toInt32(automation::Val(u"&H" + std::u16string(unit))));
        }
    }
    void answerLookUp(Arguments arguments) { hostOfProcess()->queueLookUp(textOf(arguments[0])); }
    void failNext(Arguments arguments) {
        hostOfProcess()->failNext(textOf(arguments[0]), textOf(arguments[1]), automation::toInt32(arguments[2].value()),
                                  textOf(arguments[3]));
    }

  private:
    static ListResult run(Arguments arguments) {
        return hostOfProcess()->list(automation::toInt32(arguments[0].value()), textOf(arguments[1]),
                                     textOf(arguments[2]), textOf(arguments[3]), shownKeys);
    }
};

constexpr Member scriptMembers[] = {
    method<&ScriptHost::open>(u"Open", 1),
    method<&ScriptHost::logOn>(u"LogOn", 2),
    property<&ScriptHost::getNow, &ScriptHost::letNow>(u"Now"),
    method<&ScriptHost::classTypes>(u"ClassTypes", 0),
    method<&ScriptHost::dataService>(u"DataService", 1),
    method<&ScriptHost::settings>(u"Settings", 0),
    method<&ScriptHost::rows>(u"Rows", 4),
    method<&ScriptHost::list>(u"List", 4),
    method<&ScriptHost::billList>(u"BillList", 5),
    method<&ScriptHost::fillRow>(u"FillRow", 8),
    method<&ScriptHost::answerLookUp>(u"AnswerLookUp", 1),
    method<&ScriptHost::failNext>(u"FailNext", 4),
    method<&ScriptHost::text>(u"Text", 1),
};

std::span<const Member> ScriptHost::members() const {
    return scriptMembers;
}

} // namespace

automation::ObjectRef makeScriptHost() {
    return std::make_shared<ScriptHost>();
}

} // namespace orv::erp
