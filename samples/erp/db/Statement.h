#pragma once

#include "automation/Value.h"
#include "erp/db/DateText.h"
#include "erp/db/SqlType.h"

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace orv::erp {

/// Raises the failure of the connection's last call as AutomationError.
[[noreturn]] void raiseSqliteError(sqlite3* connection);

/// A prepared statement of SQLite's own dialect. Parameters and columns count from 1 and 0, as there.
class Statement {
  public:
    Statement(sqlite3* connection, std::string_view sql);

    void bindNull(int parameter);
    void bind(int parameter, std::int64_t number);
    void bind(int parameter, double number);
    void bind(int parameter, std::string_view utf8);
    void bind(int parameter, Moment moment);
    /// Any scalar value: Booleans and whole numbers as integers, amounts as doubles, dates as stored texts.
    void bind(int parameter, const automation::Value& value);

    /// True while there is a row to read.
    bool step();
    /// Ready to run once more; the parameters stay.
    void reset();

    int columnCount() const { return sqlite3_column_count(handle_.get()); }
    std::string columnName(int column) const { return sqlite3_column_name(handle_.get(), column); }
    /// The column as a column of `type` reads; by its storage class when the type is not known.
    automation::Value value(int column, const SqlType& type) const;
    std::string text(int column) const;

  private:
    void check(int result) const;

    struct Finalize {
        void operator()(sqlite3_stmt* handle) const { sqlite3_finalize(handle); }
    };
    sqlite3* connection_;
    std::unique_ptr<sqlite3_stmt, Finalize> handle_;
};

/// What a parameter that holds `value` is taken for. Raises AutomationError for what no database column can hold.
SqlType parameterType(const automation::Value& value);

} // namespace orv::erp
