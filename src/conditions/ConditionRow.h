#pragma once

#include "automation/Views.h"
#include "metadata/FieldRecord.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace orv::conditions {

/// One comparison of those that the data service offers for a field, read once from the host's dictionary.
struct CompareEntry {
    std::u16string FName;           ///< item text of the comparison drop-down
    std::u16string FOperate;        ///< SQL operator, with its own blanks
    std::u16string FValue;          ///< keyword ("ISNULL", "TODAY", ...), or parameter names of a value list, or empty
    bool FInput = false;            ///< the user types a value
    std::u16string FInputCtlType;   ///< "0" text, "1" look-up, "2" list
    std::u16string FDataFieldIndex; ///< "2": the hidden key of a look-up cell is compared
    automation::Value FDataSourceType;
    std::u16string FDataSource;

    /// Reads an entry; absent keys and Null read as "" and False. Error 13 when `FInput` is no truth value.
    static CompareEntry read(const automation::Dictionary& entry);
};
using CompareEntryRef = std::shared_ptr<const CompareEntry>;

/// What one line of the condition grid stands for.
struct ConditionRow {
    std::u16string FLeft;
    std::u16string FFieldKey;
    std::u16string FFieldName; ///< the field's `FFieldNameExt`
    std::optional<std::int32_t> FCompareIndex;
    std::u16string FCompare;
    std::u16string FValue;
    std::optional<std::int32_t> FValueIndex;
    std::u16string FLogic; ///< " AND ", " OR " or empty
    std::optional<std::int32_t> FLogicIndex;
    std::u16string FRight;

    CompareEntryRef FCompareDct;
    metadata::FieldRef HDict;
    std::optional<std::int32_t> FColType;
};

/// A row as a line gets it first: everything empty, no field, no comparison.
ConditionRow NewConditionRow();

} // namespace orv::conditions
