#pragma once

#include <algorithm>
#include <string>

namespace orv::erp {

/// The kinds of SQL types that the sample knows, in the order of the server's type precedence: when two kinds meet in
/// a comparison, the lower one is converted to the higher one.
enum class SqlKind { null, text, bit, integer, decimal, datetime };

/// The type of a column or of an expression.
struct SqlType {
    SqlKind kind = SqlKind::null;
    int length = 0;     ///< of a text, in characters; 0: not limited
    bool fixed = false; ///< a char(n), filled with blanks to its length
    int scale = 0;      ///< decimals of a decimal

    bool is(SqlKind other) const noexcept { return kind == other; }
    bool isNumber() const noexcept {
        return kind == SqlKind::bit || kind == SqlKind::integer || kind == SqlKind::decimal;
    }
};

/// The type to which both sides of a comparison are converted.
inline SqlType commonType(const SqlType& a, const SqlType& b) {
    if (a.kind != b.kind)
        return a.kind > b.kind ? a : b;
    SqlType common = a;
    common.scale = std::max(a.scale, b.scale);
    common.length = a.length == 0 || b.length == 0 ? 0 : std::max(a.length, b.length);
    common.fixed = false;
    return common;
}

} // namespace orv::erp
