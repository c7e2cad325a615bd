#pragma once

#include "automation/Object.h"
#include "conditions/ConditionRow.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace orv::editor {

/// The comparisons that a data service offers, by a field's `FCondition`. Each set is asked of the service once and
/// kept as long as the service.
class Comparisons {
  public:
    explicit Comparisons(automation::ObjectRef dataService) : dataService_(std::move(dataService)) {}

    using Entries = std::vector<conditions::CompareEntryRef>;
    /// The comparisons of a set, in the service's order.
    std::shared_ptr<const Entries> entries(const automation::Value& condition);

  private:
    automation::ObjectRef dataService_;
    std::map<std::u16string, std::shared_ptr<const Entries>> known_;
};

/// The drop-down list of a set, items joined by tabs. An item is the caption padded to 255 characters and the
/// comparison's position; a caption of more than 255 characters carries its key already.
std::u16string comparisonList(const Comparisons::Entries& entries);

} // namespace orv::editor
