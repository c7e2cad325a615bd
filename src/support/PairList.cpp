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
} // namespace

std::u16string_view lookupPair(std::u16string_view text, std::u16string_view key, std::u16string_view separator) {
    const std::size_t at = findKey(text, key);
    if (at == std::u16string_view::npos)
        return {};
    const std::u16string_view item = text.substr(at, text.find(separator, at) - at);
    // A key that holds the separator itself is cut with its item: nothing is left for a value.
    const std::size_t head = key.size() + 1;
    return item.size() > head ? item.substr(head) : std::u16string_view();
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
