#pragma once

#include "tour/Grid.h"

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace orv::tour {

/// The filter dialog on the screen, and the parts of the control in it.
class FilterScreen {
  public:
    /// Awaits the dialog.
    FilterScreen();

    HWND dialog() const noexcept { return dialog_; }
    HWND control() const noexcept { return control_; }
    HWND ok() const { return GetDlgItem(dialog_, IDOK); }
    HWND cancel() const { return GetDlgItem(dialog_, IDCANCEL); }

    HWND tabs() const;
    HWND toolbar() const;
    HWND schemes() const;
    /// The window of the grid on the page that is open.
    HWND gridWindow() const;
    Grid grid() const { return Grid(gridWindow()); }
    HWND button(const std::wstring& caption) const;
    /// The combo box behind a label.
    HWND combo(const std::wstring& label) const;

    int page() const;
    RECT tabPlace(int page) const;
    RECT toolPlace(int tool) const;
    int schemeCount() const;
    std::wstring schemeName(int item) const;
    int selectedScheme() const;
    RECT schemePlace(int item) const;
    /// The item of a scheme's name; -1 without one.
    int findScheme(const std::wstring& name) const;

  private:
    HWND dialog_;
    HWND control_;
};

/// The chosen item's text.
std::wstring shownIn(HWND combo);
std::wstring listText(HWND listBox, int item);
/// The position of a text in a list box; a TourError without one.
int listPosition(HWND listBox, const std::wstring& text);

} // namespace orv::tour
