#include "conditions/ConditionValue.h"

#include "automation/Coercion.h"
#include "automation/LocaleRules.h"
#include "conditions/DateKeywords.h"
#include "conditions/Operators.h"
#include "conditions/Refusal.h"
#include "conditions/TypeClasses.h"
#include "support/Dates.h"
#include "support/Letters.h"

namespace orv::conditions {

namespace {

using support::Trim;

void appendQuoted(std::u16string& out, std::u16string_view text) {
    out += u'\'';
    out += text;
    out += u'\'';
}

void appendQuotedDate(std::u16string& out, double days) {
    out += u'\'';
    support::appendIsoDate(out, support::datePart(days));
    out += u'\'';
}

void checkNumeric(std::u16string_view text) {
    if (!automation::isNumeric(text))
        refuse(refusal::notNumeric);
}

double dateOf(std::u16string_view text, const char16_t* message) {
    const std::optional<double> days = automation::localeRules().parseDate(text);
    if (!days)
        refuse(message);
    return *days;
}

void appendScalar(std::u16string& out, std::u16string_view value, std::int32_t colType, const CompareEntry& entry) {
    const std::u16string_view trimmed = Trim(value);
    if (isNumericValue(colType)) {
        checkNumeric(trimmed);
        out += trimmed;
    } else if (isDateType(colType) && takesDayCount(dateKeyword(entry.FValue))) {
        checkNumeric(trimmed);
        out += trimmed;
    } else if (isDateType(colType)) {
        out += u' ';
        if (value.empty())
            appendQuoted(out, value);
        else
            appendQuotedDate(out, dateOf(trimmed, refusal::notDate));
        out += u' ';
    } else if (colType == metadata::colType::raw) {
        out += value;
    } else {
        appendQuoted(out, value);
    }
}

void appendList(std::u16string& out, std::u16string_view value, std::int32_t colType) {
    out += u'(';
    bool isFirst = true;
    // An empty piece ends the list, whatever follows it.
    while (true) {
        const std::size_t comma = value.find(u',');
        const std::u16string_view piece = Trim(value.substr(0, comma));
        if (piece.empty())
            break;
        if (!isFirst)
            out += u',';
        isFirst = false;
        if (isNumericValue(colType)) {
            checkNumeric(piece);
            out += piece;
        } else if (isDateType(colType)) {
            appendQuotedDate(out, dateOf(piece, refusal::notDate));
        } else {
            appendQuoted(out, piece);
        }
        if (comma == std::u16string_view::npos)
            break;
        value.remove_prefix(comma + 1);
    }
    if (isFirst)
        throw automation::AutomationError::runtime(automation::errorNumber::invalidCall);
    out += u')';
}

void appendRange(std::u16string& out, std::u16string_view value, std::int32_t colType) {
    constexpr std::u16string_view separator = u"AND";
    if (!acceptsBetween(colType))
        refuse(refusal::noBetween);
    const std::size_t at = support::findIgnoringCase(value, separator);
    if (at == std::u16string_view::npos)
        refuse(refusal::boundsMissing);
    const std::u16string_view low = Trim(value.substr(0, at));
    const std::u16string_view high = Trim(value.substr(at + separator.size()));
    if (isDateType(colType)) {
        const double first = dateOf(low, refusal::boundNotDate);
        const double last = dateOf(high, refusal::boundNotDate);
        if (first > last)
            refuse(refusal::boundsReversed);
        appendQuotedDate(out, first);
        out += u" AND ";
        appendQuotedDate(out, last);
    } else {
        checkNumeric(low);
        checkNumeric(high);
        if (automation::Val(low) > automation::Val(high))
            refuse(refusal::boundsReversed);
        out += low;
        out += u" AND ";
        out += high;
    }
}

void appendPattern(std::u16string& out, std::u16string_view value, std::int32_t colType) {
    if (refusesLike(colType))
        refuse(refusal::noLike);
    out += u"'%";
    out += value;
    out += u"%'";
}

} // namespace

void appendConditionValue(std::u16string& out, std::u16string_view value, const ConditionRow& row,
                          const CompareEntry& entry) {
    const std::int32_t colType = row.FColType.value_or(metadata::colType::date);
    out += u' ';
    switch (valueForm(entry.FOperate)) {
    case ValueForm::scalar:
        appendScalar(out, value, colType, entry);
        break;
    case ValueForm::list:
        appendList(out, value, colType);
        break;
    case ValueForm::range:
        appendRange(out, value, colType);
        break;
    case ValueForm::pattern:
        appendPattern(out, value, colType);
        break;
    case ValueForm::none:
        break;
    }
    out += u' ';
}

std::u16string FormatConditionValue(std::u16string_view value, const ConditionRow& row, const CompareEntry& entry) {
    std::u16string text;
    appendConditionValue(text, value, row, entry);
    return text;
}

} // namespace orv::conditions
