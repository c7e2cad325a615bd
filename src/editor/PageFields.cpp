#include "editor/LookUp.h"

#include "editor/BaseDataSql.h"
#include "editor/RecordText.h"

namespace orv::editor {

using automation::Collection;
using automation::Dictionary;
using automation::Recordset;
using automation::Value;

Dictionary resolveThroughPages(const Dictionary& field, const Dictionary& tableInfo, const Recordset& rsAllBase) {
    Dictionary result;
    const std::u16string fieldName = entryText(field, u"FFieldName");
    const std::int32_t pages = entryNumber(tableInfo, u"PageCount");
    for (std::int32_t page = 1; page <= pages; ++page) {
        const Value entry = tableInfo.getValue(u"Page" + automation::numberToText(page), Value());
        const Collection keys(automation::toObjectOrNothing(entry));
        const std::int32_t count = keys ? keys.count() : 0;
        for (std::int32_t i = 1; i <= count; ++i) {
            const Dictionary pageField(automation::toObject(tableInfo.get(automation::toText(keys.item(i)))));
            const Value saved = pageField.getValue(u"FNeedSave", false);
            if (entryText(pageField, u"FFieldName") != fieldName || saved.isNull() || !automation::toBoolean(saved))
                continue;
            const Dictionary copy = pageField.cloneAll();
            copy.set(u"FFNDFieldName", field.getValue(u"FFNDFieldName", u""));
            copy.set(u"FDSPFieldName", field.getValue(u"FDSPFieldName", u""));
            if (rsAllBase) {
                rsAllBase.setFilter(baseFieldCriterion(copy));
                if (!rsAllBase.eof()) {
                    for (const char16_t* column :
                         {u"FFNDFieldName", u"FDSPFieldName", u"FLookUpType", u"FLookUpClassID"})
                        copy.set(column, rsAllBase.field(std::u16string_view(column)));
                }
            }
            result = copy; // the last match counts
        }
    }
    return result;
}

} // namespace orv::editor
