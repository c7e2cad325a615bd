#pragma once

#include "erp/host/HostDescription.h"
#include "erp/host/ListQuery.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace orv::erp {

/// A column that a list window asks for; what the control's `m_Header` says of it.
struct BillColumn {
    std::u16string key;
    std::u16string expression; ///< SQL of what is shown
    std::int32_t page = 1;
    bool isSummed = false;
    std::u16string caption{};
};

/// The bills of a list window.
struct BillList {
    std::u16string sql;
    /// A column for each asked one, under its key, and "FListNew1", "FListNew2", ... for every page that is shown: True
    /// where the row shows another bill (page 1) or entry of the page than the row above it. There is one row for each
    /// combination of the entries shown; entry tables that only a condition names give no rows of their own.
    ResultSet records;
    std::vector<double> sums; ///< of the asked columns, 0 where none is asked for; each bill or entry counts once
    std::size_t bills = 0;
};

/// Runs the statement. Error 5 when the class type has no list.
BillList runBillList(const Database& database, const ClassTypeDescription& type, std::span<const BillColumn> columns,
                     const ListTexts& texts);

/// The first columns of the header page that a user sees, at most `most`.
std::vector<BillColumn> usualColumns(const ClassTypeDescription& type, std::size_t most);

} // namespace orv::erp
