#include "erp/db/TSqlParser.h"

// INSERT, UPDATE and DELETE of one table.
namespace orv::erp {

const TableInfo& TSqlParser::takeTable() {
    const std::string name = takeName();
    const TableInfo* table = catalogue_.find(name);
    if (table == nullptr)
        fail(sqlError::noTable, "Invalid object name '" + name + "'.");
    return *table;
}

const ColumnInfo& TSqlParser::takeColumnOf(const TableInfo& table) {
    const std::string name = takeName();
    const ColumnInfo* column = table.find(name);
    if (column == nullptr)
        fail(sqlError::command, "Invalid column name '" + name + "'.");
    return *column;
}

std::string TSqlParser::insertStatement() {
    acceptWord("into");
    const TableInfo& table = takeTable();
    std::vector<const ColumnInfo*> columns;
    std::string sql = "INSERT INTO " + quoteName(table.name) + " (";
    expectSymbol("(");
    do {
        columns.push_back(&takeColumnOf(table));
        sql += (columns.size() > 1 ? ", " : "") + quoteName(columns.back()->name);
    } while (acceptSymbol(","));
    expectSymbol(")");
    expectWord("values");
    sql += ") VALUES ";
    Scope none;
    scope_ = &none;
    bool first = true;
    do {
        expectSymbol("(");
        sql += first ? "(" : ", (";
        first = false;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            if (i > 0)
                expectSymbol(",");
            sql += (i > 0 ? ", " : "") + convertAssigned(expression(), columns[i]->type);
        }
        expectSymbol(")");
        sql += ")";
    } while (acceptSymbol(","));
    scope_ = nullptr;
    return sql;
}

std::string TSqlParser::updateStatement() {
    const TableInfo& table = takeTable();
    Scope own{{{table.name, &table}}};
    scope_ = &own;
    std::string sql = "UPDATE " + quoteName(table.name) + " SET ";
    expectWord("set");
    bool first = true;
    do {
        const ColumnInfo& column = takeColumnOf(table);
        expectSymbol("=");
        sql += (first ? "" : ", ") + quoteName(column.name) + " = " + convertAssigned(expression(), column.type);
        first = false;
    } while (acceptSymbol(","));
    sql += whereClause();
    scope_ = nullptr;
    return sql;
}

std::string TSqlParser::deleteStatement() {
    acceptWord("from");
    const TableInfo& table = takeTable();
    Scope own{{{table.name, &table}}};
    scope_ = &own;
    std::string sql = "DELETE FROM " + quoteName(table.name) + whereClause();
    scope_ = nullptr;
    return sql;
}

} // namespace orv::erp
