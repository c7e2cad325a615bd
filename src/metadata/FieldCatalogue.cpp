#include "metadata/FieldCatalogue.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"

#include <algorithm>

namespace orv::metadata {

using automation::AutomationError;
using automation::Value;
namespace errorNumber = automation::errorNumber;

namespace {
/// A mark that the host may leave out, empty or Null; 1 (and True) sets it.
bool isSet(const Value& mark) {
    if (mark.isEmpty() || mark.isNull())
        return false;
    const std::int32_t number = automation::toInt32(mark);
    return number == 1 || (mark.is<bool>() && number != 0);
}
} // namespace

SelectItem::SelectItem(automation::Dictionary item) : item_(std::move(item)) {
    fkey_ = automation::toText(item_.get(u"Fkey"));
}

bool SelectItem::visible() {
    if (!visible_) {
        const Value flag = item_.getValue(u"FVisible", true);
        visible_ = !flag.isNull() && automation::toBoolean(flag);
    }
    return *visible_;
}

const Value& SelectItem::decimalMark() {
    if (!decimal_) {
        Value mark = item_.getValue(u"Decimal", Value(std::int32_t{0}));
        decimal_ = mark.isEmpty() || mark.isNull() ? Value(std::int32_t{0}) : std::move(mark);
    }
    return *decimal_;
}

bool SelectItem::isDecimal() {
    return isSet(decimalMark());
}

bool SelectItem::mustGet() {
    if (!mustGet_)
        mustGet_ = isSet(item_.getValue(u"FMustGet", Value(std::int32_t{0})));
    return *mustGet_;
}

std::int32_t FieldCatalogue::count() {
    if (!count_)
        count_ = selectList_ ? selectList_.count() : 0;
    return *count_;
}

SelectItem& FieldCatalogue::item(std::int32_t position) {
    if (position < 1 || position > count())
        throw AutomationError::runtime(errorNumber::subscriptOutOfRange);
    const auto index = static_cast<std::size_t>(position - 1);
    if (index >= items_.size() || !items_[index]) {
        auto item = std::make_shared<SelectItem>(selectList_.record(position));
        // Room is made for items that are there, not for as many as the list says it has.
        items_.resize(std::max(items_.size(), index + 1));
        items_[index] = std::move(item);
    }
    return *items_[index];
}

FieldRef FieldCatalogue::field(std::int32_t position) {
    const auto index = static_cast<std::size_t>(position - 1);
    const std::u16string& key = item(position).Fkey();
    if (index < fieldsByPosition_.size() && fieldsByPosition_[index])
        return fieldsByPosition_[index];
    FieldRef field = fieldByKey(key);
    fieldsByPosition_.resize(std::max(fieldsByPosition_.size(), index + 1));
    fieldsByPosition_[index] = field;
    return field;
}

FieldRef FieldCatalogue::fieldByKey(const std::u16string& key) {
    if (const auto known = fields_.find(key); known != fields_.end())
        return known->second;
    auto field = std::make_shared<const FieldRecord>(automation::Dictionary(automation::toObject(tableInfo_.get(key))));
    fields_.emplace(key, field);
    return field;
}

} // namespace orv::metadata
