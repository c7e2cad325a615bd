#include "conditions/ConditionSql.h"

#include "automation/Coercion.h"
#include "automation/NumberText.h"
#include "conditions/ColumnExpression.h"
#include "conditions/ConditionValue.h"
#include "conditions/DateKeywords.h"
#include "conditions/Operators.h"
#include "conditions/Refusal.h"
#include "conditions/TypeClasses.h"
#include "support/Letters.h"
#include "support/PaddedItem.h"

#include <string_view>

namespace orv::conditions {

namespace {

using automation::Val;
using support::Trim;

/// The user types or picks a value; everything else is a range around today or a test for emptiness.
bool takesValue(const CompareEntry& entry) noexcept {
    return entry.FInput && !takesDayCount(dateKeyword(entry.FValue));
}

void appendValueAsNumber(std::u16string& out, std::u16string_view value) {
    out += u' ';
    automation::appendNumber(out, Val(value));
}

/// Input type "0": the value as the user typed it.
void appendTyped(std::u16string& out, const ColumnExpression& column, const ConditionRow& row,
                 const CompareEntry& entry, bool numeric) {
    if (!numeric) {
        column.appendTo(out);
        out += entry.FOperate;
        appendConditionValue(out, Trim(row.FValue), row, entry);
        return;
    }
    out += u"isnull(";
    out += row.FFieldName;
    out += u",0)";
    out += entry.FOperate;
    // The checked value serves as scratch text behind the SQL: only the number that it begins with stays.
    const std::size_t end = out.size();
    appendConditionValue(out, Trim(row.FValue), row, entry);
    const double number = Val(std::u16string_view(out).substr(end));
    out.resize(end);
    out += u' ';
    automation::appendNumber(out, number);
}

/// Input type "1": a look-up cell, caption and hidden key.
void appendLookup(std::u16string& out, ColumnExpression column, const ConditionRow& row, const CompareEntry& entry,
                  bool numeric) {
    const bool keyPart = Val(entry.FDataFieldIndex) == 2;
    const std::u16string_view value = support::SplitLookupText(row.FValue, keyPart);
    if (numeric) {
        column.appendTo(out);
        out += entry.FOperate;
        appendValueAsNumber(out, value);
        return;
    }
    if (isNotEqual(entry.FOperate)) {
        // Dots stand for "nothing picked": no record may match.
        if (row.FValue.starts_with(u"...")) {
            out += u" 1<>1 ";
            return;
        }
        ++column.emptyGuards; // on top of the one that every "<>" has
    }
    column.appendTo(out);
    out += entry.FOperate;
    out += u" '";
    out += Trim(value);
    out += u"' ";
}

void appendComparison(std::u16string& out, const ConditionRow& row, const CompareEntry& entry, Today& today) {
    const std::int32_t colType = row.FColType.value_or(metadata::colType::date);
    ColumnExpression column{row.FFieldName, isDateType(colType), 0};
    if (!takesValue(entry)) {
        const DateKeyword keyword = dateKeyword(entry.FValue);
        const std::int32_t days = takesDayCount(keyword) ? automation::roundToInt32(Val(row.FValue)) : 0;
        appendDateKeywordSql(out, column, entry.FOperate, keyword, days, today);
        return;
    }
    if (isNotEqual(entry.FOperate))
        column.emptyGuards = 1;
    if (entry.FInputCtlType == u"0") {
        appendTyped(out, column, row, entry, isNumericColumn(colType));
    } else if (entry.FInputCtlType == u"1") {
        appendLookup(out, column, row, entry, isNumericColumn(colType));
    } else if (entry.FInputCtlType == u"2") {
        column.appendTo(out);
        out += entry.FOperate;
        appendConditionValue(out, row.FValue, row, entry);
    }
}

} // namespace

void appendConditionSql(std::u16string& out, const ConditionRow& row, Today& today) {
    if (!row.FCompareDct)
        refuse(refusal::noComparison);
    const CompareEntry& entry = *row.FCompareDct;
    // Nothing depends on the kind of the data source, but one that is no number means a broken comparison.
    automation::toInt32(entry.FDataSourceType);
    const std::size_t before = out.size();
    try {
        out += row.FLeft;
        out += u' ';
        appendComparison(out, row, entry, today);
        out += u' ';
        out += row.FRight;
        out += u' ';
        out += Trim(row.FLogic);
    } catch (...) {
        out.resize(before);
        throw;
    }
}

std::u16string BuildConditionSql(const ConditionRow& row, Today& today) {
    std::u16string text;
    appendConditionSql(text, row, today);
    return text;
}

bool needsToday(const ConditionRow& row) noexcept {
    return row.FCompareDct && !takesValue(*row.FCompareDct) && needsToday(dateKeyword(row.FCompareDct->FValue));
}

} // namespace orv::conditions
