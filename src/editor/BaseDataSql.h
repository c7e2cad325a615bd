#pragma once

#include "automation/Views.h"

#include <string>
#include <string_view>

namespace orv::editor {

/// The statement that fetches the display text of one stored base-data reference, for a display field that lies in a
/// further table; "" for any other. Narrows `rsAll` to the catalogue row of the display field and leaves it so.
/// `FDSPName` receives the display column's name when a statement is made.
std::u16string GetTakeBaseDataSQL(const automation::Dictionary& dct, const automation::Recordset& rsAll,
                                  std::u16string_view sValue, std::u16string& FDSPName);

/// The criterion that selects the catalogue row of a display field within a class type of base data.
std::u16string baseFieldCriterion(const automation::Dictionary& field);

} // namespace orv::editor
