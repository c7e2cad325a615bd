#pragma once

#include "automation/Coercion.h"
#include "automation/Views.h"

#include <cstdint>
#include <string>

// Entries of a record that the host may leave out, empty or Null.
namespace orv::editor {

inline std::u16string entryText(const automation::Dictionary& record, std::u16string_view key) {
    const automation::Value entry = record.getValue(key, automation::Value());
    return automation::isBlank(entry) ? std::u16string() : automation::toText(entry);
}

inline std::int32_t entryNumber(const automation::Dictionary& record, std::u16string_view key) {
    const automation::Value entry = record.getValue(key, automation::Value());
    return automation::isBlank(entry) ? 0 : automation::toInt32(entry);
}

} // namespace orv::editor
