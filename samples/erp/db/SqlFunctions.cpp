#include "erp/db/SqlFunctions.h"

#include "automation/Text.h"
#include "erp/db/Collation.h"
#include "erp/db/SqlConvert.h"
#include "erp/db/SqlError.h"

#include <sqlite3.h>

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <optional>

namespace orv::erp {

namespace {

using Context = sqlite3_context*;
using Values = sqlite3_value**;

std::string_view textOf(sqlite3_value* value) {
    const auto* bytes = sqlite3_value_text(value);
    // The text of SQLite is unsigned char; the same bytes.
    return {reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

bool isText(sqlite3_value* value) {
    return sqlite3_value_type(value) == SQLITE_TEXT;
}

void give(Context context, std::string_view text) {
    sqlite3_result_text(context, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void refuse(Context context, const std::string& description) {
    sqlite3_result_error(context, description.c_str(), static_cast<int>(description.size()));
    sqlite3_result_error_code(context, SQLITE_MISMATCH);
}

std::string_view trimmed(std::string_view text) {
    while (text.starts_with(' '))
        text.remove_prefix(1);
    while (text.ends_with(' '))
        text.remove_suffix(1);
    return text;
}

/// The number that the whole text is, without exponent.
std::optional<double> plainNumber(std::string_view text) {
    text = trimmed(text);
    const bool sign = text.starts_with('+');
    double number = 0;
    const char* end = text.data() + text.size();
    const auto [stop, fault] = std::from_chars(text.data() + (sign ? 1 : 0), end, number, std::chars_format::fixed);
    if (fault != std::errc{} || stop != end || !std::isfinite(number))
        return std::nullopt;
    return number;
}

void toInt(Context context, int, Values arguments) {
    std::optional<double> number;
    if (isText(arguments[0])) {
        const std::string_view text = trimmed(textOf(arguments[0]));
        // "" is 0; a text with decimals is no int.
        number = text.empty() ? 0.0 : text.find('.') == text.npos ? plainNumber(text) : std::nullopt;
        if (!number)
            return refuse(context, "Conversion failed when converting the nvarchar value '" +
                                       std::string(textOf(arguments[0])) + "' to data type int.");
    } else {
        number = std::trunc(sqlite3_value_double(arguments[0]));
    }
    if (std::abs(*number + 0.5) > 2147483648.0)
        return refuse(context, "The conversion of the value '" + std::string(textOf(arguments[0])) +
                                   "' overflowed an int column.");
    sqlite3_result_int(context, static_cast<int>(*number));
}

void toDecimal(Context context, int, Values arguments) {
    const auto number = plainNumber(textOf(arguments[0]));
    if (!number)
        return refuse(context, "Error converting data type nvarchar to numeric.");
    sqlite3_result_double(context, *number);
}

void toBit(Context context, int, Values arguments) {
    if (!isText(arguments[0]))
        return sqlite3_result_int(context, sqlite3_value_double(arguments[0]) != 0.0);
    const std::string_view text = trimmed(textOf(arguments[0]));
    if (compareText(text, "true") == 0)
        return sqlite3_result_int(context, 1);
    const auto number = plainNumber(text);
    if (!number && !text.empty() && compareText(text, "false") != 0)
        return refuse(context, "Conversion failed when converting the nvarchar value '" + std::string(text) +
                                   "' to data type bit.");
    sqlite3_result_int(context, number.value_or(0) != 0.0);
}

void toDatetime(Context context, int, Values arguments) {
    ReadMoment read;
    if (isText(arguments[0]))
        read = readMoment(textOf(arguments[0]));
    else
        read = {fromServerDays(sqlite3_value_double(arguments[0])), DateTextFault::outOfRange};
    if (read.moment)
        return give(context, storedText(*read.moment));
    refuse(context, read.fault == DateTextFault::malformed
                        ? "Conversion failed when converting date and/or time from character string."
                        : "The conversion to a datetime data type resulted in an out-of-range value.");
}

void decimalText(Context context, int, Values arguments) {
    std::array<char, 400> buffer{};
    const int scale = sqlite3_value_int(arguments[1]);
    const int length = std::snprintf(buffer.data(), buffer.size(), "%.*f", scale, sqlite3_value_double(arguments[0]));
    give(context, {buffer.data(), static_cast<std::size_t>(length)});
}

void dateText(Context context, int, Values arguments) {
    const ReadMoment read = readMoment(textOf(arguments[0]));
    const auto text = read.moment ? styledText(*read.moment, sqlite3_value_int(arguments[1])) : std::nullopt;
    if (!text)
        return refuse(context, "A datetime column holds '" + std::string(textOf(arguments[0])) + "'.");
    give(context, *text);
}

/// char(n): cut or filled with blanks to n characters.
void fixedText(Context context, int, Values arguments) {
    std::u16string text = automation::fromUtf8(textOf(arguments[0]));
    text.resize(static_cast<std::size_t>(sqlite3_value_int(arguments[1])), u' ');
    give(context, automation::toUtf8(text));
}

void fitText(Context context, int, Values arguments) {
    const auto length = automation::fromUtf8(textOf(arguments[0])).size();
    if (length > static_cast<std::size_t>(sqlite3_value_int(arguments[1])))
        return refuse(context, "String or binary data would be truncated.");
    sqlite3_result_value(context, arguments[0]);
}

void like(Context context, int, Values arguments) {
    sqlite3_result_int(context, matchesLike(textOf(arguments[0]), textOf(arguments[1])) ? 1 : 0);
}

void now(Context context, int, Values) {
    give(context, storedText(*static_cast<const Moment*>(sqlite3_user_data(context))));
}

using Function = void (*)(Context, int, Values);

/// NULL in, NULL out; and no exception may pass through the frames of SQLite.
template <Function function>
void guarded(Context context, int count, Values arguments) noexcept {
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(arguments[i]) == SQLITE_NULL)
            return sqlite3_result_null(context);
    }
    try {
        function(context, count, arguments);
    } catch (const std::exception&) {
        sqlite3_result_error_nomem(context);
    }
}

int collate(void*, int lengthA, const void* a, int lengthB, const void* b) noexcept {
    const std::string_view left(static_cast<const char*>(a), static_cast<std::size_t>(lengthA));
    const std::string_view right(static_cast<const char*>(b), static_cast<std::size_t>(lengthB));
    const auto order = compareText(left, right);
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

void require(int result) {
    if (result != SQLITE_OK)
        throw makeSqlError(sqlError::general, automation::fromUtf8(sqlite3_errstr(result)));
}

template <Function function>
void add(sqlite3* connection, const char* name, int arguments, int flags = SQLITE_DETERMINISTIC, void* data = nullptr) {
    require(sqlite3_create_function_v2(connection, name, arguments, SQLITE_UTF8 | flags, data, guarded<function>,
                                       nullptr, nullptr, nullptr));
}

} // namespace

void registerSqlFunctions(sqlite3* connection, const Moment* nowMoment) {
    require(sqlite3_create_collation_v2(connection, std::string(collationName).c_str(), SQLITE_UTF8, nullptr, collate,
                                        nullptr));
    add<toInt>(connection, "tsql_int", 1);
    add<toDecimal>(connection, "tsql_decimal", 1);
    add<toBit>(connection, "tsql_bit", 1);
    add<toDatetime>(connection, "tsql_datetime", 1);
    add<decimalText>(connection, "tsql_decimal_text", 2);
    add<dateText>(connection, "tsql_date_text", 2);
    add<fixedText>(connection, "tsql_char", 2);
    add<fitText>(connection, "tsql_fit", 2);
    add<like>(connection, "tsql_like", 2);
    // Only reads through the pointer: SQLite's interface has no const here.
    add<now>(connection, "tsql_now", 0, 0, const_cast<Moment*>(nowMoment));
}

} // namespace orv::erp
