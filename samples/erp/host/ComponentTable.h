#pragma once

#include "erp/host/Component.h"

#include <memory>
#include <span>
#include <string_view>

namespace orv::erp {

/// A component that the host offers.
struct ComponentClass {
    std::u16string_view progId;
    automation::ObjectRef (*make)(const HostStateRef&, std::u16string_view progId);
};

template <class Type>
automation::ObjectRef makeComponent(const HostStateRef& state, std::u16string_view progId) {
    return std::make_shared<Type>(state, progId);
}

// The components by subject, one source file each.
std::span<const ComponentClass> metadataComponents(); ///< class information and data service
std::span<const ComponentClass> profileComponents();  ///< schemes and user profiles
std::span<const ComponentClass> dataComponents();     ///< SQL for the client
std::span<const ComponentClass> lookUpComponents();   ///< look-up dialogs and account rights
std::span<const ComponentClass> periodComponents();   ///< accounting periods and wage settings
std::span<const ComponentClass> textComponents();     ///< resources, fonts, shared properties

} // namespace orv::erp
