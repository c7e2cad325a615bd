#include "automation/NumberLiteral.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
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

double parseLiteral(std::string_view literal) {
    double number = 0;
    const auto parsed = std::from_chars(literal.data(), literal.data() + literal.size(), number);
    if (parsed.ec == std::errc::result_out_of_range)
        return isLarge(literal) ? std::numeric_limits<double>::infinity() : 0;
    return number;
}

} // namespace orv::automation
