#include "erp/host/DescriptionReader.h"

#include "automation/Coercion.h"
#include "automation/Records.h"
#include "automation/Text.h"
#include "erp/host/ClassTypeReader.h"
#include "erp/host/JsonReading.h"
#include "erp/host/JsonValues.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace orv::erp {

using automation::Dictionary;
using automation::Null;
using automation::Value;
using Json = nlohmann::ordered_json;

namespace {

/// Rows of a JSON table: objects whose keys are the columns, in the order in which they first occur; what a row does
/// not say is Null.
ResultSet rowsOf(const Json& json, std::string_view where) {
    expectArray(json, where);
    ResultSet table;
    for (const Json& row : json) {
        expectObject(row, where);
        for (const auto& [key, value] : row.items()) {
            const std::u16string column = automation::fromUtf8(key);
            if (std::ranges::find(table.columns, column) == table.columns.end())
                table.columns.push_back(column);
        }
    }
    for (const Json& row : json) {
        auto& values = table.rows.emplace_back();
        for (const auto& column : table.columns) {
            const auto cell = row.find(automation::toUtf8(column));
            if (cell != row.end() && cell->is_structured())
                failReading(where, "a cell must be a number, a text, true, false or null");
            values.push_back(cell == row.end() ? Value(Null{}) : valueOf(*cell));
        }
    }
    return table;
}

/// Names go into statements as they stand.
void checkName(std::u16string_view name, std::string_view where) {
    const auto isNameUnit = [](char16_t unit) {
        return unit == u'_' || (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'z') ||
               (unit >= u'A' && unit <= u'Z');
    };
    if (name.empty() || !std::ranges::all_of(name, isNameUnit) || (name[0] >= u'0' && name[0] <= u'9'))
        failReading(where, "names of tables and columns are of letters, digits and _");
}

/// A table is its rows, or an object of "types" (column: type) and "rows".
DescribedTable tableOf(const std::string& name, const Json& json, const std::string& where) {
    DescribedTable table{automation::fromUtf8(name), {}, {}};
    if (json.is_array()) {
        table.content = rowsOf(json, where);
    } else {
        const Json& types = need(json, "types", where);
        expectObject(types, where);
        table.content = rowsOf(need(json, "rows", where), where);
        for (const auto& column : types.items()) {
            const std::u16string columnName = automation::fromUtf8(column.key());
            table.types.emplace_back(columnName, needText(types, column.key().c_str(), where));
            if (std::ranges::find(table.content.columns, columnName) == table.content.columns.end()) {
                table.content.columns.push_back(columnName);
                for (auto& row : table.content.rows)
                    row.push_back(Null{});
            }
        }
    }
    for (const auto& column : table.content.columns)
        checkName(column, where);
    checkName(table.name, where);
    if (table.content.columns.empty())
        failReading(where, "a table needs a column");
    return table;
}

} // namespace

void DescriptionReader::read(std::string_view json) {
    Json root;
    try {
        root = Json::parse(json);
    } catch (const Json::parse_error& error) {
        failReading(name_, error.what());
    }
    auto& to = description_;
    readMembers(root,
                {
                    {"classTypes",
                     [this](const Json& list) {
                         expectArray(list, name_ + ", classTypes");
                         for (const Json& item : list)
                             readClassType(item);
                     }},
                    {"conditions", [this](const Json& sets) { readConditions(sets); }},
                    {"baseFields", [&](const Json& rows) { to.baseFields_ = rowsOf(rows, name_ + ", baseFields"); }},
                    {"tables", [this](const Json& tables) { readTables(tables); }},
                    {"lookUpClasses", [this](const Json& list) { readLookUpClasses(list); }},
                    {"deniedAccounts", [this](const Json& list) { readDeniedAccounts(list); }},
                    {"settings",
                     [&](const Json& object) {
                         expectObject(object, name_ + ", settings");
                         to.settings_ = dictionaryOf(object);
                     }},
                    {"fieldDefaults",
                     [&](const Json& object) {
                         expectObject(object, name_ + ", fieldDefaults");
                         to.fieldDefaults_ = dictionaryOf(object);
                     }},
                },
                name_);
}

void DescriptionReader::readClassType(const Json& json) {
    description_.classTypes_.push_back(classTypeOf(json, name_));
}

void DescriptionReader::readConditions(const Json& sets) {
    expectObject(sets, name_ + ", conditions");
    for (const auto& [set, entries] : sets.items()) {
        const std::string where = name_ + ", comparison set " + set;
        expectArray(entries, where);
        auto& list = description_.conditions_[automation::fromUtf8(set)];
        for (const Json& entry : entries) {
            expectObject(entry, where);
            list.push_back(dictionaryOf(entry));
        }
    }
}

void DescriptionReader::readTables(const Json& tables) {
    expectObject(tables, name_ + ", tables");
    for (const auto& [table, content] : tables.items())
        description_.tables_.push_back(tableOf(table, content, name_ + ", table " + table));
}

void DescriptionReader::readLookUpClasses(const Json& list) {
    const std::string where = name_ + ", lookUpClasses";
    expectArray(list, where);
    for (const Json& item : list) {
        LookUpClass& place = description_.lookUpClasses_.emplace_back();
        place.id = needInteger(item, "class", where);
        place.table = needText(item, "table", where);
        place.filter = textOr(item, "filter", where);
        if (item.contains("number"))
            place.numberColumn = needText(item, "number", where);
        place.name = textOr(item, "name", where);
        if (!item.contains("columns"))
            continue;
        const Json& columns = item["columns"];
        expectObject(columns, where);
        for (const auto& column : columns.items())
            place.columns.push_back(
                {automation::fromUtf8(column.key()), needText(columns, column.key().c_str(), where)});
    }
}

void DescriptionReader::readDeniedAccounts(const Json& list) {
    const std::string where = name_ + ", deniedAccounts";
    expectArray(list, where);
    for (const Json& item : list)
        description_.deniedAccounts_.emplace_back(needInteger(item, "FUserID", where),
                                                  needText(item, "FNumber", where));
}

} // namespace orv::erp
