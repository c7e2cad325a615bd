#include "HostTesting.h"
#include "automation/Records.h"
#include "conditions/ConditionSql.h"
#include "conditions/Today.h"
#include "conditions/TypeClasses.h"
#include "metadata/FieldRecord.h"
#include "support/Letters.h"
#include "support/PaddedItem.h"

#include <cmath>
#include <gtest/gtest.h>

namespace orv::erp {
namespace {

using namespace testing;
using automation::Dictionary;
using automation::ObjectRef;
using automation::toText;
using conditions::CompareEntry;

class LeapDay final : public conditions::Today {
  public:
    double date() override { return std::floor(leapDay); }
};

/// What a user might type for a comparison of a column.
std::u16string typedValue(const CompareEntry& entry, std::int32_t columnType, bool isMoment) {
    const std::u16string operation = support::toUpper(support::Trim(entry.FOperate));
    if (!entry.FValue.empty() && entry.FValue[0] != u'@')
        return u"3"; // a day count; the other keywords take no value
    const bool isDate = columnType == 0 || isMoment;
    const bool isNumber = conditions::isNumericValue(columnType) || columnType == metadata::colType::raw;
    const std::u16string low = isDate ? u"2024-02-01" : isNumber ? u"1" : u"a";
    const std::u16string high = isDate ? u"2024-02-29" : isNumber ? u"2.5" : u"b";
    if (operation == u"BETWEEN")
        return low + u" AND " + high;
    if (operation == u"IN" || operation == u"NOT IN")
        return low + u"," + high;
    if (entry.FInputCtlType == u"1")
        return support::PadItem(high, u"2");
    return high;
}

// Each comparison that the metadata offers must become a condition that the database understands.
TEST(HostComparisons, EveryComparisonOfEveryFieldIsGoodSql) {
    const auto host = openErp();
    LeapDay today;
    // A few hundred bills meet every kind of value; all of them would take too long.
    const std::u16string someBills = u"<=300 AND (";
    int checked = 0;
    for (const std::int32_t classType : {1000101, 1000201, 1000202, 1000301, 1000801, 1000901, 1000902}) {
        const ObjectRef service = host->dataService(classType);
        const auto list = collection(automation::get(service, u"SelectList"));
        const Dictionary table = record(automation::get(service, u"TableInfo"));
        const std::u16string identifier = toText(list.record(1).get(u"Fkey"));
        const std::u16string some = toText(record(table.get(identifier)).get(u"FFieldNameExt")) + someBills;
        for (std::int32_t i = 1; i <= list.count(); ++i) {
            const auto field =
                std::make_shared<const metadata::FieldRecord>(record(table.get(toText(list.record(i).get(u"Fkey")))));
            const auto entries =
                collection(automation::call(service, u"getCondition", field->value(metadata::fieldKey::condition)));
            for (std::int32_t position = 1; position <= entries.count(); ++position) {
                conditions::ConditionRow row = conditions::NewConditionRow();
                row.HDict = field;
                row.FFieldName = field->text(metadata::fieldKey::fieldNameExt);
                row.FColType = field->number(metadata::fieldKey::colType);
                const auto entry = std::make_shared<const CompareEntry>(CompareEntry::read(entries.record(position)));
                row.FCompareDct = entry;
                row.FValue = typedValue(*entry, *row.FColType,
                                        field->number(metadata::fieldKey::sourceType) == metadata::sourceTypeDateTime);
                SCOPED_TRACE(std::to_string(classType) + " " + utf8(field->text(metadata::fieldKey::key)) + " " +
                             utf8(entry->FName));
                std::u16string sql;
                ASSERT_NO_THROW(sql = conditions::BuildConditionSql(row, today));
                EXPECT_NO_THROW(host->list(classType, some + sql + u")", u"", u"", 0)) << utf8(sql);
                ++checked;
            }
        }
    }
    EXPECT_GT(checked, 1000);
}

} // namespace
} // namespace orv::erp
