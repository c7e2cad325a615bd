#include "erp/host/ListQuery.h"

#include "automation/Coercion.h"
#include "erp/db/Database.h"
#include "support/Letters.h"

#include <unordered_set>
#include <vector>

namespace orv::erp {

namespace {

bool isNameUnit(char16_t unit) {
    return unit == u'_' || (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'z') ||
           (unit >= u'A' && unit <= u'Z');
}

/// Whether a text names a column of the table ("table.column").
bool names(std::u16string_view text, std::u16string_view table) {
    for (std::size_t at = support::findIgnoringCase(text, table); at != std::u16string_view::npos;
         at = support::findIgnoringCase(text, table, at + 1)) {
        const bool startsName = at == 0 || !isNameUnit(text[at - 1]);
        const std::size_t end = at + table.size();
        if (startsName && end < text.size() && text[end] == u'.')
            return true;
    }
    return false;
}

} // namespace

std::u16string listSql(const ListDescription& list, const ListTexts& texts, std::u16string_view selectList) {
    std::u16string sql = u"SELECT " + std::u16string(selectList) + u" FROM " + list.from;
    std::vector<bool> takesPart(list.joins.size());
    // Backwards, since a join builds on earlier ones only.
    for (std::size_t i = list.joins.size(); i-- > 0;) {
        const auto& join = list.joins[i];
        for (const auto text : {selectList, texts.where, texts.headSort, texts.entrySort})
            takesPart[i] = takesPart[i] || names(text, join.table);
        for (std::size_t later = i + 1; later < list.joins.size(); ++later)
            takesPart[i] = takesPart[i] || (takesPart[later] && list.joins[later].needs == join.table);
    }
    for (std::size_t i = 0; i < list.joins.size(); ++i)
        if (takesPart[i])
            sql.append(u" ").append(list.joins[i].clause);
    if (!support::Trim(texts.where).empty())
        sql.append(u" WHERE ").append(texts.where);
    std::u16string_view separator = u" ORDER BY ";
    for (const auto sort : {texts.headSort, texts.entrySort})
        if (!support::Trim(sort).empty()) {
            sql.append(separator).append(sort);
            separator = u",";
        }
    return sql;
}

ListResult runList(const Database& database, const ListDescription& list, const ListTexts& texts,
                   std::size_t firstKeys) {
    ListResult result;
    result.sql = listSql(list, texts, list.key + u" AS FListKey");
    const ResultSet found = database.query(result.sql);
    result.rows = found.rows.size();
    std::unordered_set<std::u16string> seen;
    for (const auto& row : found.rows) {
        std::u16string key = row[0].isNull() ? std::u16string() : automation::toText(row[0]);
        if (!seen.insert(key).second)
            continue;
        if (result.firstKeys.size() < firstKeys)
            result.firstKeys.push_back(std::move(key));
    }
    result.bills = seen.size();
    return result;
}

} // namespace orv::erp
