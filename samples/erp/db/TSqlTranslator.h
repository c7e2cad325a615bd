#pragma once

#include "erp/db/Catalogue.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orv::erp {

/// A column of a query's result.
struct ResultColumn {
    std::string name; ///< "" for an expression without an alias
    SqlType type;
};

/// One T-SQL statement in SQLite's dialect.
struct Translation {
    std::string sql;
    bool isQuery = false;
    std::vector<ResultColumn> columns; ///< of a query
};

/// Translates one statement. Names are resolved and types are checked against the catalogue, because the server's
/// comparison of two values depends on the declared types of both. What is accepted: docs/sample-erp-sql.md. Anything
/// else raises AutomationError. `parameterTypes` are those of the "?" in order.
Translation translate(std::u16string_view tsql, const Catalogue& catalogue,
                      std::span<const SqlType> parameterTypes = {});

} // namespace orv::erp
