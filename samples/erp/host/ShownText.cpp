#include "erp/host/ShownText.h"

#include "automation/Coercion.h"
#include "erp/host/DisplayText.h"

#include <string_view>

namespace orv::erp {

using automation::Dictionary;
using automation::Value;

namespace {

/// The query of keys and names; "" for a field that shows what it stores. Queries with variables are the editor's.
std::u16string namesQuery(const Dictionary& field) {
    constexpr std::u16string_view kind = u"SQL{";
    const std::u16string list = entryText(field, u"FLookUpList");
    const std::u16string expression = entryText(field, u"FFieldNameExt");
    if (expression != entryText(field, u"FFieldName"))
        return {};
    if (list.starts_with(kind) && list.find(u'@') == std::u16string::npos)
        return list.substr(kind.size(), list.find(u'}') - kind.size());
    const std::u16string table = entryText(field, u"FSrcTableName");
    const std::u16string key = entryText(field, u"FSRCFieldName");
    const std::u16string name = entryText(field, u"FDSPFieldName");
    if (table.empty() || key.empty() || name.empty() || expression.starts_with(table + u"."))
        return {};
    return u"SELECT " + key + u", " + name + u" FROM " + table;
}

} // namespace

ShownText ShownText::ofField(const Dictionary& field, const Database& database) {
    ShownText shown;
    const std::u16string query = namesQuery(field);
    if (query.empty())
        return shown;
    for (const auto& row : database.query(query).rows)
        if (row.size() >= 2 && !row[0].isNull())
            shown.texts_.emplace(automation::toText(row[0]), row[1]);
    return shown;
}

void ShownText::apply(Value& value) const {
    if (texts_.empty() || value.isNull())
        return;
    if (const auto found = texts_.find(automation::toText(value)); found != texts_.end())
        value = found->second;
}

} // namespace orv::erp
