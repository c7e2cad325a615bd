#pragma once

#include "faults/Sessions.h"
#include "ole/Container.h"
#include "ole/User.h"

#include <oleacc.h>

namespace orv::windows::test {

/// The window of a form that is closed before the control knows: a child of the shared one, which is made faster.
class InnerWindow {
  public:
    InnerWindow();
    InnerWindow(const InnerWindow&) = delete;
    InnerWindow& operator=(const InnerWindow&) = delete;
    ~InnerWindow() { close(); }
    HWND hwnd() const noexcept { return hwnd_; }
    void close() noexcept;

  private:
    HWND hwnd_;
};

/// A form with the control on it, set up on the sample's small class types.
class Form {
  public:
    explicit Form(faults::FaultyHost& host);

    /// Hands the control a new data service and has it read both class types; false when it says that it could not.
    bool setUp(faults::FaultyHost& host) const;

    HWND withText(const wchar_t* text) const { return childWithText(control_.window(), text); }
    HWND ofClass(const wchar_t* className) const { return childOfClass(control_.window(), className); }
    HWND grid() const { return withText(L"条件"); }
    /// The active cell of the grid, as assistive programs know it; null without one.
    ComPtr<IAccessible> activeCell() const;

    const Embedded& control() const noexcept { return control_; }
    automation::ObjectRef filter() const;

    /// The references to the control that are left when the host has let go of all of its own.
    ULONG close(bool windowFirst);
    bool isClosed() const noexcept { return !control_.loaded.filter; }

  private:
    InnerWindow window_;
    Embedded control_{window_.hwnd()};
};

/// The child identifier by which an accessible object names itself.
VARIANT itself() noexcept;

} // namespace orv::windows::test
