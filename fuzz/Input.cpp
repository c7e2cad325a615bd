#include "Input.h"

#include "automation/Text.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace orv::fuzz {

namespace {

constexpr std::uint8_t lineEnd = '\n';

/// What the bytes from 0x80 on stand for; behind them come the repetitions.
constexpr char16_t units[] = {
    u'\n',     u'\r',     u'\u00A0', u'\u00A5', u'\u00DF', u'\u00E9', u'\u0130', u'\u0131', u'\u0178', u'\u3000',
    u'\u3001', u'\uFF10', u'\uFF11', u'\uFF19', u'\uFF0C', u'\uFF0E', u'\uFF0D', u'\uFF0B', u'\uFF1A', u'\uFF0F',
    u'\uFF21', u'\uFF41', u'\uFFE5', u'\u5E74', u'\u6708', u'\u65E5', u'\u65F6', u'\u5206', u'\u79D2', u'\u53F7',
    u'\u70B9', u'\u4E0A', u'\u4E0B', u'\u5348', u'\u5E76', u'\u4E14', u'\u6216', u'\uFFFD', u'\uFFFE', u'\uFFFF',
    0xD800,    0xD83D,    0xDBFF,    0xDC00,    0xDE00,    0xDFFF,    u'\uFEFF', u'\u200B',
};

/// Lengths that a text is filled up to with its last unit: around the width of a padded caption, and far beyond.
constexpr std::size_t lengths[] = {60, 61, 254, 255, 256, 257, 511, 3000};
/// No text grows beyond this many units by repetition: an input must not spend its time on length alone.
constexpr std::size_t longest = 6'000;

void append(std::u16string& text, std::uint8_t byte) {
    if (byte < 0x80) {
        text += static_cast<char16_t>(byte);
        return;
    }
    const std::size_t index = byte - 0x80U;
    if (index < std::size(units)) {
        text += units[index];
        return;
    }
    const std::size_t wanted = lengths[index % std::size(lengths)];
    const char16_t unit = text.empty() ? u' ' : text.back();
    if (text.size() < wanted)
        text.resize(wanted, unit);
    else if (wanted == lengths[std::size(lengths) - 1] && text.size() < longest)
        text.append(wanted, unit);
}

} // namespace

std::u16string Input::line() {
    std::u16string text;
    while (!rest_.empty()) {
        const std::uint8_t byte = rest_.front();
        rest_.remove_prefix(1);
        if (byte == lineEnd)
            break;
        append(text, byte);
    }
    return text;
}

std::u16string Input::rest() {
    std::u16string text;
    for (; !rest_.empty(); rest_.remove_prefix(1))
        append(text, rest_.front());
    return text;
}

int Input::below(int limit) {
    if (rest_.empty() || limit < 1)
        return 0;
    const auto distance = static_cast<std::uint8_t>(rest_.front() - '0');
    rest_.remove_prefix(1);
    return distance % limit;
}

std::uint64_t Input::bits() {
    std::uint64_t result = 0;
    for (int i = 0; i < 8 && !rest_.empty(); ++i, rest_.remove_prefix(1))
        result = (result << 8) | rest_.front();
    return result;
}

double Input::number() {
    const std::uint64_t pattern = bits();
    double result = 0;
    std::memcpy(&result, &pattern, sizeof result);
    return result;
}

void require(bool holds, const char* property) {
    if (holds)
        return;
    std::fprintf(stderr, "\nbroken: %s\n", property);
    std::abort();
}

void requireSame(std::u16string_view actual, std::u16string_view expected, const char* property) {
    if (actual == expected)
        return;
    std::fprintf(stderr, "\n  actual: %s\nexpected: %s\n", automation::toUtf8(actual).c_str(),
                 automation::toUtf8(expected).c_str());
    require(false, property);
}

} // namespace orv::fuzz
