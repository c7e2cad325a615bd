#pragma once

#include "erp/db/DateText.h"

struct sqlite3;

namespace orv::erp {

/// Registers with `connection` what translated statements call: the collation `tsql_ci_as` and the functions
/// tsql_int, tsql_decimal, tsql_bit, tsql_datetime, tsql_decimal_text, tsql_date_text, tsql_char, tsql_fit, tsql_like
/// and tsql_now (the moment behind `now`, which must outlive the connection). Each gives NULL for NULL; a value that
/// cannot be converted ends the statement with SQLITE_MISMATCH and the server's wording.
void registerSqlFunctions(sqlite3* connection, const Moment* now);

} // namespace orv::erp
