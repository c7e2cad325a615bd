#include "play/Captions.h"

#include "automation/Text.h"
#include "play/ScenarioError.h"
#include "play/StepReader.h"

namespace orv::play {

namespace {

constexpr std::size_t captionWidth = 255; // UTF-16 units before the hidden key

std::u16string trimmed(std::u16string_view text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string_view::npos)
        return {};
    return std::u16string(text.substr(first, text.find_last_not_of(u' ') - first + 1));
}

} // namespace

std::u16string captionOf(std::u16string_view item) {
    return trimmed(item.substr(0, captionWidth));
}

std::string itemText(std::u16string_view item) {
    std::string text = automation::toUtf8(item.size() > captionWidth ? captionOf(item) : item);
    if (item.size() > captionWidth)
        text += " <" + automation::toUtf8(trimmed(item.substr(captionWidth))) + ">";
    return text;
}

int findItem(const std::vector<std::u16string>& items, const Json& choice, const std::string& what) {
    if (choice.is_number_integer()) {
        const auto position = choice.get<std::int64_t>();
        if (position < 0 || position >= static_cast<std::int64_t>(items.size()))
            throw ScenarioError(what + " has no item " + choice.dump() + ": its " + std::to_string(items.size()) +
                                " items count from 0");
        return static_cast<int>(position);
    }
    if (!choice.is_string())
        throw ScenarioError(what + ": an item is named by its caption or its position");
    const std::u16string caption = automation::fromUtf8(choice.get_ref<const std::string&>());
    int found = -1;
    std::vector<std::string> captions;
    for (std::size_t i = 0; i < items.size(); ++i) {
        captions.push_back(automation::toUtf8(captionOf(items[i])));
        if (captionOf(items[i]) != captionOf(caption))
            continue;
        if (found >= 0)
            throw ScenarioError(what + " has more than one item " + choice.dump() + ": name it by its position");
        found = static_cast<int>(i);
    }
    if (found < 0)
        throw ScenarioError(what + " has no item " + choice.dump() + " (there are " + listed(captions) + ")");
    return found;
}

} // namespace orv::play
