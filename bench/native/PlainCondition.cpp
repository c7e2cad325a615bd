#include "bench/native/PlainCondition.h"

#include "automation/Coercion.h"
#include "bench/host/LargeHost.h"
#include "support/PaddedItem.h"

#include <map>
#include <memory>
#include <tuple>

namespace orv::bench {

namespace {

struct Form {
    int field; ///< position of the field in a LargeHost; its sort follows from it
    ColumnKind kind;
    const char16_t* comparison;
    const char16_t* sqlOperator;
    const char16_t* keyword;
    const char16_t* control;
    const char16_t* value;
};

constexpr Form forms[] = {
    {3, ColumnKind::text, u"等于", u"=", u"", u"0", u"上海分公司"},
    {2, ColumnKind::number, u"大于等于", u">=", u"", u"0", u"1250.5"},
    {1, ColumnKind::date, u"等于", u"=", u"", u"0", u"2024-02-05"},
    {7, ColumnKind::text, u"包含", u" LIKE ", u"", u"0", u"货款"},
    {6, ColumnKind::number, u"介于", u" BETWEEN ", u"", u"2", u"10 AND 250"},
    {5, ColumnKind::date, u"介于", u" BETWEEN ", u"", u"0", u"2024-01-01 AND 2024-01-31"},
    {11, ColumnKind::text, u"属于", u" IN ", u"", u"0", u"A01, A02, B17"},
    {10, ColumnKind::number, u"属于", u" IN ", u"", u"2", u"1, 2, 3"},
    {9, ColumnKind::date, u"本月", u" BETWEEN ", u"THISMONTH", u"0", u""},
    {15, ColumnKind::text, u"为空", u"=", u"ISNULL", u"0", u""},
    {19, ColumnKind::text, u"不等于", u"<>", u"", u"0", u"作废"},
    {23, ColumnKind::text, u"选择", u"=", u"", u"1", u"C0042"},
    {14, ColumnKind::number, u"等于", u"=", u"", u"0", u"-17"},
    {13, ColumnKind::date, u"大于等于", u">=", u"", u"0", u"2023-12-31"},
};

} // namespace

std::vector<PlainCondition> mixedConditions(std::size_t count) {
    std::vector<PlainCondition> all;
    for (std::size_t i = 0; i < count; ++i) {
        const Form& form = forms[i % std::size(forms)];
        PlainCondition condition;
        const bool inGroup = i / 3 * 3 + 3 <= count; // groups of three lines stand in brackets
        condition.left = inGroup && i % 3 == 0 ? u"(" : u"";
        condition.right = inGroup && i % 3 == 2 ? u")" : u"";
        condition.column = u"t_Large.F" + automation::numberToText(form.field);
        condition.kind = form.kind;
        condition.comparison = form.comparison;
        condition.sqlOperator = form.sqlOperator;
        condition.keyword = form.keyword;
        condition.control = form.control;
        condition.value = condition.control == u"1" ? support::PadItem(u"客户", form.value) : form.value;
        condition.logic = i + 1 == count ? u"" : i % 5 == 4 ? u" OR " : u" AND ";
        all.push_back(std::move(condition));
    }
    return all;
}

std::vector<conditions::ConditionRow> conditionRows(const std::vector<PlainCondition>& plain) {
    // Lines of one comparison share its entry, as they do in the control.
    std::map<std::tuple<std::u16string, std::u16string, std::u16string>, conditions::CompareEntryRef> entries;
    std::vector<conditions::ConditionRow> rows;
    for (const PlainCondition& condition : plain) {
        auto& entry = entries[{condition.sqlOperator, condition.keyword, condition.control}];
        if (!entry) {
            conditions::CompareEntry made;
            made.FOperate = condition.sqlOperator;
            made.FValue = condition.keyword;
            made.FInput = condition.keyword.empty();
            made.FInputCtlType = condition.control;
            made.FDataFieldIndex = u"2";
            made.FDataSourceType = std::int32_t{0};
            entry = std::make_shared<const conditions::CompareEntry>(std::move(made));
        }
        conditions::ConditionRow row = conditions::NewConditionRow();
        row.FLeft = condition.left;
        row.FFieldKey = condition.column;
        row.FFieldName = condition.column;
        row.FColType = condition.kind == ColumnKind::date ? 0 : condition.kind == ColumnKind::number ? 2 : 1;
        row.FCompareDct = entry;
        row.FCompare = condition.sqlOperator;
        row.FCompareIndex = 1;
        row.FValue = condition.value;
        row.FRight = condition.right;
        row.FLogic = condition.logic;
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace orv::bench
