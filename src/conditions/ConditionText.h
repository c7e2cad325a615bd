#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orv::conditions {

/// One line of a condition text. There is no escaping: an item that holds a separator corrupts the text.
struct ConditionRecord {
    std::u16string left;       ///< opening brackets
    std::u16string fieldName;  ///< the field record's `FFieldName`
    std::u16string comparison; ///< selected position of the comparison list
    std::u16string value;      ///< selected position of a list, else the value's text
    std::u16string right;      ///< closing brackets
    std::u16string logic;      ///< text of the logic cell

    friend bool operator==(const ConditionRecord&, const ConditionRecord&) = default;
};

/// The text in which a scheme keeps conditions: items closed by "##<&", records closed by "||".
std::u16string formatConditionText(const std::vector<ConditionRecord>& records);

/// The records of a condition text; items that are missing read as "".
std::vector<ConditionRecord> parseConditionText(std::u16string_view text);

} // namespace orv::conditions
