#include "erp/host/DescribedTables.h"

#include "automation/Coercion.h"
#include "automation/Object.h"
#include "automation/Text.h"
#include "erp/db/Schema.h"

#include <algorithm>

namespace orv::erp {

using automation::Value;

namespace {

/// "yyyy-mm-dd" or "yyyy-mm-dd hh:mm:ss".
bool looksLikeDate(std::u16string_view text) {
    constexpr std::u16string_view pattern = u"0000-00-00 00:00:00";
    constexpr std::size_t dateLength = 10;
    if (text.size() != dateLength && text.size() != pattern.size())
        return false;
    return std::ranges::equal(text, pattern.substr(0, text.size()), [](char16_t unit, char16_t wanted) {
        return wanted == u'0' ? unit >= u'0' && unit <= u'9' : unit == wanted;
    });
}

enum class Kind { nothing, bit, whole, number, date, text };

Kind kindOf(const Value& value) {
    if (value.isNull())
        return Kind::nothing;
    if (value.is<bool>())
        return Kind::bit;
    if (value.is<std::int32_t>())
        return Kind::whole;
    if (value.is<double>())
        return Kind::number;
    return looksLikeDate(automation::toText(value)) ? Kind::date : Kind::text;
}

Kind merged(Kind a, Kind b) {
    if (a == Kind::nothing || a == b)
        return b;
    if (b == Kind::nothing)
        return a;
    const auto isNumber = [](Kind kind) { return kind == Kind::whole || kind == Kind::number; };
    return isNumber(a) && isNumber(b) ? Kind::number : Kind::text;
}

/// The name of the table that a CREATE TABLE statement makes.
std::string_view createdTable(std::string_view statement) {
    constexpr std::string_view head = "CREATE TABLE ";
    const std::size_t start = statement.find(head) + head.size();
    return statement.substr(start, statement.find_first_of(" (", start) - start);
}

std::string definitionOf(const DescribedTable& table) {
    std::u16string sql = u"CREATE TABLE " + table.name + u" (";
    for (std::size_t column = 0; column < table.content.columns.size(); ++column)
        sql += (column == 0 ? u"" : u", ") + table.content.columns[column] + u" " + columnType(table, column);
    return automation::toUtf8(sql + u")");
}

void fill(Database& database, const DescribedTable& table) {
    std::u16string names;
    std::u16string marks;
    std::vector<bool> isDate;
    for (std::size_t column = 0; column < table.content.columns.size(); ++column) {
        names += (column == 0 ? u"" : u",") + table.content.columns[column];
        marks += column == 0 ? u"?" : u",?";
        isDate.push_back(columnType(table, column) == u"datetime");
    }
    const std::u16string sql = u"INSERT INTO " + table.name + u" (" + names + u") VALUES (" + marks + u")";
    for (const auto& row : table.content.rows) {
        std::vector<Value> values = row;
        for (std::size_t column = 0; column < values.size(); ++column)
            if (isDate[column] && values[column].isText())
                values[column] = automation::toDate(values[column]);
        database.execute(sql, values);
    }
}

} // namespace

std::u16string columnType(const DescribedTable& table, std::size_t column) {
    const auto declared = std::ranges::find_if(table.types, [&](const auto& entry) {
        return automation::sameMember(entry.first, table.content.columns[column]);
    });
    if (declared != table.types.end())
        return declared->second;
    Kind kind = Kind::nothing;
    for (const auto& row : table.content.rows)
        kind = merged(kind, kindOf(row[column]));
    switch (kind) {
    case Kind::bit:
        return u"bit";
    case Kind::whole:
        return u"int";
    case Kind::number:
        return u"decimal(18,6)";
    case Kind::date:
        return u"datetime";
    case Kind::nothing:
    case Kind::text:
        break;
    }
    return u"nvarchar(4000)";
}

Database makeDatabase(const std::vector<DescribedTable>& tables) {
    std::vector<std::string> own;
    for (const DescribedTable& table : tables)
        own.push_back(definitionOf(table));
    std::vector<std::string_view> statements(own.begin(), own.end());
    for (const std::string_view statement : schemaStatements()) {
        const auto isDescribed = [name = automation::fromUtf8(createdTable(statement))](const DescribedTable& table) {
            return automation::sameMember(table.name, name);
        };
        if (std::ranges::none_of(tables, isDescribed))
            statements.push_back(statement);
    }
    Database database = Database::withSchema(statements);
    Database::Transaction transaction(database);
    for (const DescribedTable& table : tables)
        fill(database, table);
    transaction.commit();
    return database;
}

} // namespace orv::erp
