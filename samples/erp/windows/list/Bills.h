#pragma once

#include "erp/windows/list/ListColumn.h"
#include "ole/Automation.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace orv::erp {

/// What the user confirmed in the filter dialog: the texts and records of the control.
struct FilterResult {
    long classType = 0;
    std::wstring where;
    std::wstring headSort;
    std::wstring entrySort;
    ole::Object header;           ///< `m_Header`
    bool showsAllHeaders = false; ///< the scheme's mark that every entry's row shows the fields of its bill
};

/// The columns of `m_Header`, hidden ones included.
std::vector<ListColumn> columnsOf(const ole::Object& header);

/// The bills of a list: the host's recordset, of which only the rows that are looked at are read.
class Bills {
  public:
    /// A cell of a shown column.
    struct Cell {
        std::wstring text;
        bool isRepeated = false; ///< of a bill or an entry that the row above shows already
    };
    using Row = std::vector<Cell>;

    Bills() = default;
    /// Has the host run the list. Raises ole::Failure.
    Bills(const ole::Object& host, const FilterResult& filter);

    const std::vector<ListColumn>& shown() const noexcept { return shown_; }
    int rows() const noexcept { return rows_; }
    int bills() const noexcept { return bills_; }
    const std::wstring& sql() const noexcept { return sql_; }
    long milliseconds() const noexcept { return milliseconds_; }
    /// Texts below the columns: sums, "" where none is asked for.
    const std::vector<std::wstring>& totals() const noexcept { return totals_; }
    const Row& row(int index) const;

  private:
    Row read(int index) const;
    /// The recordset's column of a key; -1 when it has none.
    long placeOf(const std::wstring& key) const;

    ole::Object records_;
    std::vector<ListColumn> columns_; ///< of the recordset, in its order
    std::vector<std::size_t> places_; ///< of the shown ones among them
    std::vector<ListColumn> shown_;
    std::vector<long> pages_; ///< the pages that the recordset marks the beginning of, in its order
    bool showsAllHeaders_ = false;
    int rows_ = 0;
    int bills_ = 0;
    long milliseconds_ = 0;
    std::wstring sql_;
    std::vector<std::wstring> totals_;
    mutable std::unordered_map<int, Row> read_;
};

} // namespace orv::erp
