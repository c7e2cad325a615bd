#include "sqlproof/PlainText.h"

#include <algorithm>

namespace orv::sqlproof {

namespace {

/// Texts of the sample and of the checks hold ASCII, full-width forms and ideographs: more is not folded here.
char16_t folded(char16_t unit) {
    if (unit == u'\u3000')
        return u' ';
    if (unit >= u'！' && unit <= u'～')
        unit = static_cast<char16_t>(unit - u'！' + u'!');
    return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + 32) : unit;
}

std::u16string foldedText(std::u16string_view text) {
    std::u16string out(text);
    std::ranges::transform(out, out.begin(), folded);
    return out;
}

int rank(char16_t unit) {
    if (unit == u' ')
        return 0;
    if (unit >= u'0' && unit <= u'9')
        return 2;
    if (unit >= u'a' && unit <= u'z')
        return 3;
    const bool isMark = unit < 0x80 || (unit >= 0x2000 && unit <= 0x2BFF) || (unit >= 0x3001 && unit <= 0x303F);
    return isMark ? 1 : 4;
}

int order(char16_t a, char16_t b) {
    return rank(a) != rank(b) ? rank(a) - rank(b) : a - b;
}

bool isWordMark(char16_t unit) {
    return unit == u'-' || unit == u'\'';
}

int orderOfTexts(const std::u16string& a, const std::u16string& b) {
    const std::size_t shared = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < shared; ++i)
        if (const int found = order(a[i], b[i]); found != 0)
            return found;
    return static_cast<int>(a.size()) - static_cast<int>(b.size());
}

/// The end of the set that `pattern` begins with; npos when it is not closed.
std::size_t endOfSet(std::u16string_view pattern) {
    return pattern.find(u']', pattern.starts_with(u"[^") ? 2 : 1);
}

bool isInSet(std::u16string_view members, char16_t unit) {
    const bool negated = members.starts_with(u'^');
    members.remove_prefix(negated ? 1 : 0);
    bool found = false;
    for (std::size_t i = 0; i < members.size(); ++i) {
        const bool isRange = i + 2 < members.size() && members[i + 1] == u'-';
        const char16_t last = members[isRange ? i + 2 : i];
        found = found || (order(members[i], unit) <= 0 && order(unit, last) <= 0);
        i += isRange ? 2 : 0;
    }
    return found != negated;
}

bool matches(std::u16string_view text, std::u16string_view pattern) {
    if (pattern.empty())
        return text.empty();
    if (pattern[0] == u'%')
        return matches(text, pattern.substr(1)) || (!text.empty() && matches(text.substr(1), pattern));
    if (text.empty())
        return false;
    if (pattern[0] != u'[')
        return (pattern[0] == u'_' || pattern[0] == text[0]) && matches(text.substr(1), pattern.substr(1));
    const std::size_t end = endOfSet(pattern);
    return end != std::u16string_view::npos && isInSet(pattern.substr(1, end - 1), text[0]) &&
           matches(text.substr(1), pattern.substr(end + 1));
}

} // namespace

int compareTexts(std::u16string_view a, std::u16string_view b) {
    std::u16string first = foldedText(a);
    std::u16string second = foldedText(b);
    for (std::u16string* text : {&first, &second})
        text->resize(text->find_last_not_of(u' ') + 1);
    std::u16string firstWords = first;
    std::u16string secondWords = second;
    std::erase_if(firstWords, isWordMark);
    std::erase_if(secondWords, isWordMark);
    if (const int found = orderOfTexts(firstWords, secondWords); found != 0)
        return found;
    // The text in which the mark comes first is the greater one.
    const auto [left, right] = std::ranges::mismatch(first, second);
    if (left == first.end() || right == second.end())
        return static_cast<int>(first.size()) - static_cast<int>(second.size());
    if (isWordMark(*left) != isWordMark(*right))
        return isWordMark(*left) ? 1 : -1;
    return *left - *right;
}

bool isLike(std::u16string_view text, std::u16string_view pattern) {
    return matches(foldedText(text), foldedText(pattern));
}

} // namespace orv::sqlproof
