#include "automation/NumberLiteral.h"

#include "automation/Ascii.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <system_error>

namespace orv::automation {

namespace {

/// Whether a literal that does not fit is too large rather than too small.
bool isLarge(std::string_view literal) {
    const std::size_t mark = std::min(literal.find('e'), literal.size());
    const std::string_view mantissa = literal.substr(0, mark);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_not_of("0.");
    if (mark + 1 < literal.size()) {
        const std::string_view exponentText = literal.substr(mark + 1);
        long exponent = 0;
        const auto parsed = std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
        const bool isNegative = exponentText.front() == '-';
        if (parsed.ec != std::errc())
            return !isNegative;
        return exponent + static_cast<long>(point) > static_cast<long>(first);
    }
    return first < point;
}

} // namespace

std::optional<double> readPlainNumber(std::u16string_view text) noexcept {
    // Whole numbers and powers of ten of so many digits are exact as Doubles, so their quotient is the nearest one.
    constexpr std::size_t mostDigits = 15;
    static constexpr double powersOfTen[mostDigits + 1] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                           1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
    const bool negative = !text.empty() && text.front() == u'-';
    text.remove_prefix(negative ? 1 : 0);
    std::int64_t digits = 0;
    std::size_t count = 0;
    std::size_t point = text.size();
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isAsciiDigit(text[i]) && count < mostDigits) {
            digits = digits * 10 + (text[i] - u'0');
            ++count;
        } else if (text[i] == u'.' && point == text.size() && count != 0) {
            point = i;
        } else {
            return std::nullopt;
        }
    }
    if (count == 0)
        return std::nullopt;
    const double magnitude = static_cast<double>(digits) / powersOfTen[count - std::min(count, point)];
    return negative && digits != 0 ? -magnitude : magnitude;
}

double parseLiteral(std::string_view literal) {
    double number = 0;
    const auto parsed = std::from_chars(literal.data(), literal.data() + literal.size(), number);
    if (parsed.ec == std::errc::result_out_of_range)
        return isLarge(literal) ? std::numeric_limits<double>::infinity() : 0;
    return number;
}

} // namespace orv::automation
