#pragma once

#include "automation/ObjectFactory.h"
#include "automation/Views.h"
#include "metadata/FieldCatalogue.h"
#include "metadata/PageSelection.h"

#include <cstdint>
#include <string>
#include <vector>

namespace orv::metadata {

/// One row of the column display grid, as the header build reads it.
struct ColumnSetting {
    std::u16string key;
    bool shown = false;
    double width = 0; ///< as the grid states it (millimetres)
};

/// What the header build works on.
struct HeaderBuildInput {
    FieldCatalogue& catalogue;
    const std::vector<ColumnSetting>& columns; ///< grid rows in order
    const PageSelection& pages;
    std::int32_t classTypeId = 0;
    automation::Dictionary allKeys; ///< must-get keys are entered here with the value 3
    automation::ObjectFactory& factory;
};

/// Appends the header column records to `header`, in column order: first the fields that must always be fetched, then
/// the shown rows of the column display grid. Without grid rows nothing is added, must-get fields included.
/// A field that the table information lacks ends the build with its error; the columns added so far stay.
void buildHeader(const HeaderBuildInput& input, const automation::Collection& header);

} // namespace orv::metadata
