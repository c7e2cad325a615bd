#pragma once

#include <windows.h>

#include <string>

namespace orv::windows {

/// The DLL that this code is linked into, and what keeps it loaded.
namespace module {

/// To be called once from DllMain; a program that never calls it stands for itself.
void setInstance(HINSTANCE instance) noexcept;
HINSTANCE instance() noexcept;
/// Full path of the file.
std::u16string path();

/// Live COM objects plus server locks. The DLL may be unloaded at 0 only.
long useCount() noexcept;
void addUse() noexcept;
void releaseUse() noexcept;

} // namespace module

/// Counts its owner as a live object of the module.
class ModuleUse {
  public:
    ModuleUse() noexcept { module::addUse(); }
    ModuleUse(const ModuleUse&) noexcept { module::addUse(); }
    ModuleUse& operator=(const ModuleUse&) noexcept = default;
    ~ModuleUse() { module::releaseUse(); }
};

} // namespace orv::windows
