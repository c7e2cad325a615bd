#include "DbTestSupport.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Text.h"

#include <array>

namespace orv::erp::test {

namespace {

std::string shown(const automation::Value& value) {
    return value.isNull() ? "NULL" : automation::toUtf8(automation::toText(value));
}

std::string joined(const std::vector<automation::Value>& row, std::string_view separator) {
    std::string text;
    for (const auto& value : row)
        text.append(text.empty() ? "" : separator).append(shown(value));
    return text;
}

} // namespace

Database smallDatabase() {
    constexpr std::array<std::string_view, 1> schema = {
        "CREATE TABLE t (FID int NOT NULL PRIMARY KEY, FText nvarchar(20) NULL, FNote nvarchar(20) NULL, "
        "FQty decimal(18,2) NULL, FNum int NULL, FDate datetime NULL, FFlag bit NULL)"};
    Database database = Database::withSchema(schema);
    database.execute(u"INSERT INTO t (FID, FText, FNote, FQty, FNum, FDate, FFlag) VALUES "
                     u"(1, 'abc', 'x', 7.5, 5, '2024-02-29', 1), "
                     u"(2, 'ABC ', NULL, -0.25, 0, '2024/2/29 23:59:59', 0), "
                     u"(3, 'O''Brien', '', NULL, NULL, NULL, 0), "
                     u"(4, '', 'x', 12.50, 7, '20240301', 1), "
                     u"(5, NULL, 'co-op', 100, -3, '', NULL), "
                     u"(6, '100%', 'coop', 0, 5, '2024-01-31 12:00', 0), "
                     u"(7, 'a_b[1]', '7', '1000000.01', '2147483647', '2023-12-31 23:59:59', 'true')");
    return database;
}

std::string idsWhere(const Database& database, std::u16string_view condition) {
    std::u16string sql = u"SELECT FID FROM t WHERE ";
    sql.append(condition).append(u" ORDER BY FID");
    try {
        std::string ids;
        for (const auto& row : database.query(sql).rows)
            ids.append(ids.empty() ? "" : " ").append(shown(row.front()));
        return ids;
    } catch (const automation::AutomationError& error) {
        return automation::toUtf8(error.description());
    }
}

std::string firstRow(const Database& database, std::u16string_view tsql) {
    try {
        const ResultSet result = database.query(tsql);
        return result.rows.empty() ? "no row" : joined(result.rows.front(), " | ");
    } catch (const automation::AutomationError& error) {
        return automation::toUtf8(error.description());
    }
}

Failure failureOf(const Database& database, std::u16string_view tsql) {
    try {
        database.query(tsql);
    } catch (const automation::AutomationError& error) {
        return {error.number(), automation::toUtf8(error.description())};
    }
    return {};
}

} // namespace orv::erp::test
