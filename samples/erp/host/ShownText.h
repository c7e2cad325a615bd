#pragma once

#include "automation/Views.h"
#include "erp/db/Database.h"

#include <string>
#include <unordered_map>

namespace orv::erp {

/// What a list shows in place of a stored key: the name of the base data record or of the query's item.
class ShownText {
  public:
    /// Changes nothing.
    ShownText() = default;
    /// By the field's description: a query of keys and names, or base data whose key the field itself holds.
    static ShownText ofField(const automation::Dictionary& field, const Database& database);

    void apply(automation::Value& value) const;

  private:
    std::unordered_map<std::u16string, automation::Value> texts_; ///< by the text of the key
};

} // namespace orv::erp
