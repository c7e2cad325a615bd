#pragma once

#include "automation/Views.h"

#include <cstdint>
#include <forward_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace orv::metadata {

/// One field record of the catalogue. The record is the host's dictionary; each key is asked of it at most once and
/// then remembered, until the data service changes and with it the whole catalogue.
class FieldRecord {
  public:
    explicit FieldRecord(automation::Dictionary record) : record_(std::move(record)) {}

    /// The host's own record, shared.
    const automation::Dictionary& record() const noexcept { return record_; }

    /// The entry of `key`, Empty when the record has none.
    const automation::Value& value(std::u16string_view key) const;
    /// The entry as text; absent and Null read as "".
    std::u16string text(std::u16string_view key) const;
    /// The entry as a 32-bit integer; absent, Null and "" read as 0. Error 13 for a text that is no number.
    std::int32_t number(std::u16string_view key) const;
    /// The entry as a Boolean; absent, Null and "" read as False.
    bool flag(std::u16string_view key) const;

    /// Writes an entry into the host's record and remembers it.
    void provide(std::u16string_view key, const automation::Value& entry) const;

  private:
    automation::Dictionary record_;
    // A list: references to entries stay good while further keys are read.
    mutable std::forward_list<std::pair<std::u16string, automation::Value>> known_;
};

using FieldRef = std::shared_ptr<const FieldRecord>;

/// Keys of the field record, spelled as the host spells them.
namespace fieldKey {
inline constexpr std::u16string_view key = u"FKey";
inline constexpr std::u16string_view caption = u"FCaption";
inline constexpr std::u16string_view colType = u"FColType";
inline constexpr std::u16string_view fieldName = u"FFieldName";
inline constexpr std::u16string_view fieldNameExt = u"FFieldNameExt";
inline constexpr std::u16string_view needAs = u"FNeedAs";
inline constexpr std::u16string_view page = u"FPage";
inline constexpr std::u16string_view visible = u"FVisible";
inline constexpr std::u16string_view parentKey = u"FParentKey";
inline constexpr std::u16string_view keyWord = u"FKeyWord";
inline constexpr std::u16string_view property = u"FProperty";
inline constexpr std::u16string_view sum = u"FSum";
inline constexpr std::u16string_view lookUpList = u"FLookUpList";
inline constexpr std::u16string_view valueList = u"VALUELIST";
inline constexpr std::u16string_view condition = u"FCondition";
inline constexpr std::u16string_view ctlType = u"FCtlType";
inline constexpr std::u16string_view editLen = u"FEditLen";
inline constexpr std::u16string_view scale = u"FSCale";
inline constexpr std::u16string_view sourceType = u"FSourceType";
inline constexpr std::u16string_view accessMask = u"FAccessMask";
inline constexpr std::u16string_view filterPanel = u"FFilterPanel";
} // namespace fieldKey

/// Column type codes that have a meaning of their own beyond the numeric sets.
namespace colType {
inline constexpr std::int32_t date = 0;
/// A condition row without a field, and account fields.
inline constexpr std::int32_t none = 500;
/// Passes through scalar comparisons unquoted and unchecked.
inline constexpr std::int32_t raw = 501;
} // namespace colType

/// The `FSourceType` of date-time fields: date in column 4, time in column 5 of the value area.
inline constexpr std::int32_t sourceTypeDateTime = 13;

} // namespace orv::metadata
