#pragma once

#include "automation/Views.h"
#include "erp/host/HostDescription.h"

// The tables of a data service, made anew of a class type's description.
namespace orv::erp {

/// Select list: one item a field with "Fkey", "FVisible", "Decimal", "FMustGet" (as the field has them) and "HaveSel"
/// (False), unless the class type brings a select list of its own.
automation::Collection makeSelectList(const ClassTypeDescription& type, const automation::Dictionary& fieldDefaults);

/// Table information: field records by key, "PageCount", and per page "Page1", "Page2", ...: a collection of the
/// keys of the fields of that page. Further entries of the class type come last and win.
automation::Dictionary makeTableInfo(const ClassTypeDescription& type, const automation::Dictionary& fieldDefaults);

/// The pages.
automation::Collection makeClassTypeEntry(const ClassTypeDescription& type);

} // namespace orv::erp
