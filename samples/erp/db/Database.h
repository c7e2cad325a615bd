#pragma once

#include "automation/Value.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orv::erp {

/// What a query returned, read to the end.
struct ResultSet {
    /// Column names as the statement or the schema spells them; "" for an expression without an alias.
    std::vector<std::u16string> columns;
    /// By the column's declared type: bit as Boolean, int as Int32, decimal as Decimal with the column's scale,
    /// datetime as Date, nvarchar as text; SQL's NULL as Null.
    std::vector<std::vector<automation::Value>> rows;
};

/// The database of the sample ERP: SQLite underneath, T-SQL at the face. A file that is new, or ":memory:", gets the
/// tables and the sample data when it is opened. One thread at a time.
///
/// Failures raise AutomationError with the result codes of `sqlError` (SqlError.h) and the server's wording.
class Database {
  public:
    static constexpr std::string_view inMemory = ":memory:";

    /// Opens `file` (UTF-8 path, or `inMemory`); creates and fills it on first use.
    explicit Database(const std::string& file);
    /// A database in memory with tables of its own, without rows: `statements` are CREATE TABLE statements (UTF-8).
    static Database withSchema(std::span<const std::string_view> statements);
    Database(Database&&) noexcept;
    Database& operator=(Database&&) noexcept;
    ~Database();

    /// Whether opening it has created its tables.
    bool isNew() const noexcept;

    /// Runs one SELECT. `parameters` stand for the statement's "?" in their order.
    ResultSet query(std::u16string_view tsql, std::span<const automation::Value> parameters = {}) const;

    /// Runs one INSERT, UPDATE or DELETE and returns the number of rows that it touched.
    std::int64_t execute(std::u16string_view tsql, std::span<const automation::Value> parameters = {});

    /// Runs a SELECT in SQLite's own dialect, values by their storage class; for checks that must not go through the
    /// translation.
    ResultSet rawQuery(std::string_view sql) const;

    /// The moment that getdate() answers; the sample's fixed "now" (29 February 2024, 10:30:00) until it is set.
    automation::Date now() const;
    void setNow(automation::Date now);

    /// Everything until `commit` takes effect together, or not at all when the transaction goes out of scope before.
    class Transaction {
      public:
        explicit Transaction(Database& database);
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        ~Transaction();
        void commit();

      private:
        Database& database_;
        bool open_ = true;
    };

  private:
    class Connection;
    explicit Database(std::unique_ptr<Connection> connection);
    std::unique_ptr<Connection> connection_;
};

} // namespace orv::erp
