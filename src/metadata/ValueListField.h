#pragma once

#include "automation/ObjectFactory.h"
#include "metadata/FieldRecord.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace orv::metadata {

/// The look-up description of a field: a kind word before "{" and its body up to the first "}".
struct LookUpDescription {
    std::u16string kind;
    std::u16string body;

    static LookUpDescription parse(std::u16string_view lookUpList);
    bool isValueList() const { return kind == u"VALUELIST"; }
    bool isQuery() const { return kind == u"SQL"; }
};

/// Key and caption pairs of a fixed value list's body ("1=现金,2=支票"), in order. Empty pieces are passed over.
std::vector<std::pair<std::u16string, std::u16string>> parseValueList(std::u16string_view body);

/// The dictionary of a header column: key to caption, and caption back to key where no key has that name.
automation::Dictionary makeTwoWayValueList(std::u16string_view body, automation::ObjectFactory& factory);

/// Gives the field's own record its "VALUELIST" (key to caption) unless it has one.
void provideValueList(const FieldRecord& field, std::u16string_view body, automation::ObjectFactory& factory);

} // namespace orv::metadata
