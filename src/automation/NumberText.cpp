#include "automation/NumberText.h"

#include "automation/Coercion.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

namespace orv::automation {

namespace {

/// Significant digits that a Double keeps in its text.
constexpr int significantDigits = 15;

void appendAscii(std::u16string& out, std::string_view text) {
    out.append(text.begin(), text.end());
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

} // namespace

void appendNumber(std::u16string& out, double number) {
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
    if (number == 0) { // negative zero included
        out += u'0';
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
