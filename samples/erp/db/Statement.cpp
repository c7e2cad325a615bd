#include "erp/db/Statement.h"

#include "automation/Coercion.h"
#include "automation/Text.h"
#include "erp/db/SqlError.h"

#include <cmath>

namespace orv::erp {

using automation::Value;

namespace {

/// A decimal of `scale` places as the server hands it over.
Value decimalValue(double number, int scale) {
    double scaled = std::round(std::abs(number) * std::pow(10.0, scale));
    while (scaled >= 9007199254740992.0 && scale > 0) { // beyond 2^53 a double has no such places
        --scale;
        scaled = std::round(std::abs(number) * std::pow(10.0, scale));
    }
    if (scaled >= 1.8e19)
        return number;
    return automation::Decimal{0, static_cast<std::uint64_t>(scaled), static_cast<std::uint8_t>(scale),
                               number < 0 && scaled > 0};
}

} // namespace

void raiseSqliteError(sqlite3* connection) {
    std::u16string description = automation::fromUtf8(sqlite3_errmsg(connection));
    switch (sqlite3_errcode(connection) & 0xFF) {
    case SQLITE_MISMATCH:
        throw makeSqlError(sqlError::conversion, std::move(description));
    case SQLITE_CONSTRAINT:
        throw makeSqlError(sqlError::constraint, std::move(description));
    case SQLITE_ERROR:
        throw makeSqlError(sqlError::command, std::move(description));
    case SQLITE_NOMEM:
        throw std::bad_alloc();
    default:
        throw makeSqlError(sqlError::general, std::move(description));
    }
}

Statement::Statement(sqlite3* connection, std::string_view sql) : connection_(connection) {
    sqlite3_stmt* handle = nullptr;
    check(sqlite3_prepare_v2(connection, sql.data(), static_cast<int>(sql.size()), &handle, nullptr));
    handle_.reset(handle);
}

void Statement::check(int result) const {
    if (result != SQLITE_OK)
        raiseSqliteError(connection_);
}

void Statement::bindNull(int parameter) {
    check(sqlite3_bind_null(handle_.get(), parameter));
}

void Statement::bind(int parameter, std::int64_t number) {
    check(sqlite3_bind_int64(handle_.get(), parameter, number));
}

void Statement::bind(int parameter, double number) {
    check(sqlite3_bind_double(handle_.get(), parameter, number));
}

void Statement::bind(int parameter, std::string_view utf8) {
    // A view without bytes must not become NULL.
    const char* bytes = utf8.empty() ? "" : utf8.data();
    check(sqlite3_bind_text(handle_.get(), parameter, bytes, static_cast<int>(utf8.size()), SQLITE_TRANSIENT));
}

void Statement::bind(int parameter, Moment moment) {
    bind(parameter, std::string_view(storedText(moment)));
}

void Statement::bind(int parameter, const Value& value) {
    switch (parameterType(value).kind) {
    case SqlKind::null:
        return bindNull(parameter);
    case SqlKind::text:
        return bind(parameter, std::string_view(automation::toUtf8(*value.getIf<std::u16string>())));
    case SqlKind::datetime:
        if (const auto moment = fromDate(*value.getIf<automation::Date>()))
            return bind(parameter, *moment);
        throw makeSqlError(sqlError::conversion, u"A parameter holds a date beyond the range of datetime.");
    case SqlKind::bit:
        return bind(parameter, std::int64_t{*value.getIf<bool>() ? 1 : 0});
    case SqlKind::integer:
        return bind(parameter, std::int64_t{automation::toInt32(value)});
    case SqlKind::decimal:
        return bind(parameter, automation::toNumber(value));
    }
}

bool Statement::step() {
    const int result = sqlite3_step(handle_.get());
    if (result == SQLITE_ROW)
        return true;
    if (result != SQLITE_DONE)
        raiseSqliteError(connection_);
    return false;
}

void Statement::reset() {
    check(sqlite3_reset(handle_.get()));
}

std::string Statement::text(int column) const {
    const auto* bytes = sqlite3_column_text(handle_.get(), column);
    if (bytes == nullptr)
        return {};
    return {reinterpret_cast<const char*>(bytes),
            static_cast<std::size_t>(sqlite3_column_bytes(handle_.get(), column))};
}

Value Statement::value(int column, const SqlType& type) const {
    const int storage = sqlite3_column_type(handle_.get(), column);
    if (storage == SQLITE_NULL)
        return automation::Null{};
    if (storage == SQLITE_TEXT) {
        const std::string content = text(column);
        if (!type.is(SqlKind::datetime))
            return automation::fromUtf8(content);
        const ReadMoment read = readMoment(content);
        if (!read.moment)
            throw makeSqlError(sqlError::general, u"A datetime column holds '" + automation::fromUtf8(content) + u"'.");
        return toDate(*read.moment);
    }
    const double number = sqlite3_column_double(handle_.get(), column);
    if (type.is(SqlKind::decimal))
        return decimalValue(number, type.scale);
    if (type.is(SqlKind::bit))
        return number != 0.0;
    if (storage == SQLITE_INTEGER && std::abs(number) < 2147483648.0)
        return static_cast<std::int32_t>(sqlite3_column_int(handle_.get(), column));
    return number;
}

SqlType parameterType(const Value& value) {
    if (value.isNull() || value.isEmpty())
        return {};
    if (value.isText())
        return {SqlKind::text};
    if (value.is<automation::Date>())
        return {SqlKind::datetime};
    if (value.is<bool>())
        return {SqlKind::bit};
    if (value.is<std::int16_t>() || value.is<std::int32_t>())
        return {SqlKind::integer};
    if (value.is<double>())
        return {SqlKind::decimal, 0, false, 10};
    if (value.is<automation::Currency>())
        return {SqlKind::decimal, 0, false, 4};
    if (const auto* decimal = value.getIf<automation::Decimal>())
        return {SqlKind::decimal, 0, false, decimal->scale};
    throw makeSqlError(sqlError::command, u"A parameter holds a value that no column can hold.");
}

} // namespace orv::erp
