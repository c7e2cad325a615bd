#pragma once

#include "erp/db/Database.h"

#include <string>
#include <vector>

namespace orv::erp {

/// A table of a described host.
struct DescribedTable {
    std::u16string name;
    /// Declared types by column name ("datetime", "decimal(18,2)"); the type of any other column follows from its
    /// values, see `columnType`.
    std::vector<std::pair<std::u16string, std::u16string>> types;
    ResultSet content;
};

/// The type of a column: as declared, else int of whole numbers, bit of Booleans, decimal(18,6) of other numbers,
/// datetime where every text is "yyyy-mm-dd" with or without " hh:mm:ss", nvarchar(4000) of other texts and of nothing.
/// Values of several kinds make an nvarchar(4000), whole and other numbers a decimal(18,6).
std::u16string columnType(const DescribedTable& table, std::size_t column);

/// A database in memory with the tables, and with those of the sample ERP, empty, that have none of their names.
Database makeDatabase(const std::vector<DescribedTable>& tables);

} // namespace orv::erp
