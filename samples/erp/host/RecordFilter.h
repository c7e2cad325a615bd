#pragma once

#include "automation/Value.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orv::erp {

/// The criterion of a recordset's Filter: comparisons joined by AND and OR (AND binds tighter), brackets allowed.
///
/// A comparison is a column, one of = <> < <= > >= LIKE, and a value: 'text' (a quote in it doubled), a number, a
/// #date#, True, False or Null. Texts compare ignoring letter case; LIKE knows "*" and "%" at either end. A comparison
/// whose value is left out ("FClassTypeID= AND ...") holds for no record. An empty criterion lets everything through.
/// Anything else raises ADO's error 3001.
class RecordFilter {
  public:
    RecordFilter(std::u16string_view criterion, const std::vector<std::u16string>& columns);

    bool accepts(const std::vector<automation::Value>& row) const;

    enum class Operation : std::uint8_t { equal, notEqual, less, lessOrEqual, greater, greaterOrEqual, like };
    struct Comparison {
        std::size_t column = 0;
        Operation operation = Operation::equal;
        automation::Value value; ///< Missing: holds for no record
    };

  private:
    /// All comparisons of one inner list must hold, of at least one inner list.
    using Alternatives = std::vector<std::vector<Comparison>>;
    friend class RecordFilterParser;
    Alternatives alternatives_;
    bool everything_ = false;
};

} // namespace orv::erp
