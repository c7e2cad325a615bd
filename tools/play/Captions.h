#pragma once

#include "play/Json.h"

#include <string>
#include <string_view>
#include <vector>

namespace orv::play {

/// What the user sees of an item: without the hidden key behind 255 characters, and without blanks around it.
std::u16string captionOf(std::u16string_view item);

/// An item in the output: the caption, followed by the hidden key in angle brackets if there is one ("日期 <2>").
std::string itemText(std::u16string_view item);

/// The position (from 0) of the item that a scenario names by caption or by position. ScenarioError, which names
/// `what`, when there is none or when the caption fits several.
int findItem(const std::vector<std::u16string>& items, const Json& choice, const std::string& what);

} // namespace orv::play
