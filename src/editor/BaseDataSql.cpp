#include "editor/BaseDataSql.h"

#include "automation/Coercion.h"

namespace orv::editor {

using automation::Dictionary;
using automation::Recordset;
using automation::Value;

namespace {

std::u16string textOf(const Value& value) {
    return value.isNull() || value.isMissing() ? std::u16string() : automation::toText(value);
}

std::u16string entry(const Dictionary& record, std::u16string_view key) {
    return textOf(record.getValue(key, Value()));
}

} // namespace

std::u16string baseFieldCriterion(const Dictionary& field) {
    return u"FClassTypeID=" + entry(field, u"FLookUpClassID") + u" AND FFieldName='" + entry(field, u"FDSPFieldName") +
           u"'";
}

std::u16string GetTakeBaseDataSQL(const Dictionary& dct, const Recordset& rsAll, std::u16string_view sValue,
                                  std::u16string& FDSPName) {
    rsAll.setFilter(baseFieldCriterion(dct));
    if (rsAll.eof())
        return {};
    const std::u16string sourceTable = entry(dct, u"FSrcTableName");
    const std::u16string joinedTable = textOf(rsAll.field(u"FSrcTableName"));
    const std::u16string alias = sourceTable + u"_" + joinedTable;
    std::u16string displayField = textOf(rsAll.field(u"FDSPFieldName"));
    const std::u16string from = sourceTable + u" LEFT OUTER JOIN " + joinedTable + u" " + alias + u" ON " +
                                textOf(rsAll.field(u"FTableName")) + u"." + textOf(rsAll.field(u"FFieldName")) + u"=" +
                                alias + u"." + textOf(rsAll.field(u"FSRCFieldName")) + u"\r\n";
    std::u16string sql = u"SELECT " + alias + u"." + displayField + u" FROM " + from + u" WHERE  " + sourceTable +
                         u"." + entry(dct, u"FSRCFieldName") + u" =" +
                         automation::numberToText(automation::Val(sValue));
    FDSPName = std::move(displayField);
    return sql;
}

} // namespace orv::editor
