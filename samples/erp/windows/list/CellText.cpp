#include "erp/windows/list/CellText.h"

#include "ole/Automation.h"

#include <cmath>
#include <cwchar>

namespace orv::erp {

namespace {

std::wstring dateText(DATE date) {
    SYSTEMTIME moment{};
    // Values come to the second; the conversion cuts.
    if (!VariantTimeToSystemTime(date + 0.4 / 86400, &moment))
        return {};
    wchar_t text[40];
    const bool hasTime = moment.wHour || moment.wMinute || moment.wSecond;
    std::swprintf(text, std::size(text), hasTime ? L"%04d-%02d-%02d %02d:%02d:%02d" : L"%04d-%02d-%02d", moment.wYear,
                  moment.wMonth, moment.wDay, moment.wHour, moment.wMinute, moment.wSecond);
    return text;
}

/// "1234567" with separators.
std::wstring grouped(std::wstring digits) {
    for (std::size_t at = digits.size(); at > 3; at -= 3)
        digits.insert(at - 3, L",");
    return digits;
}

/// A plain decimal text with separators before the point.
std::wstring groupedDecimal(const std::wstring& text) {
    const bool isNegative = text.starts_with(L'-');
    const std::size_t start = isNegative ? 1 : 0;
    const std::size_t point = std::min(text.find(L'.'), text.size());
    return (isNegative ? L"-" : L"") + grouped(text.substr(start, point - start)) + text.substr(point);
}

} // namespace

std::wstring amountText(double amount, int decimals) {
    wchar_t text[400];
    std::swprintf(text, std::size(text), L"%.*f", decimals, amount);
    const std::wstring plain = text;
    return groupedDecimal(
        plain.find_first_of(L"123456789") == std::wstring::npos && plain.starts_with(L'-') ? plain.substr(1) : plain);
}

std::wstring sumText(const ListColumn& column, double sum) {
    constexpr int mostDecimals = 4;
    if (!column.decimalKey.empty())
        return amountText(sum, usualDecimals);
    std::wstring text = amountText(sum, mostDecimals);
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.ends_with(L'.'))
        text.pop_back();
    return text;
}

std::wstring cellText(const ListColumn& column, const _variant_t& value, int decimals) {
    switch (value.vt) {
    case VT_NULL:
    case VT_EMPTY:
        return {};
    case VT_DATE:
        return dateText(value.date);
    case VT_BOOL:
        if (column.valueTexts.empty())
            return value.boolVal ? L"√" : L"";
        break;
    case VT_DECIMAL:
    case VT_R8:
    case VT_CY:
        if (column.valueTexts.empty()) {
            _variant_t number;
            ole::check(VariantChangeType(&number, const_cast<_variant_t*>(&value), 0, VT_R8), L"number");
            // Amounts have fixed places; rates and quantities show those that count.
            if (!column.decimalKey.empty())
                return amountText(number.dblVal, decimals);
            return groupedDecimal(ole::textOf(value));
        }
        break;
    default:
        break;
    }
    // A flag is 0 or 1 in a value list.
    const std::wstring text = value.vt == VT_BOOL ? (value.boolVal ? L"1" : L"0") : ole::textOf(value);
    const auto known = column.valueTexts.find(text);
    return known == column.valueTexts.end() ? text : known->second;
}

} // namespace orv::erp
