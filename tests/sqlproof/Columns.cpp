#include "sqlproof/Columns.h"

#include "automation/Coercion.h"
#include "erp/db/Database.h"
#include "sqlproof/PlainDates.h"

#include <cmath>
#include <cstdio>

namespace orv::sqlproof {

using automation::Value;

namespace {

Storage storageOf(const Value& value) {
    if (value.is<bool>())
        return Storage::truth;
    if (value.is<std::int16_t>() || value.is<std::int32_t>())
        return Storage::whole;
    if (value.is<automation::Date>())
        return Storage::moment;
    if (value.isText())
        return Storage::text;
    return Storage::decimal;
}

std::u16string isoMoment(double days) {
    constexpr double secondsPerDay = 86'400;
    const auto day = static_cast<int>(std::floor(days));
    const auto second = static_cast<unsigned>(std::lround((days - day) * secondsPerDay));
    char time[32];
    std::snprintf(time, sizeof time, " %02u:%02u:%02u", second / 3600, second / 60 % 60, second % 60);
    return isoDay(day) + std::u16string(time, time + 9);
}

Cell cellOf(const Value& value) {
    if (value.isNull())
        return {};
    if (const bool* truth = value.getIf<bool>())
        return *truth ? 1.0 : 0.0; // as the server numbers them
    if (const auto* date = value.getIf<automation::Date>())
        return isoMoment(date->days);
    if (value.isText())
        return automation::toText(value);
    return automation::toNumber(value);
}

} // namespace

Table readColumns(erp::ErpHost& host, std::int32_t classType, const std::vector<std::u16string>& columns) {
    std::u16string list;
    std::u16string names;
    for (const std::u16string& column : columns) {
        list += (list.empty() ? u"" : u",") + column;
        names += u" AND " + column + u" IS NULL";
    }
    // The list's statement for conditions that name the columns tells which tables it joins.
    const std::u16string sql = host.list(classType, u"1<>1" + names, u"", u"", 0).sql;
    const std::size_t from = sql.find(u" FROM ");
    const auto found = host.database().query(u"SELECT " + list + sql.substr(from, sql.find(u" WHERE ") - from));
    Table table{std::vector<Storage>(columns.size()), {}};
    for (const auto& row : found.rows) {
        std::vector<Cell>& cells = table.rows.emplace_back();
        for (std::size_t i = 0; i < row.size(); ++i) {
            cells.push_back(cellOf(row[i]));
            if (!row[i].isNull())
                table.storages[i] = storageOf(row[i]);
        }
    }
    return table;
}

} // namespace orv::sqlproof
