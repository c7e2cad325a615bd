#pragma once

#include "erp/db/SqlType.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orv::erp {

/// ASCII-insensitive equality of two names.
bool sameName(std::string_view a, std::string_view b) noexcept;

/// A type as a column definition or CONVERT writes it ("decimal(18,2)"), nothing for a type that the sample does not
/// know. Known: bit, int, smallint, tinyint, decimal, numeric, datetime, char, nchar, varchar, nvarchar.
std::optional<SqlType> makeType(std::string_view name, std::optional<int> first, std::optional<int> second);
std::optional<SqlType> parseType(std::string_view declared);

struct ColumnInfo {
    std::string name;
    SqlType type;
};

struct TableInfo {
    std::string name;
    std::vector<ColumnInfo> columns;

    const ColumnInfo* find(std::string_view column) const noexcept;
};

/// The tables of a database with their column types.
class Catalogue {
  public:
    void add(TableInfo table) { tables_.push_back(std::move(table)); }
    const TableInfo* find(std::string_view table) const noexcept;
    const std::vector<TableInfo>& tables() const noexcept { return tables_; }

  private:
    std::vector<TableInfo> tables_;
};

} // namespace orv::erp
