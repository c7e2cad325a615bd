#pragma once

#include <windows.h>

#include <string>

namespace orv::tour {

/// The list window's program, started on a desktop and ended with it.
class Program {
  public:
    /// `command`: the program and its options; `desktop`: name of the desktop, "" for the present one.
    Program(std::wstring command, std::wstring desktop);
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;
    /// Ends the program by force when it still runs: the tour has failed.
    ~Program();

    /// Its list window; awaited.
    HWND window() const;
    /// Closes the list window by Alt+F4; the exit code of the program.
    DWORD close();

  private:
    PROCESS_INFORMATION process_{};
};

} // namespace orv::tour
