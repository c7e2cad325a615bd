#pragma once

#include "automation/Views.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>

namespace orv::metadata {

/// A key of the field record: always a literal, so that it is kept without a copy.
class FieldKey {
  public:
    consteval FieldKey(const char16_t* literal) : name_(literal) {}
    constexpr operator std::u16string_view() const noexcept { return name_; }
    friend constexpr bool operator==(FieldKey a, FieldKey b) noexcept {
        return a.name_.data() == b.name_.data() || a.name_ == b.name_;
    }

  private:
    std::u16string_view name_;
};

/// One field record of the catalogue. The record is the host's dictionary; each key is asked of it at most once and
/// then remembered, until the data service changes and with it the whole catalogue.
class FieldRecord {
  public:
    explicit FieldRecord(automation::Dictionary record) : record_(std::move(record)) {}

    /// The host's own record, shared.
    const automation::Dictionary& record() const noexcept { return record_; }

    /// The entry of `key`, Empty when the record has none.
    const automation::Value& value(FieldKey key) const;
    /// The entry as text; absent and Null read as "".
    std::u16string text(FieldKey key) const;
    /// The entry as a 32-bit integer; absent, Null and "" read as 0. Error 13 for a text that is no number.
    std::int32_t number(FieldKey key) const;
    /// The entry as a Boolean; absent, Null and "" read as False.
    bool flag(FieldKey key) const;

    /// Writes an entry into the host's record and remembers it.
    void provide(FieldKey key, const automation::Value& entry) const;

  private:
    struct Entry {
        FieldKey key;
        automation::Value value;
    };
    Entry* find(FieldKey key) const;

    automation::Dictionary record_;
    // References to entries stay good while further keys are read.
    mutable std::deque<Entry> known_;
};

using FieldRef = std::shared_ptr<const FieldRecord>;

/// Keys of the field record, spelled as the host spells them.
namespace fieldKey {
inline constexpr FieldKey key = u"FKey";
inline constexpr FieldKey caption = u"FCaption";
inline constexpr FieldKey colType = u"FColType";
inline constexpr FieldKey fieldName = u"FFieldName";
inline constexpr FieldKey fieldNameExt = u"FFieldNameExt";
inline constexpr FieldKey needAs = u"FNeedAs";
inline constexpr FieldKey page = u"FPage";
inline constexpr FieldKey visible = u"FVisible";
inline constexpr FieldKey parentKey = u"FParentKey";
inline constexpr FieldKey keyWord = u"FKeyWord";
inline constexpr FieldKey property = u"FProperty";
inline constexpr FieldKey sum = u"FSum";
inline constexpr FieldKey lookUpList = u"FLookUpList";
inline constexpr FieldKey valueList = u"VALUELIST";
inline constexpr FieldKey condition = u"FCondition";
inline constexpr FieldKey ctlType = u"FCtlType";
inline constexpr FieldKey editLen = u"FEditLen";
inline constexpr FieldKey scale = u"FSCale";
inline constexpr FieldKey sourceType = u"FSourceType";
inline constexpr FieldKey accessMask = u"FAccessMask";
inline constexpr FieldKey filterPanel = u"FFilterPanel";
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
