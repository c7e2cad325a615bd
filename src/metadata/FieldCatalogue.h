#pragma once

#include "automation/Views.h"
#include "metadata/FieldRecord.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace orv::metadata {

/// One item of the data service's select list, each key asked of the host at most once.
class SelectItem {
  public:
    explicit SelectItem(automation::Dictionary item);

    /// The field key; the host spells this one entry with a small k.
    const std::u16string& Fkey() const noexcept { return fkey_; }
    bool visible();
    /// The marks "Decimal" and "FMustGet"; 0 when absent.
    const automation::Value& decimalMark();
    bool isDecimal();
    bool mustGet();
    /// The mark "HaveSel" as the present build has it. The host sees it when it is written.
    void setHaveSel(bool value) noexcept { haveSel_ = value; }
    bool haveSel() const noexcept { return haveSel_; }
    void writeHaveSel() const { item_.set(u"HaveSel", haveSel_); }

  private:
    automation::Dictionary item_;
    std::u16string fkey_;
    std::optional<bool> visible_;
    std::optional<automation::Value> decimal_;
    std::optional<bool> mustGet_;
    bool haveSel_ = false;
};

/// The fields of a class type, in the order of the select list: how records are found by position and by key.
/// Reads the host's tables on demand and keeps what it read; a new data service gets a new catalogue.
class FieldCatalogue {
  public:
    FieldCatalogue(automation::Collection selectList, automation::Dictionary tableInfo)
        : selectList_(std::move(selectList)), tableInfo_(std::move(tableInfo)) {}

    /// The number of select list items; 0 without a select list.
    std::int32_t count();
    /// Item `position` (1-based); error 9 beyond the list.
    SelectItem& item(std::int32_t position);
    /// The field record of item `position`; the table information's own error when it has none of that key.
    FieldRef field(std::int32_t position);
    /// The field record of a key, by exact spelling.
    FieldRef fieldByKey(const std::u16string& key);

    const automation::Dictionary& tableInfo() const noexcept { return tableInfo_; }

  private:
    automation::Collection selectList_;
    automation::Dictionary tableInfo_;
    std::optional<std::int32_t> count_;
    std::vector<std::shared_ptr<SelectItem>> items_;
    std::vector<FieldRef> fieldsByPosition_; ///< as far as they have been asked for
    std::unordered_map<std::u16string, FieldRef> fields_;
};

} // namespace orv::metadata
