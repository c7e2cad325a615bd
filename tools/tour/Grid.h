#pragma once

#include <windows.h>

#include <string>

struct IAccessible;

namespace orv::tour {

/// One of the control's grids, as assistive programs see it: texts and places of its cells. Lines and columns count
/// from 1.
class Grid {
  public:
    /// Awaits that the window answers for its grid.
    explicit Grid(HWND window);
    Grid(const Grid&) = delete;
    Grid& operator=(const Grid&) = delete;
    ~Grid();

    HWND window() const noexcept { return window_; }
    std::wstring name() const;
    int rows() const;
    std::wstring text(int column, int row) const;
    bool isActive(int column, int row) const;
    bool isChecked(int column, int row) const;
    /// Whether a list or a calendar opens there.
    bool opensPopup(int column, int row) const;
    bool hasList(int column, int row) const;
    /// On the screen; empty while the cell is out of sight.
    RECT place(int column, int row) const;

  private:
    long state(int column, int row) const;

    HWND window_;
    IAccessible* table_ = nullptr;
};

} // namespace orv::tour
