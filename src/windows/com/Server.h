#pragma once

#include "windows/com/ComPtr.h"
#include "windows/com/Registration.h"

#include <windows.h>

#include <functional>
#include <vector>

namespace orv::windows {

/// A class that a DLL serves.
struct ServedClass {
    ClassRegistration registration;
    /// A new object; raises AutomationError.
    std::function<ComPtr<IUnknown>()> create;
};

/// What a DLL serves. Each DLL that links the entry points (Exports.cpp) defines its own.
struct Server {
    std::vector<ServedClass> classes;
    /// Null when the DLL carries no type library.
    const TypeLibraryRegistration* typeLibrary = nullptr;
};
Server describeServer();

/// The class factory of a class.
ComPtr<IUnknown> makeClassFactory(std::function<ComPtr<IUnknown>()> create);

} // namespace orv::windows
