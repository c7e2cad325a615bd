#pragma once

#include "windows/views/Window.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orv::windows {

/// The edit box of a cell: a real one, so that input methods, its menu and the clipboard work.
class CellEdit final : public Window {
  public:
    /// Offered every key first; true when it is used up.
    std::function<bool(WPARAM key)> onKey;

    void open(HWND grid, const RECT& bounds, HFONT font, const std::u16string& text, int maxLength, bool rightAligned);
    std::u16string text() const;
    /// Has an input method take what it is composing.
    void endComposition() const;

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

/// The list of a combo cell. The grid keeps the focus and hands it the keys.
class CellList final : public Window {
  public:
    std::function<void(int position)> onChoose;

    /// `cell` is in screen coordinates; the list goes below it, or above where there is more room.
    void open(HWND grid, const RECT& cell, HFONT font, const std::vector<std::u16string>& captions, int selected);
    int selected() const;
    void select(int position);
    int count() const;
    int pageRows() const;
    /// Adds a letter to what has been typed and goes to the first caption that begins with that, or else holds it.
    void search(char16_t letter, DWORD nowMs);

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    int itemAt(LPARAM position) const;

    std::vector<std::u16string> captions_;
    std::u16string typed_;
    DWORD typedAtMs_ = 0;
    POINT pointer_{};
};

/// The calendar of a date cell; has the focus while it is open. It begins at `date`, without one at `today`, which it
/// marks; without that it takes the machine's day.
class CellCalendar final : public ContainerWindow {
  public:
    std::function<void(const SYSTEMTIME&)> onChoose;
    std::function<void()> onCancel;

    void open(HWND grid, const RECT& cell, HFONT font, const std::optional<SYSTEMTIME>& date,
              const std::optional<SYSTEMTIME>& today);

  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  private:
    class Month;
    std::shared_ptr<Month> month_;
};

} // namespace orv::windows
