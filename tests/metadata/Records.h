#pragma once

#include "automation/AutomationError.h"
#include "automation/ObjectFactory.h"
#include "automation/Records.h"
#include "metadata/FieldCatalogue.h"

#include <string>
#include <utility>
#include <vector>

namespace orv::tests {

using Entries = std::vector<std::pair<std::u16string, automation::Value>>;

inline automation::Dictionary record(const Entries& entries) {
    automation::Dictionary result = automation::makeDictionary();
    for (const auto& [key, value] : entries)
        result.set(key, value);
    return result;
}

/// A factory without any component: records are the control's own.
class NoComponents final : public automation::ObjectFactory {
  public:
    automation::ObjectRef create(std::u16string_view) override {
        throw automation::AutomationError::runtime(automation::errorNumber::cannotCreateObject);
    }
    automation::ObjectRef shared(std::u16string_view progId) override { return create(progId); }
};

/// A catalogue under construction: each field gets its select list item and its record.
class CatalogueBuilder {
  public:
    /// `marks` are extra entries of the select list item.
    CatalogueBuilder& field(Entries fields, Entries marks = {}) {
        const std::u16string key = std::get<std::u16string>(fields.front().second.storage());
        automation::Dictionary item = record({{u"Fkey", key}, {u"FVisible", true}});
        for (const auto& [name, value] : marks)
            item.set(name, value);
        selectList.add(item.object());
        automation::Dictionary full = record({{u"FPage", 1},
                                              {u"FColType", 1},
                                              {u"FCaption", key},
                                              {u"FFieldName", u"n_" + key},
                                              {u"FFieldNameExt", u"t." + key},
                                              {u"FNeedAs", false}});
        for (const auto& [name, value] : fields)
            full.set(name, value);
        tableInfo.set(key, full.object());
        return *this;
    }
    metadata::FieldCatalogue catalogue() const { return {selectList, tableInfo}; }

    automation::Collection selectList = automation::makeCollection();
    automation::Dictionary tableInfo = automation::makeDictionary();
};

} // namespace orv::tests
