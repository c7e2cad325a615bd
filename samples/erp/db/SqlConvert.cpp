#include "erp/db/SqlConvert.h"

#include "automation/Text.h"
#include "erp/db/DateText.h"
#include "erp/db/SqlError.h"

namespace orv::erp {

namespace {

std::string_view kindName(SqlKind kind) {
    switch (kind) {
    case SqlKind::null:
        return "NULL";
    case SqlKind::text:
        return "nvarchar";
    case SqlKind::bit:
        return "bit";
    case SqlKind::integer:
        return "int";
    case SqlKind::decimal:
        return "decimal";
    case SqlKind::datetime:
        return "datetime";
    }
    return "";
}

std::string quoted(std::string_view content, char quote) {
    std::string text(1, quote);
    for (const char c : content) {
        if (c == quote)
            text.push_back(c);
        text.push_back(c);
    }
    text.push_back(quote);
    return text;
}

std::string function(std::string_view name, const std::string& argument) {
    return std::string(name) + "(" + argument + ")";
}

std::string function(std::string_view name, const std::string& argument, int second) {
    return std::string(name) + "(" + argument + ", " + std::to_string(second) + ")";
}

std::string textOf(const Typed& value, int style) {
    switch (value.type.kind) {
    case SqlKind::bit:
    case SqlKind::integer:
        return "CAST(" + value.sql + " AS TEXT)";
    case SqlKind::decimal:
        return function("tsql_decimal_text", value.sql, value.type.scale);
    case SqlKind::datetime:
        return function("tsql_date_text", value.sql, style);
    default:
        return value.sql;
    }
}

/// The conversions that do not depend on whether the statement asks for them.
std::string convertKind(const Typed& value, const SqlType& target, int style) {
    const SqlKind from = value.type.kind;
    if (from == SqlKind::null || from == target.kind)
        return value.sql;
    switch (target.kind) {
    case SqlKind::null:
        return value.sql;
    case SqlKind::text:
        return textOf(value, style);
    case SqlKind::datetime:
        return function("tsql_datetime", value.sql);
    default:
        break;
    }
    if (from == SqlKind::datetime)
        throw makeSqlError(sqlError::conversion,
                           automation::fromUtf8("Implicit conversion from data type datetime to " +
                                                std::string(kindName(target.kind)) + " is not allowed."));
    if (target.is(SqlKind::bit))
        return function("tsql_bit", value.sql);
    if (target.is(SqlKind::integer))
        return from == SqlKind::bit ? value.sql : function("tsql_int", value.sql);
    return from == SqlKind::text ? function("tsql_decimal", value.sql) : value.sql;
}

bool mayBeLonger(const SqlType& source, const SqlType& target) {
    return target.length > 0 && !(source.is(SqlKind::text) && source.length > 0 && source.length <= target.length);
}

} // namespace

std::string convertImplicit(const Typed& value, const SqlType& target) {
    return convertKind(value, target, 0);
}

std::string convertExplicit(const Typed& value, const SqlType& target, std::optional<int> style) {
    const bool concernsDate = value.type.is(SqlKind::datetime) || target.is(SqlKind::datetime);
    if (style && concernsDate && !styledText(Moment{}, *style))
        throw makeSqlError(sqlError::command,
                           automation::fromUtf8(std::to_string(*style) + " is not an accepted style of CONVERT."));
    const std::string sql = convertKind(value, target, style.value_or(0));
    if (target.is(SqlKind::text)) {
        if (target.fixed)
            return function("tsql_char", sql, target.length);
        return mayBeLonger(value.type, target) ? "substr(" + sql + ", 1, " + std::to_string(target.length) + ")" : sql;
    }
    if (target.is(SqlKind::decimal))
        return function("round", sql, target.scale);
    return sql;
}

std::string convertAssigned(const Typed& value, const SqlType& target) {
    const std::string sql = convertKind(value, target, 0);
    if (target.is(SqlKind::text) && target.length > 0)
        return function("tsql_fit", sql, target.length);
    if (target.is(SqlKind::decimal))
        return function("round", sql, target.scale);
    return sql;
}

std::string collated(const std::string& sql, const SqlType& type) {
    return type.is(SqlKind::text) ? "(" + sql + ") COLLATE " + std::string(collationName) : sql;
}

std::string quoteText(std::string_view content) {
    return quoted(content, '\'');
}
std::string quoteName(std::string_view name) {
    return quoted(name, '"');
}

} // namespace orv::erp
