#pragma once

#include "control/FilterState.h"

namespace orv::control {

/// Writes the settings of the grids and boxes into a scheme entry record, keys in their fixed order.
void captureSchemeEntry(FilterState& state, const automation::Dictionary& entry);

/// Lays a scheme entry record on the grids and boxes: pages first, since they decide which fields the lists offer.
/// Entries that the record lacks have their defaults. Raises what fails.
void applySchemeEntry(FilterState& state, const automation::Dictionary& entry);

/// The texts of the three grids, as a page change captures and lays them back.
struct GridSettings {
    std::u16string Relation;
    std::u16string OrderBy;
    sortcols::ColumnLists columns;
};
GridSettings captureGrids(FilterState& state);
/// Clears the grids and lays the settings on them, for the fields that are offered now.
void applyGrids(FilterState& state, const GridSettings& settings,
                editor::MissingField missing = editor::MissingField::leavesLineEmpty);

} // namespace orv::control
