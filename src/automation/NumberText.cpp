#include "automation/NumberText.h"

#include "automation/Coercion.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace orv::automation {

namespace {

/// Significant digits that a Double keeps in its text.
constexpr int significantDigits = 15;

void appendAscii(std::u16string& out, std::string_view text) {
    const std::size_t before = out.size();
    out.resize(before + text.size());
    std::copy(text.begin(), text.end(), out.begin() + static_cast<std::ptrdiff_t>(before));
}

/// The digits of a positive number without trailing zeros, and the power of ten of the first one.
struct Digits {
    std::array<char, 32> buffer;
    std::size_t count;
    int exponent;
    std::string_view text() const noexcept { return {buffer.data(), count}; }
};

Digits digitsOf(double number) {
    std::array<char, 32> scientific; // "d.dddddddddddddde-308"
    const auto end = std::to_chars(scientific.data(), scientific.data() + scientific.size(), number,
                                   std::chars_format::scientific, significantDigits - 1)
                         .ptr;
    const std::string_view written(scientific.data(), static_cast<std::size_t>(end - scientific.data()));
    const std::size_t mark = written.find('e');

    Digits digits{};
    for (const char c : written.substr(0, mark))
        if (c != '.')
            digits.buffer[digits.count++] = c;
    while (digits.count > 1 && digits.buffer[digits.count - 1] == '0')
        --digits.count;
    const char* exponentText = written.data() + mark + 1;
    if (*exponentText == '+')
        ++exponentText;
    std::from_chars(exponentText, end, digits.exponent);
    return digits;
}

void appendExponentForm(std::u16string& out, const Digits& digits) {
    const std::string_view text = digits.text();
    appendAscii(out, text.substr(0, 1));
    if (text.size() > 1) {
        out += u'.';
        appendAscii(out, text.substr(1));
    }
    out += digits.exponent < 0 ? u"E-" : u"E+";
    const int magnitude = std::abs(digits.exponent);
    if (magnitude < 10)
        out += u'0';
    appendAscii(out, std::to_string(magnitude));
}

void appendPlainForm(std::u16string& out, const Digits& digits) {
    const std::string_view text = digits.text();
    if (digits.exponent < 0) {
        out += u"0.";
        out.append(static_cast<std::size_t>(-digits.exponent - 1), u'0');
        appendAscii(out, text);
        return;
    }
    const auto whole = static_cast<std::size_t>(digits.exponent) + 1;
    appendAscii(out, text.substr(0, whole));
    if (text.size() > whole) {
        out += u'.';
        appendAscii(out, text.substr(whole));
    } else {
        out.append(whole - text.size(), u'0');
    }
}

/// Digits after the point that the plain form of a number below 1 needs.
int decimalsOf(const Digits& digits) {
    return static_cast<int>(digits.count) - 1 - digits.exponent;
}

/// Writes a number that has few decimals as the whole number that it is a quotient of. False when it has more.
bool appendShort(std::u16string& out, double number) {
    // Below this bound every whole number has at most 15 digits, which a Double keeps: when the quotient is the number
    // again, its digits are those that the number has when rounded to 15.
    constexpr double bound = 1e15;
    constexpr int mostDecimals = 4;
    double power = 1;
    for (int decimals = 0; decimals <= mostDecimals; ++decimals, power *= 10) {
        const double whole = std::nearbyint(number * power);
        if (!(std::fabs(whole) < bound))
            return false;
        if (whole / power != number)
            continue;
        const std::int64_t units = std::abs(static_cast<std::int64_t>(whole));
        const auto scale = static_cast<std::int64_t>(power);
        if (number < 0)
            out += u'-';
        appendInteger(out, units / scale);
        if (decimals != 0) {
            out += u'.';
            for (std::int64_t place = scale / 10; place != 0; place /= 10)
                out += static_cast<char16_t>(u'0' + units / place % 10);
        }
        return true;
    }
    return false;
}

} // namespace

void appendNumber(std::u16string& out, double number) {
    if (appendShort(out, number))
        return;
    if (std::isnan(number)) {
        out += std::signbit(number) ? u"-1.#IND" : u"1.#QNAN";
        return;
    }
    if (number < 0)
        out += u'-';
    if (std::isinf(number)) {
        out += u"1.#INF";
        return;
    }
    const Digits digits = digitsOf(std::fabs(number));
    const bool plain =
        digits.exponent >= 0 ? digits.exponent < significantDigits : decimalsOf(digits) <= significantDigits;
    plain ? appendPlainForm(out, digits) : appendExponentForm(out, digits);
}

std::u16string numberToText(double number) {
    std::u16string out;
    appendNumber(out, number);
    return out;
}

void appendInteger(std::u16string& out, std::int64_t number) {
    std::array<char, 24> buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr;
    appendAscii(out, {buffer.data(), static_cast<std::size_t>(end - buffer.data())});
}

} // namespace orv::automation
