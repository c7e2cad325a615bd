#pragma once

#include "erp/db/Database.h"

#include <string>
#include <string_view>

namespace orv::erp::test {

/// A database with the one table t of seven rows that the tests of the T-SQL face ask:
///
///   FID  FText      FNote  FQty        FNum        FDate                FFlag
///   1    abc        x      7.50        5           2024-02-29 00:00:00  1
///   2    ABC_       NULL   -0.25       0           2024-02-29 23:59:59  0      (_ is a blank)
///   3    O'Brien    ''     NULL        NULL        NULL                 0
///   4    ''         x      12.50       7           2024-03-01 00:00:00  1
///   5    NULL       co-op  100.00      -3          1900-01-01 00:00:00  NULL
///   6    100%       coop   0.00        5           2024-01-31 12:00:00  0
///   7    a_b[1]     7      1000000.01  2147483647  2023-12-31 23:59:59  1
Database smallDatabase();

/// The FID of the rows that a condition selects, in their order: "1 2 7"; the failure's text instead of them when the
/// statement fails.
std::string idsWhere(const Database& database, std::u16string_view condition);

/// The values of the first row of a query, joined with " | "; NULL as "NULL".
std::string firstRow(const Database& database, std::u16string_view tsql);

/// The number and description of the failure of a SELECT; "" when it does not fail.
struct Failure {
    std::int32_t number = 0;
    std::string description;
};
Failure failureOf(const Database& database, std::u16string_view tsql);

} // namespace orv::erp::test
