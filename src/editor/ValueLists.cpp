#include "editor/ValueLists.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Views.h"
#include "metadata/ValueListField.h"
#include "support/Letters.h"
#include "support/PaddedItem.h"
#include "support/Pieces.h"

namespace orv::editor {

using automation::AutomationError;
using automation::Dictionary;
using automation::Recordset;
using automation::Value;
using metadata::FieldRecord;
namespace fieldKey = metadata::fieldKey;

namespace {

/// Kinds of data source behind a value list.
enum class SourceType : std::int16_t { fixedList = 0, query = 1, distinctColumn = 2, lookUpList = 3, parameters = 4 };

/// A look-up query is cut after this record, so that a large base-data table does not flood the drop-down.
constexpr std::int32_t lastLookUpRecord = 101;

constexpr std::int32_t unknownParameter = static_cast<std::int32_t>(0x80040001U);

std::u16string columnText(const Recordset& rows, std::int32_t column) {
    const Value value = rows.field(column);
    return value.isNull() ? std::u16string() : automation::toText(value);
}

class ListText {
  public:
    explicit ListText(std::u16string& text) : text_(text) {}
    void add(std::u16string_view caption, std::u16string_view key) {
        if (!text_.empty())
            text_ += u'\t';
        text_ += support::PadItem(caption, key);
    }

  private:
    std::u16string& text_;
};

void addFixedList(std::u16string_view list, ListText& items) {
    while (true) {
        const std::u16string_view piece = list.substr(0, list.find(u','));
        if (piece.empty())
            return;
        items.add(piece.substr(0, piece.find(u';')), piece);
        if (piece.size() == list.size())
            return;
        list.remove_prefix(piece.size() + 1);
    }
}

void addQuery(const std::u16string& sql, const ValueListSource& source, ListText& items) {
    const Recordset rows(automation::toObject(automation::call(source.dataService, u"GetData", sql)));
    for (; !rows.eof(); rows.moveNext()) {
        const std::u16string caption = columnText(rows, 0);
        items.add(caption, columnText(rows, 1));
    }
}

/// The statement with its named parameters replaced by what the data service says.
std::u16string withParameters(std::u16string sql, std::u16string_view names, const ValueListSource& source) {
    while (!names.empty()) {
        const std::u16string_view name = names.substr(0, names.find(u';'));
        names.remove_prefix(std::min(name.size() + 1, names.size()));
        if (name.empty())
            continue;
        if (!support::equalIgnoringCase(name, u"@FClassTypeID")) {
            std::u16string description = u"动态构造取数SQL错误：参数中使用了未知的变量 ";
            description += name;
            throw AutomationError(unknownParameter, u"ORVFilter.Filter:SetValue", std::move(description));
        }
        const std::u16string id = automation::toText(automation::get(source.dataService, u"ClassTypeID"));
        sql = support::replaceAllIgnoringCase(sql, name, id);
    }
    return sql;
}

void addLookUpQuery(const std::u16string& sql, const ValueListSource& source, ListText& items) {
    const automation::ObjectRef info = source.factory.create(u"ORVMClass.ClassInfo");
    const Recordset rows(automation::toObject(automation::call(info, u"GetData", sql, source.props)));
    const std::int32_t count = std::min(rows.recordCount(), lastLookUpRecord);
    for (std::int32_t record = 1; record <= count; ++record, rows.moveNext()) {
        const std::u16string caption = columnText(rows, 1);
        items.add(caption, columnText(rows, 0));
    }
}

} // namespace

std::u16string BuildValueList(const conditions::CompareEntry& entry, const FieldRecord& field,
                              const ValueListSource& source, std::u16string* failure) {
    std::u16string text;
    ListText items(text);
    try {
        switch (static_cast<SourceType>(automation::toInt16(entry.FDataSourceType))) {
        case SourceType::fixedList:
            addFixedList(entry.FDataSource, items);
            break;
        case SourceType::query:
            addQuery(entry.FDataSource, source, items);
            break;
        case SourceType::distinctColumn:
            addQuery(u"SELECT DISTINCT " + field.text(fieldKey::fieldName) + u" FROM  " + field.text(u"FTableName"),
                     source, items);
            break;
        case SourceType::lookUpList:
            text = BuildLookupValueList(field, source);
            break;
        case SourceType::parameters:
            addQuery(withParameters(entry.FDataSource, entry.FValue, source), source, items);
            break;
        }
    } catch (const AutomationError& error) {
        // The list stands as far as it was built; the user may still type a value.
        if (failure != nullptr)
            *failure = error.description();
    }
    return text;
}

std::u16string BuildLookupValueList(const FieldRecord& field, const ValueListSource& source) {
    std::u16string text;
    ListText items(text);
    const auto lookUp = metadata::LookUpDescription::parse(field.text(fieldKey::lookUpList));
    if (lookUp.isValueList()) {
        metadata::provideValueList(field, lookUp.body, source.factory);
        const Dictionary list(automation::toObject(field.value(fieldKey::valueList)));
        for (const std::u16string& key : list.keys())
            items.add(automation::toText(list.get(key)), key);
    } else if (lookUp.isQuery()) {
        addLookUpQuery(lookUp.body, source, items);
    }
    return text;
}

} // namespace orv::editor
