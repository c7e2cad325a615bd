#include "erp/db/Database.h"

#include "automation/Text.h"
#include "erp/db/Catalogue.h"
#include "erp/db/SampleData.h"
#include "erp/db/Schema.h"
#include "erp/db/SqlError.h"
#include "erp/db/SqlFunctions.h"
#include "erp/db/Statement.h"
#include "erp/db/TSqlTranslator.h"

#include <sqlite3.h>

#include <utility>

namespace orv::erp {

using automation::Value;

class Database::Connection {
  public:
    /// `schema`: the tables of a new database; the sample's, with its data, when there are none.
    explicit Connection(const std::string& file, std::span<const std::string_view> schema = {}) {
        sqlite3* handle = nullptr;
        const int result = sqlite3_open(file.c_str(), &handle);
        handle_.reset(handle);
        if (result != SQLITE_OK)
            throw makeSqlError(sqlError::general, u"The database cannot be opened: " + automation::fromUtf8(file));
        registerSqlFunctions(handle, &now);
        if (!Statement(handle, "SELECT name FROM sqlite_schema LIMIT 1").step())
            create(schema);
        else
            isNew = false;
        readCatalogue();
    }

    sqlite3* handle() const { return handle_.get(); }

    void run(std::string_view sql) const {
        Statement statement(handle(), sql);
        while (statement.step()) {
        }
    }

    Catalogue catalogue;
    bool isNew = true;
    Moment now = *makeMoment(2024, 2, 29, 10 * 3600 + 30 * 60);

  private:
    /// One transaction: a file whose creation was interrupted is empty and is made again.
    void create(std::span<const std::string_view> schema) {
        run("BEGIN IMMEDIATE");
        for (const std::string_view statement : schema.empty() ? schemaStatements() : schema)
            run(statement);
        if (schema.empty())
            fillSampleData(handle());
        run("COMMIT");
    }

    void readCatalogue() {
        Statement tables(handle(), "SELECT name FROM sqlite_schema WHERE type = 'table' ORDER BY rowid");
        Statement columns(handle(), "SELECT name, type FROM pragma_table_info(?1)");
        while (tables.step()) {
            TableInfo table{tables.text(0), {}};
            columns.bind(1, std::string_view(table.name));
            while (columns.step()) {
                const auto type = parseType(columns.text(1));
                if (!type)
                    throw makeSqlError(sqlError::general,
                                       u"The database is not one of the sample: " +
                                           automation::fromUtf8(table.name + ": " + columns.text(1)));
                table.columns.push_back({columns.text(0), *type});
            }
            columns.reset();
            catalogue.add(std::move(table));
        }
    }

    struct Close {
        void operator()(sqlite3* handle) const { sqlite3_close(handle); }
    };
    std::unique_ptr<sqlite3, Close> handle_;
};

namespace {

Translation translated(std::u16string_view tsql, const Catalogue& catalogue, std::span<const Value> parameters) {
    std::vector<SqlType> types;
    for (const Value& parameter : parameters)
        types.push_back(parameterType(parameter));
    return translate(tsql, catalogue, types);
}

Statement prepared(sqlite3* connection, std::string_view sql, std::span<const Value> parameters) {
    Statement statement(connection, sql);
    for (std::size_t i = 0; i < parameters.size(); ++i)
        statement.bind(static_cast<int>(i + 1), parameters[i]);
    return statement;
}

void readRows(Statement& statement, const std::vector<SqlType>& types, ResultSet& result) {
    while (statement.step()) {
        std::vector<Value>& row = result.rows.emplace_back();
        row.reserve(types.size());
        for (std::size_t i = 0; i < types.size(); ++i)
            row.push_back(statement.value(static_cast<int>(i), types[i]));
    }
}

} // namespace

Database::Database(const std::string& file) : connection_(std::make_unique<Connection>(file)) {}
Database::Database(std::unique_ptr<Connection> connection) : connection_(std::move(connection)) {}
Database Database::withSchema(std::span<const std::string_view> statements) {
    return Database(std::make_unique<Connection>(std::string(inMemory), statements));
}
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;

bool Database::isNew() const noexcept {
    return connection_->isNew;
}
Database::~Database() = default;

ResultSet Database::query(std::u16string_view tsql, std::span<const Value> parameters) const {
    const Translation translation = translated(tsql, connection_->catalogue, parameters);
    if (!translation.isQuery)
        throw makeSqlError(sqlError::command, u"The statement returns no rows: it is no SELECT.");
    Statement statement = prepared(connection_->handle(), translation.sql, parameters);
    ResultSet result;
    std::vector<SqlType> types;
    for (const ResultColumn& column : translation.columns) {
        result.columns.push_back(automation::fromUtf8(column.name));
        types.push_back(column.type);
    }
    readRows(statement, types, result);
    return result;
}

std::int64_t Database::execute(std::u16string_view tsql, std::span<const Value> parameters) {
    const Translation translation = translated(tsql, connection_->catalogue, parameters);
    if (translation.isQuery)
        throw makeSqlError(sqlError::command, u"The statement changes nothing: it is a SELECT.");
    Statement statement = prepared(connection_->handle(), translation.sql, parameters);
    statement.step();
    return sqlite3_changes64(connection_->handle());
}

ResultSet Database::rawQuery(std::string_view sql) const {
    Statement statement(connection_->handle(), sql);
    ResultSet result;
    for (int i = 0; i < statement.columnCount(); ++i)
        result.columns.push_back(automation::fromUtf8(statement.columnName(i)));
    readRows(statement, std::vector<SqlType>(result.columns.size()), result);
    return result;
}

automation::Date Database::now() const {
    return toDate(connection_->now);
}

void Database::setNow(automation::Date now) {
    const auto moment = fromDate(now);
    if (!moment)
        throw makeSqlError(sqlError::conversion, u"The date is beyond the range of datetime.");
    connection_->now = *moment;
}

Database::Transaction::Transaction(Database& database) : database_(database) {
    database.connection_->run("BEGIN");
}

Database::Transaction::~Transaction() {
    if (!open_)
        return;
    try {
        database_.connection_->run("ROLLBACK");
    } catch (const automation::AutomationError&) { // NOLINT(bugprone-empty-catch): SQLite rolled back by itself
    }
}

void Database::Transaction::commit() {
    database_.connection_->run("COMMIT");
    open_ = false;
}

} // namespace orv::erp
