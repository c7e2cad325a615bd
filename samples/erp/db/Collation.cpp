#include "erp/db/Collation.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace orv::erp {

namespace {

constexpr char32_t endOfText = 0xFFFFFFFF;

class Decoder {
  public:
    explicit Decoder(std::string_view utf8) : rest_(utf8) {}

    /// The next code point, `endOfText` behind the last; a malformed byte reads as U+FFFD.
    char32_t next() {
        if (rest_.empty())
            return endOfText;
        const auto lead = static_cast<unsigned char>(rest_.front());
        const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 0;
        if (length == 0 || length > rest_.size()) {
            rest_.remove_prefix(1);
            return 0xFFFD;
        }
        char32_t point = length == 1 ? lead : lead & (0xFFU >> (length + 1));
        for (std::size_t i = 1; i < length; ++i)
            point = (point << 6) | (static_cast<unsigned char>(rest_[i]) & 0x3FU);
        rest_.remove_prefix(length);
        return point;
    }

  private:
    std::string_view rest_;
};

constexpr bool within(char32_t c, char32_t low, char32_t high) {
    return c >= low && c <= high;
}

/// The character that stands for all those that the collation does not tell from it.
char32_t fold(char32_t c) {
    if (c == 0x3000) // ideographic blank
        return U' ';
    if (within(c, 0xFF01, 0xFF5E)) // full-width forms of ASCII
        c -= 0xFEE0;
    if (within(c, U'A', U'Z'))
        return c + 32;
    if (c < 0x80)
        return c;
    if (within(c, 0xC0, 0xDE) && c != 0xD7) // Latin-1
        return c + 32;
    if (within(c, 0x100, 0x137) || within(c, 0x14A, 0x177)) // Latin Extended-A, pairs of even and odd
        return c | 1U;
    if (within(c, 0x391, 0x3A9)) // Greek
        return c + 32;
    if (within(c, 0x410, 0x42F)) // Cyrillic
        return c + 32;
    if (within(c, 0x400, 0x40F))
        return c + 80;
    if (within(c, 0x30A1, 0x30F6)) // Katakana to Hiragana
        return c - 0x60;
    return c;
}

constexpr bool isSkipped(char32_t c) {
    return c == U'-' || c == U'\'';
}

/// Sort key of a folded character: its class above its code point.
std::uint64_t weight(char32_t c) {
    constexpr std::uint64_t step = std::uint64_t{1} << 32;
    if (c == U' ')
        return 0;
    if (within(c, U'0', U'9'))
        return 2 * step + c;
    if (within(c, U'a', U'z'))
        return 3 * step + c;
    if (c < 0x80 || within(c, 0x2000, 0x2BFF) || within(c, 0x3001, 0x303F))
        return step + c;
    return 4 * step + c;
}

/// Folded characters of a text up to its last one that is no blank.
class Reader {
  public:
    explicit Reader(std::string_view utf8) : decoder_(utf8) {}

    char32_t next() {
        if (pendingBlanks_ > 0) {
            --pendingBlanks_;
            return U' ';
        }
        if (held_ != endOfText)
            return std::exchange(held_, endOfText);
        const char32_t c = nextFolded();
        if (c != U' ')
            return c;
        // Only what follows tells whether these blanks are inside of the text.
        std::size_t blanks = 1;
        char32_t after = nextFolded();
        for (; after == U' '; after = nextFolded())
            ++blanks;
        if (after == endOfText)
            return endOfText;
        pendingBlanks_ = blanks - 1;
        held_ = after;
        return U' ';
    }

    char32_t nextCounted() {
        char32_t c = next();
        while (isSkipped(c))
            c = next();
        return c;
    }

  private:
    char32_t nextFolded() {
        const char32_t c = decoder_.next();
        return c == endOfText ? c : fold(c);
    }

    Decoder decoder_;
    std::size_t pendingBlanks_ = 0;
    char32_t held_ = endOfText;
};

std::vector<char32_t> folded(std::string_view utf8) {
    std::vector<char32_t> points;
    points.reserve(utf8.size());
    Decoder decoder(utf8);
    for (char32_t c = decoder.next(); c != endOfText; c = decoder.next())
        points.push_back(fold(c));
    return points;
}

using Points = std::vector<char32_t>;

/// One element of a pattern that stands for one character: the position behind it, or nothing when the set is not
/// closed.
struct Element {
    bool matches = false;
    std::size_t end = 0;
};

Element matchElement(const Points& pattern, std::size_t at, char32_t c) {
    if (pattern[at] != U'[')
        return {pattern[at] == U'_' || weight(pattern[at]) == weight(c), at + 1};
    std::size_t i = at + 1;
    const bool negated = i < pattern.size() && pattern[i] == U'^';
    if (negated)
        ++i;
    bool found = false;
    while (i < pattern.size() && pattern[i] != U']') {
        const bool range = i + 2 < pattern.size() && pattern[i + 1] == U'-' && pattern[i + 2] != U']';
        const char32_t low = pattern[i];
        const char32_t high = range ? pattern[i + 2] : low;
        found = found || (weight(low) <= weight(c) && weight(c) <= weight(high));
        i += range ? 3 : 1;
    }
    if (i == pattern.size())
        return {false, i};
    return {found != negated, i + 1};
}

} // namespace

std::weak_ordering compareText(std::string_view a, std::string_view b) {
    if (a == b)
        return std::weak_ordering::equivalent;
    Reader left(a);
    Reader right(b);
    for (;;) {
        const char32_t l = left.nextCounted();
        const char32_t r = right.nextCounted();
        if (l == endOfText || r == endOfText) {
            if (l == r)
                break;
            return l == endOfText ? std::weak_ordering::less : std::weak_ordering::greater;
        }
        if (l != r)
            return weight(l) <=> weight(r);
    }
    Reader allLeft(a);
    Reader allRight(b);
    for (;;) {
        const char32_t l = allLeft.next();
        const char32_t r = allRight.next();
        if (l == r) {
            if (l == endOfText)
                return std::weak_ordering::equivalent;
            continue;
        }
        if (isSkipped(l) != isSkipped(r))
            return isSkipped(l) ? std::weak_ordering::greater : std::weak_ordering::less;
        return l <=> r;
    }
}

bool matchesLike(std::string_view text, std::string_view pattern) {
    const Points subject = folded(text);
    const Points wanted = folded(pattern);
    std::size_t at = 0;
    std::size_t in = 0;
    // Where to go on when the current attempt fails: one character more for the last "%".
    std::size_t retryAt = 0;
    std::size_t retryIn = wanted.size() + 1;
    for (;;) {
        if (in < wanted.size() && wanted[in] == U'%') {
            retryIn = ++in;
            retryAt = at;
            continue;
        }
        if (at == subject.size() && in == wanted.size())
            return true;
        if (at < subject.size() && in < wanted.size()) {
            if (const Element element = matchElement(wanted, in, subject[at]); element.matches) {
                ++at;
                in = element.end;
                continue;
            }
        }
        if (retryIn > wanted.size() || retryAt >= subject.size())
            return false;
        at = ++retryAt;
        in = retryIn;
    }
}

} // namespace orv::erp
