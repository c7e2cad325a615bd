#pragma once

#include "automation/AutomationError.h"
#include "automation/ObjectFactory.h"

namespace orv::fuzz {

/// A host without any component: the control uses its own dictionaries and collections.
class NoHost final : public automation::ObjectFactory {
  public:
    automation::ObjectRef create(std::u16string_view) override {
        throw automation::AutomationError::runtime(automation::errorNumber::cannotCreateObject);
    }
    automation::ObjectRef shared(std::u16string_view progId) override { return create(progId); }
};

} // namespace orv::fuzz
