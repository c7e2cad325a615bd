#include "automation/Text.h"

#include <cstddef>
#include <cstdint>

namespace orv::automation {

namespace {

constexpr char32_t replacement = U'\uFFFD';

constexpr bool isHighSurrogate(char32_t unit) noexcept {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
constexpr bool isLowSurrogate(char32_t unit) noexcept {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

void appendUtf8(std::string& out, char32_t point) {
    const auto byte = [&out](char32_t bits) { out.push_back(static_cast<char>(static_cast<unsigned char>(bits))); };
    if (point < 0x80) {
        byte(point);
    } else if (point < 0x800) {
        byte(0xC0 | (point >> 6));
        byte(0x80 | (point & 0x3F));
    } else if (point < 0x10000) {
        byte(0xE0 | (point >> 12));
        byte(0x80 | ((point >> 6) & 0x3F));
        byte(0x80 | (point & 0x3F));
    } else {
        byte(0xF0 | (point >> 18));
        byte(0x80 | ((point >> 12) & 0x3F));
        byte(0x80 | ((point >> 6) & 0x3F));
        byte(0x80 | (point & 0x3F));
    }
}

void appendUtf16(std::u16string& out, char32_t point) {
    if (point < 0x10000) {
        out.push_back(static_cast<char16_t>(point));
    } else {
        out.push_back(static_cast<char16_t>(0xD800 + ((point - 0x10000) >> 10)));
        out.push_back(static_cast<char16_t>(0xDC00 + ((point - 0x10000) & 0x3FF)));
    }
}

/// What a lead byte announces: its own bits, the bytes that follow it, and the smallest code point that may be
/// written at that length. `follow` 0 marks a byte that leads nothing.
struct Lead {
    char32_t bits;
    std::size_t follow;
    char32_t least;
};

constexpr Lead leadOf(unsigned char byte) noexcept {
    if (byte >= 0xC2 && byte <= 0xDF)
        return {byte & 0x1FU, 1, 0x80};
    if (byte >= 0xE0 && byte <= 0xEF)
        return {byte & 0x0FU, 2, 0x800};
    if (byte >= 0xF0 && byte <= 0xF4)
        return {byte & 0x07U, 3, 0x10000};
    return {0, 0, 0};
}

} // namespace

std::string toUtf8(std::u16string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t point = text[i];
        if (isHighSurrogate(point) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            point = 0x10000 + ((point - 0xD800) << 10) + (static_cast<char32_t>(text[i + 1]) - 0xDC00);
            ++i;
        } else if (isHighSurrogate(point) || isLowSurrogate(point)) {
            point = replacement;
        }
        appendUtf8(out, point);
    }
    return out;
}

std::u16string fromUtf8(std::string_view utf8) {
    const auto at = [utf8](std::size_t i) { return static_cast<unsigned char>(utf8[i]); };
    std::u16string out;
    out.reserve(utf8.size());
    std::size_t i = 0;
    while (i < utf8.size()) {
        if (at(i) < 0x80) {
            out.push_back(at(i++));
            continue;
        }
        const Lead lead = leadOf(at(i));
        char32_t point = lead.bits;
        std::size_t read = 0;
        while (read < lead.follow && i + 1 + read < utf8.size() && (at(i + 1 + read) & 0xC0) == 0x80)
            point = (point << 6) | (at(i + 1 + read++) & 0x3FU);
        const bool whole = lead.follow != 0 && read == lead.follow && point >= lead.least && point <= 0x10FFFF &&
                           !isHighSurrogate(point) && !isLowSurrogate(point);
        appendUtf16(out, whole ? point : replacement);
        i += whole ? 1 + lead.follow : 1;
    }
    return out;
}

} // namespace orv::automation
