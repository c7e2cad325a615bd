#include "support/PairList.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/NumberText.h"

#include <cstddef>

namespace orv::support {

namespace {
/// Position of the first `key` + "=".
std::size_t findKey(std::u16string_view text, std::u16string_view key) noexcept {
    std::size_t at = text.find(key);
    while (at != std::u16string_view::npos && text.substr(at + key.size(), 1) != u"=")
        at = text.find(key, at + 1);
    return at;
}

/// The value of the item that a key of that length begins at `at`.
std::u16string_view valueAt(std::u16string_view text, std::size_t at, std::size_t keyLength,
                            std::u16string_view separator) noexcept {
    const std::u16string_view item = text.substr(at, text.find(separator, at) - at);
    // A key that holds the separator itself is cut with its item: nothing is left for a value.
    const std::size_t head = keyLength + 1;
    return item.size() > head ? item.substr(head) : std::u16string_view();
}
} // namespace

std::u16string_view lookupPair(std::u16string_view text, std::u16string_view key, std::u16string_view separator) {
    const std::size_t at = findKey(text, key);
    return at == std::u16string_view::npos ? std::u16string_view() : valueAt(text, at, key.size(), separator);
}

PairIndex::PairIndex(std::u16string_view text, std::u16string_view separator) : text_(text), separator_(separator) {
    for (std::size_t sign = text.find(u'='); sign != std::u16string_view::npos; sign = text.find(u'=', sign + 1))
        signs_.push_back(sign);
}

std::u16string_view PairIndex::value(std::u16string_view key) {
    // A key is found where it stands before a "=", within a longer key, too: so runs of the key's length count, not
    // whole keys.
    const auto [known, isNew] = heads_.try_emplace(key.size());
    Heads& heads = known->second;
    if (isNew) {
        heads.reserve(signs_.size());
        for (const std::size_t sign : signs_)
            if (sign >= key.size())
                heads.try_emplace(text_.substr(sign - key.size(), key.size()), sign - key.size());
    }
    const auto found = heads.find(key);
    return found == heads.end() ? std::u16string_view() : valueAt(text_, found->second, key.size(), separator_);
}

void appendPair(std::u16string& list, std::u16string_view key, std::u16string_view value) {
    list.append(key).append(u"=").append(value).append(schemeSeparator);
}

double storedNumber(std::u16string_view text) {
    try {
        return automation::Val(text);
    } catch (const automation::AutomationError&) {
        return 0;
    }
}

int storedPosition(std::u16string_view text) {
    try {
        return automation::roundToInt32(automation::Val(text));
    } catch (const automation::AutomationError&) {
        return -1;
    }
}

void appendPair(std::u16string& list, std::u16string_view key, std::int32_t value) {
    list.append(key).append(u"=");
    automation::appendInteger(list, value);
    list.append(schemeSeparator);
}

} // namespace orv::support
