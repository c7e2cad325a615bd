#pragma once

#include "automation/Object.h"
#include "automation/Views.h"

#include <string_view>

namespace orv::automation {

/// Creates components by ProgID. One factory serves one control.
class ObjectFactory {
  public:
    virtual ~ObjectFactory() = default;

    /// A new component; raises error 429 when there is none of that name, or the component's own failure.
    virtual ObjectRef create(std::u16string_view progId) = 0;

    /// The component that is created on first use and then kept for the process (look-up services, loaders).
    /// A failed creation is tried again at the next use.
    virtual ObjectRef shared(std::u16string_view progId) = 0;
};

/// A dictionary for a record that crosses to the host: the host's own class where it can be created, else ours.
Dictionary newRecord(ObjectFactory& factory);
/// A collection that crosses to the host, likewise.
Collection newCollection(ObjectFactory& factory);

} // namespace orv::automation
