#include "erp/db/Catalogue.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace orv::erp {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

template <class Range>
auto findByName(const Range& range, std::string_view name) {
    const auto found =
        std::find_if(std::begin(range), std::end(range), [&](const auto& item) { return sameName(item.name, name); });
    return found == std::end(range) ? nullptr : &*found;
}

std::optional<int> parseNumber(std::string_view text) {
    int value = 0;
    const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (fault != std::errc{} || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

} // namespace

bool sameName(std::string_view a, std::string_view b) noexcept {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char l, char r) { return lower(l) == lower(r); });
}

std::optional<SqlType> makeType(std::string_view name, std::optional<int> first, std::optional<int> second) {
    const auto named = [&](auto... names) { return (sameName(name, names) || ...); };
    if (named("bit") && !first)
        return SqlType{SqlKind::bit};
    if (named("int", "smallint", "tinyint") && !first)
        return SqlType{SqlKind::integer};
    if (named("datetime") && !first)
        return SqlType{SqlKind::datetime};
    if (named("decimal", "numeric"))
        return SqlType{SqlKind::decimal, 0, false, second.value_or(0)};
    // Without a length a column holds 1 character and CONVERT gives 30; nothing here relies on the former.
    if (named("varchar", "nvarchar") && !second)
        return SqlType{SqlKind::text, first.value_or(30)};
    if (named("char", "nchar") && !second)
        return SqlType{SqlKind::text, first.value_or(30), true};
    return std::nullopt;
}

std::optional<SqlType> parseType(std::string_view declared) {
    const auto open = declared.find('(');
    if (open == std::string_view::npos)
        return makeType(declared, std::nullopt, std::nullopt);
    if (declared.back() != ')')
        return std::nullopt;
    std::string_view inside = declared.substr(open + 1, declared.size() - open - 2);
    const auto comma = inside.find(',');
    std::optional<int> second;
    if (comma != std::string_view::npos) {
        second = parseNumber(inside.substr(comma + 1));
        inside = inside.substr(0, comma);
        if (!second)
            return std::nullopt;
    }
    const auto first = parseNumber(inside);
    return first ? makeType(declared.substr(0, open), first, second) : std::nullopt;
}

const ColumnInfo* TableInfo::find(std::string_view column) const noexcept {
    return findByName(columns, column);
}

const TableInfo* Catalogue::find(std::string_view table) const noexcept {
    return findByName(tables_, table);
}

} // namespace orv::erp
