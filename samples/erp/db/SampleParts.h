#pragma once

#include "erp/db/Statement.h"

#include <array>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

// Tools of the sample data's generators.
namespace orv::erp {

/// The sample's number generator (SplitMix64): small, and the same on every platform.
class Random {
  public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t z = state_;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9U;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBU;
        return z ^ (z >> 31);
    }
    /// 0 to `count` - 1.
    int below(int count) { return static_cast<int>(next() % static_cast<std::uint64_t>(count)); }
    int between(int low, int high) { return low + below(high - low + 1); }
    bool chance(int percent) { return below(100) < percent; }
    template <class T, std::size_t size>
    const T& pick(const std::array<T, size>& items) {
        return items[static_cast<std::size_t>(below(static_cast<int>(size)))];
    }

  private:
    std::uint64_t state_;
};

/// An exact decimal, `units` / 10^`scale`. It reaches the database as text, so that the processor's floating-point
/// arithmetic has no say in the data.
struct Fixed {
    std::int64_t units = 0;
    int scale = 2;

    std::string text() const;
};

/// a * b, rounded half away from zero to `scale` decimals.
Fixed multiplied(Fixed a, Fixed b, int scale);

/// One value of a row of sample data, as it goes into the database.
class Cell {
  public:
    Cell(std::nullopt_t) {}
    Cell(int number) : content_(std::int64_t{number}) {}
    Cell(bool flag) : content_(std::int64_t{flag ? 1 : 0}) {}
    Cell(const char* text) : content_(std::string(text)) {}
    Cell(std::string text) : content_(std::move(text)) {}
    Cell(Moment moment) : content_(storedText(moment)) {}
    Cell(Fixed number) : content_(number.text()) {}
    template <class T>
    Cell(const std::optional<T>& value) {
        if (value)
            *this = Cell(*value);
    }

    void bindTo(Statement& statement, int parameter) const;

  private:
    std::variant<std::monostate, std::int64_t, std::string> content_;
};

/// Fills one table, row by row.
class Rows {
  public:
    Rows(sqlite3* connection, std::string_view table, int columns);

    /// All columns in the order of the schema. A braced list, because its elements are evaluated in their order and
    /// many of them draw a random number.
    void add(std::initializer_list<Cell> row);

  private:
    Statement statement_;
    int columns_;
};

/// The day of the sample's fixed "now", 2024-02-29, as a moment at midnight; the bills lie around it.
Moment sampleToday();
Moment addDays(Moment moment, int days);
Moment addSeconds(Moment moment, int seconds);
int yearOf(Moment moment);
int monthOf(Moment moment);
/// "SK000017"
std::string billNumber(std::string_view prefix, int number);

/// How many rows of each kind of base data there are; their FItemID run from 1.
namespace baseCount {
inline constexpr int users = 4, currencies = 3, settleTypes = 5, departments = 8, employees = 40, warehouses = 4;
inline constexpr int customers = 60, suppliers = 30, accounts = 24, units = 8, unitGroups = 3, goods = 120;
inline constexpr int regions = 6, transports = 4, brands = 6, wageReasons = 5; // auxiliary data
} // namespace baseCount

/// First FItemID of each type of auxiliary data.
namespace auxStart {
inline constexpr int regions = 1, transports = regions + baseCount::regions,
                     brands = transports + baseCount::transports, wageReasons = brands + baseCount::brands;
} // namespace auxStart

void fillSystemTables(sqlite3* connection);
void fillBaseData(sqlite3* connection, Random& random);
void fillReceiptsAndPayments(sqlite3* connection, Random& random);
void fillDeliveries(sqlite3* connection, Random& random);
void fillWages(sqlite3* connection, Random& random);
void fillVouchers(sqlite3* connection, Random& random);

} // namespace orv::erp
