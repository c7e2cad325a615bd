#pragma once

#include "automation/AutomationError.h"

#include <cstdint>
#include <string>

namespace orv::erp {

/// Result codes of database failures, as an OLE DB provider numbers them.
namespace sqlError {
inline constexpr std::int32_t conversion = static_cast<std::int32_t>(0x80040E07);
inline constexpr std::int32_t command = static_cast<std::int32_t>(0x80040E14); ///< syntax, names, what is refused
inline constexpr std::int32_t constraint = static_cast<std::int32_t>(0x80040E2F);
inline constexpr std::int32_t noTable = static_cast<std::int32_t>(0x80040E37);
inline constexpr std::int32_t general = static_cast<std::int32_t>(0x80004005); ///< the database itself failed
} // namespace sqlError

inline constexpr const char16_t* sqlErrorSource = u"ORVErp.Database";

inline automation::AutomationError makeSqlError(std::int32_t number, std::u16string description) {
    return {number, sqlErrorSource, std::move(description)};
}

} // namespace orv::erp
