#pragma once

#include <windows.h>

#include <string>
#include <utility>

namespace orv::windows {

/// An owned registry key. Failures are result codes.
class RegistryKey {
  public:
    RegistryKey() = default;
    RegistryKey(RegistryKey&& other) noexcept : key_(std::exchange(other.key_, nullptr)) {}
    RegistryKey& operator=(RegistryKey&& other) noexcept {
        std::swap(key_, other.key_);
        return *this;
    }
    ~RegistryKey() {
        if (key_)
            RegCloseKey(key_);
    }

    /// Opens a key below `parent`, made when it is not there.
    HRESULT create(HKEY parent, const std::u16string& path) noexcept;
    /// Opens a key; a failure when it is not there.
    HRESULT open(HKEY parent, const std::u16string& path) noexcept;
    /// Writes a text value; the empty name is the default value.
    HRESULT setText(const std::u16string& name, const std::u16string& text) noexcept;
    bool hasSubkeys() const noexcept;
    bool hasValues() const noexcept;
    HKEY get() const noexcept { return key_; }

  private:
    HKEY key_ = nullptr;
};

/// Deletes a key with all that is in it; an absent one is no failure.
HRESULT deleteTree(HKEY parent, const std::u16string& path) noexcept;

} // namespace orv::windows
