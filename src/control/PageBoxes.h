#pragma once

#include "control/FilterState.h"

#include <string_view>

namespace orv::control {

/// Makes a check box for each page of the class type, the header's checked and fixed, and wires their clicks.
void rebuildPageBoxes(FilterState& state);

/// Takes a page list as the selection and shows it in the boxes.
void selectPages(FilterState& state, std::u16string_view pageList);

/// The page list that the boxes show: "," then for each checked box its number, "*" when it is disabled, and ",".
std::u16string pageListOfBoxes(const FilterState& state);

/// Pages of small class types are not the user's to choose.
void fixPageBoxes(FilterState& state);

/// A page box was clicked, by the user or from code.
void pageClicked(FilterState& state, int index);

/// The numbers of the pages that may take part: those that are checked or exclude no other page (",1,2,4,").
std::u16string enabledPages(FilterState& state);

} // namespace orv::control
