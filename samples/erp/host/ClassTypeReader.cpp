#include "erp/host/ClassTypeReader.h"

#include "automation/Coercion.h"
#include "automation/Records.h"
#include "automation/Text.h"
#include "erp/host/JsonReading.h"
#include "erp/host/JsonValues.h"

#include <nlohmann/json.hpp>
#include <set>
#include <string_view>

namespace orv::erp {

using automation::Dictionary;
using Json = nlohmann::ordered_json;

namespace {

std::vector<Dictionary> recordsOf(const Json& list, const std::string& where) {
    expectArray(list, where);
    std::vector<Dictionary> records;
    for (const Json& item : list) {
        expectObject(item, where);
        records.push_back(dictionaryOf(item));
    }
    return records;
}

automation::Date dateOf(const Json& json, const char* key, const std::string& where) {
    const std::u16string text = needText(json, key, where);
    if (!automation::isDate(text))
        failReading(where, std::string("\"") + key + "\" is not a date");
    return automation::toDate(text);
}

PeriodAnswer periodOf(const Json& json, const std::string& where) {
    PeriodAnswer answer;
    const std::string place = where + ", period";
    answer.result = flagOr(json, "result", true, place);
    readMembers(json,
                {
                    {"result", [](const Json&) {}},
                    {"year", [&](const Json&) { answer.year = needInteger(json, "year", place); }},
                    {"period", [&](const Json&) { answer.period = needInteger(json, "period", place); }},
                    {"start", [&](const Json&) { answer.start = dateOf(json, "start", place); }},
                    {"end", [&](const Json&) { answer.end = dateOf(json, "end", place); }},
                },
                place);
    return answer;
}

ListDescription listOf(const Json& json, const std::string& where) {
    const std::string place = where + ", list";
    ListDescription list{needText(json, "from", place), needText(json, "key", place), {}, {}};
    list.entryKey = textOr(json, "entryKey", place);
    if (json.contains("joins")) {
        expectArray(json["joins"], place);
        for (const Json& join : json["joins"])
            list.joins.push_back(
                {needText(join, "table", place), needText(join, "clause", place), textOr(join, "needs", place)});
    }
    return list;
}

/// Every field needs a key of its own.
void checkFields(const std::vector<Dictionary>& fields, const std::string& where) {
    std::set<std::u16string> keys;
    std::size_t position = 0;
    for (const Dictionary& field : fields) {
        const std::string place = where + ", field " + std::to_string(++position);
        if (!field.exists(u"FKey"))
            failReading(place, "\"FKey\" is missing");
        const std::u16string key = automation::toText(field.get(u"FKey"));
        if (!keys.insert(key).second)
            failReading(place, "the key \"" + automation::toUtf8(key) + "\" occurs twice");
    }
}

} // namespace

ClassTypeDescription classTypeOf(const Json& json, const std::string& part) {
    ClassTypeDescription type;
    type.id = needInteger(json, "FID", part + ", class type");
    const std::string where = part + ", class type " + std::to_string(type.id);
    type.record = automation::makeDictionary();
    type.typeList = flagOr(json, "TypeList", false, where);
    for (const auto& [key, value] : json.items()) {
        if (key == "pages") {
            type.pages = recordsOf(value, where + ", pages");
        } else if (key == "fields") {
            type.fields = recordsOf(value, where + ", fields");
        } else if (key == "selectList") {
            type.selectList = recordsOf(value, where + ", selectList");
        } else if (key == "tableInfo") {
            expectObject(value, where + ", tableInfo");
            for (const auto& [name, entry] : value.items())
                type.tableInfo.emplace_back(automation::fromUtf8(name), valueOf(entry));
        } else if (key == "period") {
            type.period = periodOf(value, where);
        } else if (key == "clsID") {
            type.clsId = needInteger(json, "clsID", where);
        } else if (key == "list") {
            type.list = listOf(value, where);
        } else {
            type.record.set(automation::fromUtf8(key), valueOf(value));
        }
    }
    checkFields(type.fields, where);
    return type;
}

} // namespace orv::erp
