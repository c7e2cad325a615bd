#pragma once

#include "erp/db/SqlType.h"

#include <optional>
#include <string>
#include <string_view>

// SQLite expressions for the conversions that the server makes; the tsql_ functions are those of SqlFunctions.h.
namespace orv::erp {

/// An expression in SQLite's dialect and what the server takes it for.
struct Typed {
    std::string sql;
    SqlType type;
    std::string name; ///< the column's name as the schema spells it, "" for anything but a plain column
};

/// The name under which `compareText` is registered.
inline constexpr std::string_view collationName = "tsql_ci_as";

/// `value` as the server converts it by itself: in comparisons, ISNULL, assignments. Raises AutomationError where the
/// server has no such conversion.
std::string convertImplicit(const Typed& value, const SqlType& target);

/// CONVERT(target, value, style) and CAST. Raises AutomationError for an unknown style.
std::string convertExplicit(const Typed& value, const SqlType& target, std::optional<int> style);

/// `value` as it is written into a column of type `target`: a longer text is an error, decimals are rounded.
std::string convertAssigned(const Typed& value, const SqlType& target);

/// The expression with the collation when it is a text.
std::string collated(const std::string& sql, const SqlType& type);

std::string quoteText(std::string_view content);
std::string quoteName(std::string_view name);

} // namespace orv::erp
