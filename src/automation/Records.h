#pragma once

#include "automation/Views.h"

namespace orv::automation {

/// The control's own dictionary, with the members of the host's: used for records that never leave the control, and
/// for those that do where the host's library is not registered. Keeps the order in which keys were first written;
/// reading an absent key raises error 5, `GetValue(key, default)` gives the default. `Keys` returns a collection.
Dictionary makeDictionary();

/// The control's own collection, with the members of the host's (`Count`, `Item(i)`, `Add`); 1-based, an index out
/// of range raises error 9.
Collection makeCollection();

} // namespace orv::automation
