#pragma once

#include "tour/FilterScreen.h"

#include <string>

namespace orv::tour {

/// One way of using the filter dialog: by keys alone, or by the mouse alone. Every member awaits what should come of
/// it.
class Hand {
  public:
    explicit Hand(const FilterScreen& screen) : screen_(screen) {}
    Hand(const Hand&) = delete;
    Hand& operator=(const Hand&) = delete;
    virtual ~Hand() = default;

    /// Goes to a cell of the grid on the open page.
    virtual void go(int column, int row) = 0;
    /// Chooses from the list of a cell.
    virtual void choose(int column, int row, const std::wstring& caption) = 0;
    /// Enters a text, or a date as "yyyy-mm-dd", into a cell without a list.
    virtual void enter(int column, int row, const std::wstring& text) = 0;
    virtual void toggle(int column, int row) = 0;
    virtual void openPage(int page) = 0;
    virtual void pressButton(HWND button) = 0;
    /// Presses a button of the scheme toolbar: 1 save, 2 delete, 3 clear, 4 view.
    virtual void pressTool(int tool) = 0;
    virtual void select(HWND combo, const std::wstring& caption) = 0;
    virtual void openScheme(const std::wstring& name) = 0;
    /// F7 in the active cell; picks a record of the look-up window by its number.
    virtual void lookUp(int column, int row, const std::wstring& number) = 0;
    /// Ends the dialog with its button 确定.
    virtual void accept() = 0;

    const FilterScreen& screen() const noexcept { return screen_; }

  private:
    const FilterScreen& screen_;
};

} // namespace orv::tour
