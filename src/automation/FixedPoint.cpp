#include "automation/FixedPoint.h"

#include "automation/NumberLiteral.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace orv::automation {

namespace {

constexpr int currencyScale = 4;

/// Decimal digits of the 96-bit integer `hi:lo`, at least one.
std::string digitsOf(std::uint32_t hi, std::uint64_t lo) {
    std::array<std::uint32_t, 3> words = {hi, static_cast<std::uint32_t>(lo >> 32), static_cast<std::uint32_t>(lo)};
    std::string digits;
    do {
        std::uint64_t remainder = 0;
        for (std::uint32_t& word : words) {
            const std::uint64_t dividend = (remainder << 32) | word;
            word = static_cast<std::uint32_t>(dividend / 10);
            remainder = dividend % 10;
        }
        digits += static_cast<char>('0' + remainder);
    } while (words[0] != 0 || words[1] != 0 || words[2] != 0);
    std::ranges::reverse(digits);
    return digits;
}

Decimal asDecimal(Currency amount) {
    const bool negative = amount.tenThousandths < 0;
    const auto bits = static_cast<std::uint64_t>(amount.tenThousandths);
    return Decimal{.hi = 0, .lo = negative ? 0 - bits : bits, .scale = currencyScale, .negative = negative};
}

} // namespace

std::u16string decimalText(const Decimal& decimal) {
    std::string digits = digitsOf(decimal.hi, decimal.lo);
    const std::size_t decimals = decimal.scale;
    if (digits.size() <= decimals)
        digits.insert(0, decimals + 1 - digits.size(), '0');
    const std::size_t whole = digits.size() - decimals;
    const std::size_t last = digits.find_last_not_of('0');
    const std::size_t kept = last == std::string::npos ? whole : std::max(whole, last + 1);

    std::u16string text;
    if (decimal.negative && (decimal.hi != 0 || decimal.lo != 0))
        text += u'-';
    text.append(digits.begin(), digits.begin() + static_cast<std::ptrdiff_t>(whole));
    if (kept > whole) {
        text += u'.';
        text.append(digits.begin() + static_cast<std::ptrdiff_t>(whole),
                    digits.begin() + static_cast<std::ptrdiff_t>(kept));
    }
    return text;
}

double decimalNumber(const Decimal& decimal) {
    const double magnitude = parseLiteral(digitsOf(decimal.hi, decimal.lo) + "e-" + std::to_string(decimal.scale));
    return decimal.negative && magnitude != 0 ? -magnitude : magnitude;
}

std::u16string currencyText(Currency amount) {
    return decimalText(asDecimal(amount));
}

double currencyNumber(Currency amount) {
    return decimalNumber(asDecimal(amount));
}

} // namespace orv::automation
