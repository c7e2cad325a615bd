#include "erp/host/TextTable.h"

#include "automation/Object.h"
#include "automation/Text.h"
#include "erp/host/JsonReading.h"
#include "erp/metadata/Embedded.h"

#include <nlohmann/json.hpp>

namespace orv::erp {

using Json = nlohmann::ordered_json;

const TextTable& TextTable::design() {
    static const TextTable table(embeddedTexts());
    return table;
}

const TextTable& TextTable::list() {
    static const TextTable table(embeddedListTexts());
    return table;
}

TextTable::TextTable(std::string_view json) {
    constexpr std::string_view where = "resource texts";
    const Json list = Json::parse(json, nullptr, false);
    if (list.is_discarded())
        failReading(where, "not valid JSON");
    expectArray(list, where);
    for (const Json& item : list) {
        Entry entry{needText(item, "CHS", where), needText(item, "CHT", where), needText(item, "EN", where)};
        if (!byText_.emplace(entry.chs, entries_.size()).second)
            failReading(where, "\"" + automation::toUtf8(entry.chs) + "\" occurs twice");
        entries_.push_back(std::move(entry));
    }
}

std::u16string TextTable::translate(std::u16string_view chs, std::u16string_view language) const {
    const auto found = byText_.find(chs);
    if (found != byText_.end() && automation::sameMember(language, u"CHT"))
        return entries_[found->second].cht;
    if (found != byText_.end() && automation::sameMember(language, u"EN"))
        return entries_[found->second].en;
    return std::u16string(chs);
}

} // namespace orv::erp
