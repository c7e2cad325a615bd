#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace orv::tour {

/// The list window on the screen.
class ListScreen {
  public:
    /// Awaits that the window shows its bills.
    explicit ListScreen(HWND window);

    HWND window() const noexcept { return window_; }
    HWND list() const;
    HWND filterButton() const;
    HWND classTypes() const;

    /// What the status bar says of bills and rows.
    std::wstring counts() const;
    long bills() const;
    /// The part of the SQL pane below a title; "" when the pane has no such part.
    std::wstring sql(const std::wstring& title) const;
    /// The captions of the columns, by Ctrl+C in the list: first and second line of each with "+" between.
    std::wstring copiedCaptions() const;

  private:
    HWND window_;
};

} // namespace orv::tour
