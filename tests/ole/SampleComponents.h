#pragma once

#include "faults/FaultyHost.h"
#include "windows/Dll.h"

#include <vector>

namespace orv::windows::test {

/// The sample host's components, known to the system for the length of a test.
class RegisteredHost {
  public:
    RegisteredHost();
    RegisteredHost(const RegisteredHost&) = delete;
    RegisteredHost& operator=(const RegisteredHost&) = delete;
    ~RegisteredHost() { dll_.unregisterServer(); }

  private:
    Dll dll_{u"OrvSampleHost.dll"};
};

/// Has the control get its components from a host of this program, for the length of a test.
class ServedHost {
  public:
    /// `host` must outlive it.
    explicit ServedHost(faults::FaultyHost& host);
    ServedHost(const ServedHost&) = delete;
    ServedHost& operator=(const ServedHost&) = delete;
    ~ServedHost();

  private:
    RegisteredHost names_;
    std::vector<DWORD> classes_;
};

} // namespace orv::windows::test
