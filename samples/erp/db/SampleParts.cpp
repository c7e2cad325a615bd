#include "erp/db/SampleParts.h"

#include "erp/db/SampleData.h"

#include <cstdlib>
#include <stdexcept>

namespace orv::erp {

std::string Fixed::text() const {
    std::string digits = std::to_string(std::llabs(units));
    const auto places = static_cast<std::size_t>(scale);
    if (digits.size() <= places)
        digits.insert(0, places + 1 - digits.size(), '0');
    if (scale > 0)
        digits.insert(digits.size() - places, ".");
    return units < 0 ? "-" + digits : digits;
}

Fixed multiplied(Fixed a, Fixed b, int scale) {
    std::int64_t product = a.units * b.units;
    for (int places = a.scale + b.scale; places > scale; --places) {
        const bool last = places == scale + 1;
        const std::int64_t half = last ? (product < 0 ? -5 : 5) : 0;
        product = (product + half) / 10;
    }
    return {product, scale};
}

Rows::Rows(sqlite3* connection, std::string_view table, int columns)
    : statement_(connection,
                 [&] {
                     std::string sql = "INSERT INTO " + std::string(table) + " VALUES (?";
                     for (int i = 1; i < columns; ++i)
                         sql += ", ?";
                     return sql + ")";
                 }()),
      columns_(columns) {}

void Rows::add(std::initializer_list<Cell> row) {
    if (static_cast<int>(row.size()) != columns_)
        throw std::logic_error("a row of sample data has too few or too many columns");
    int parameter = 0;
    for (const Cell& cell : row)
        cell.bindTo(statement_, ++parameter);
    statement_.step();
    statement_.reset();
}

void Cell::bindTo(Statement& statement, int parameter) const {
    if (const auto* number = std::get_if<std::int64_t>(&content_))
        statement.bind(parameter, *number);
    else if (const auto* text = std::get_if<std::string>(&content_))
        statement.bind(parameter, std::string_view(*text));
    else
        statement.bindNull(parameter);
}

Moment sampleToday() {
    return *makeMoment(2024, 2, 29);
}

Moment addDays(Moment moment, int days) {
    return {moment.seconds + std::int64_t{days} * 86400};
}

Moment addSeconds(Moment moment, int seconds) {
    return {moment.seconds + seconds};
}

int yearOf(Moment moment) {
    return std::stoi(storedText(moment).substr(0, 4));
}

int monthOf(Moment moment) {
    return std::stoi(storedText(moment).substr(5, 2));
}

std::string billNumber(std::string_view prefix, int number) {
    const std::string digits = std::to_string(number);
    return std::string(prefix) + std::string(6 - digits.size(), '0') + digits;
}

void fillSampleData(sqlite3* connection) {
    Random random(20240229);
    fillSystemTables(connection);
    fillBaseData(connection, random);
    fillReceiptsAndPayments(connection, random);
    fillDeliveries(connection, random);
    fillWages(connection, random);
    fillVouchers(connection, random);
}

} // namespace orv::erp
