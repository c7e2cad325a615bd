#include "metadata/ValueListField.h"

#include "support/Pieces.h"

namespace orv::metadata {

using automation::Dictionary;

LookUpDescription LookUpDescription::parse(std::u16string_view lookUpList) {
    LookUpDescription result;
    const auto open = lookUpList.find(u'{');
    result.kind = lookUpList.substr(0, open);
    if (open != std::u16string_view::npos) {
        const std::u16string_view rest = lookUpList.substr(open + 1);
        result.body = rest.substr(0, rest.find(u'}'));
    }
    return result;
}

std::vector<std::pair<std::u16string, std::u16string>> parseValueList(std::u16string_view body) {
    std::vector<std::pair<std::u16string, std::u16string>> pairs;
    while (!body.empty()) {
        const auto comma = body.find(u',');
        const std::u16string_view piece = body.substr(0, comma);
        if (!piece.empty())
            pairs.emplace_back(support::GetPiece(piece, 1, u"="), support::GetPiece(piece, 2, u"="));
        body = comma == std::u16string_view::npos ? std::u16string_view() : body.substr(comma + 1);
    }
    return pairs;
}

Dictionary makeTwoWayValueList(std::u16string_view body, automation::ObjectFactory& factory) {
    const auto pairs = parseValueList(body);
    Dictionary list = automation::newRecord(factory);
    for (const auto& [key, caption] : pairs)
        list.set(key, caption);
    for (const auto& [key, caption] : pairs) {
        // A caption that is also a key keeps its meaning as a key.
        if (!list.exists(caption))
            list.set(caption, key);
    }
    return list;
}

void provideValueList(const FieldRecord& field, std::u16string_view body, automation::ObjectFactory& factory) {
    if (field.value(fieldKey::valueList).isObject())
        return;
    Dictionary list = automation::newRecord(factory);
    for (const auto& [key, caption] : parseValueList(body))
        list.set(key, caption);
    field.provide(fieldKey::valueList, list.object());
}

} // namespace orv::metadata
