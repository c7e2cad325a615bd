#pragma once

#include <windows.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// Self-registration: what a DLL writes below Software\Classes, for the machine or for the user.
namespace orv::windows {

enum class RegistrationScope { machine, user };

struct ClassRegistration {
    CLSID id{};
    std::u16string description;
    std::u16string progId;  ///< without a version
    int version = 1;        ///< the number at the end of the versioned ProgID
    bool isControl = false; ///< listed among the ActiveX controls
    int miscStatus = 0;     ///< of a control: how containers treat it (OLEMISC_ values)
    int toolboxBitmap = 0;  ///< of a control: resource number of its picture in a development environment
};

/// An interface that standard marshalling reads from the type library.
struct InterfaceRegistration {
    IID id;
    std::u16string_view name;
    bool isDispinterface;
};

struct TypeLibraryRegistration {
    GUID id;
    std::u16string_view description;
    int major;
    int minor;
    LCID locale;
    std::span<const InterfaceRegistration> interfaces;
};

/// Everything that one DLL registers.
struct Registration {
    std::vector<ClassRegistration> classes;
    const TypeLibraryRegistration* typeLibrary = nullptr; ///< null for none
    std::u16string path;                                  ///< of the DLL
};

/// Writes all entries; on a failure those written until then are removed again.
HRESULT registerServer(const Registration& registration, RegistrationScope scope) noexcept;

/// Removes all entries. Absent ones are no failure. While the type library is registered for the other bitness too,
/// what both share stays: the ProgIDs and the library's own keys.
HRESULT unregisterServer(const Registration& registration, RegistrationScope scope) noexcept;

} // namespace orv::windows
