#pragma once

#include "windows/com/ComPtr.h"
#include "windows/com/Handles.h"

#include <ORVFilter.h>

#include <string>

namespace orv::windows::test {

/// A DLL of this build, from the folder "bin" beside the folder of the test program.
class Dll {
  public:
    /// Raises std::runtime_error when it cannot be loaded.
    explicit Dll(const std::u16string& file);
    Dll(const Dll&) = delete;
    Dll& operator=(const Dll&) = delete;
    ~Dll();

    static std::u16string pathOf(const std::u16string& file);
    HMODULE handle() const noexcept { return module_; }

    HRESULT getClassObject(REFCLSID id, REFIID interfaceId, void** out) const;
    bool canUnload() const;
    HRESULT registerServer() const;
    HRESULT unregisterServer() const;
    HRESULT install(bool add, const wchar_t* scope) const;

    /// A new object of a class; raises std::runtime_error when there is none.
    template <class T>
    ComPtr<T> create(REFCLSID id) const {
        ComPtr<T> made;
        createObject(id, __uuidof(T), made.putVoid());
        return made;
    }

  private:
    template <class Function>
    Function entry(const char* name) const;
    void createObject(REFCLSID id, REFIID interfaceId, void** out) const;

    HMODULE module_;
};

/// The control, loaded from the build folder without any registration.
struct LoadedFilter {
    Dll dll{u"ORVFilter.ocx"};
    ComPtr<_Filter> filter = dll.create<_Filter>(__uuidof(::Filter));
};

} // namespace orv::windows::test
