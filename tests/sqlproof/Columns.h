#pragma once

#include "erp/host/ErpHost.h"
#include "sqlproof/PlainCondition.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orv::sqlproof {

/// Some columns of a class type's list and their raw values, a row for each row that the list has without conditions.
struct Table {
    std::vector<Storage> storages;
    std::vector<std::vector<Cell>> rows;
};

/// Reads columns by their SQL names. The list's own joins are in force, its conditions are not.
Table readColumns(erp::ErpHost& host, std::int32_t classType, const std::vector<std::u16string>& columns);

} // namespace orv::sqlproof
