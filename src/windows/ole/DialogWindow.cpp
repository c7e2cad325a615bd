#include "windows/ole/DialogWindow.h"

#include "windows/com/Errors.h"
#include "windows/com/Handles.h"
#include "windows/com/Module.h"
#include "windows/views/Gdi.h"

#include <algorithm>
#include <vector>

namespace orv::windows {

namespace {

// Pixels at 96 dots an inch.
constexpr int margin = 12;
constexpr int gap = 6;
constexpr int contentWidth = 280;
constexpr int buttonWidth = 84;

constexpr int firstId = 100; // of the controls that are neither the default nor the cancel button

/// A dialog template without controls: they are made when the window is there and can be measured.
struct EmptyTemplate {
    DLGTEMPLATE dialog;
    WORD menu;
    WORD windowClass;
    WORD title;
};

class DialogWindow {
  public:
    DialogWindow(ui::Dialog& dialog, const Appearance& look, HWND& window)
        : dialog_(dialog), controls_(dialog.controls()), look_(look), font_(CreateFontIndirectW(&look.font)),
          window_(window) {}

    void run(HWND owner) {
        EmptyTemplate form{};
        form.dialog.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;
        DialogBoxIndirectParamW(module::instance(), &form.dialog, owner, procedure, reinterpret_cast<LPARAM>(this));
        window_ = nullptr;
    }

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
        if (message == WM_INITDIALOG)
            SetWindowLongPtrW(window, DWLP_USER, lParam);
        auto* self = reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(window, DWLP_USER));
        if (!self)
            return FALSE;
        INT_PTR handled = FALSE;
        if (FAILED(guarded([&] { handled = self->onMessage(window, message, wParam); })) && message == WM_INITDIALOG)
            EndDialog(window, 0);
        return handled;
    }

    INT_PTR onMessage(HWND window, UINT message, WPARAM wParam) {
        if (message == WM_INITDIALOG) {
            window_ = window;
            onClosed_ = dialog_.closed.subscribe([window] { EndDialog(window, 0); });
            build();
            return TRUE;
        }
        if (message == WM_COMMAND)
            return onCommand(LOWORD(wParam), HIWORD(wParam));
        return FALSE;
    }

    int px(int at96) const noexcept { return MulDiv(at96, look_.dpi, USER_DEFAULT_SCREEN_DPI); }

    void build() {
        SetWindowTextW(window_, asWide(dialog_.caption()));
        const int line = std::max(px(-MulDiv(look_.font.lfHeight, USER_DEFAULT_SCREEN_DPI, look_.dpi)), px(12)) + px(8);
        const int width = px(contentWidth);
        int top = px(margin);
        std::vector<ui::Control*> buttons;
        for (ui::Control* control : controls_) {
            if (dynamic_cast<ui::Button*>(control)) {
                buttons.push_back(control);
                continue;
            }
            open(*control, px(margin), top, width, line);
            top += line + px(gap);
        }
        top += px(gap);
        int left = px(margin) + width;
        for (auto button = buttons.rbegin(); button != buttons.rend(); ++button) {
            left -= px(buttonWidth);
            open(**button, left, top, px(buttonWidth), line + px(4));
            left -= px(gap);
        }
        // Made from right to left, gone through from left to right.
        for (ui::Control* button : buttons)
            SetWindowPos(GetDlgItem(window_, idOf(*button)), HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        centre(width + 2 * px(margin), top + line + px(4) + px(margin));
    }

    void centre(int clientWidth, int clientHeight) const {
        RECT outer{0, 0, clientWidth, clientHeight};
        AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_EXSTYLE)));
        const LONG width = outer.right - outer.left;
        const LONG height = outer.bottom - outer.top;
        const HWND owner = GetWindow(window_, GW_OWNER);
        MONITORINFO monitor{};
        monitor.cbSize = sizeof monitor;
        GetMonitorInfoW(MonitorFromWindow(owner ? owner : window_, MONITOR_DEFAULTTONEAREST), &monitor);
        const RECT& screen = monitor.rcWork;
        RECT around = screen;
        if (owner)
            GetWindowRect(owner, &around);
        const auto within = [](LONG at, LONG size, LONG low, LONG high) {
            return std::max(std::min(at, high - size), low);
        };
        const LONG left = within((around.left + around.right - width) / 2, width, screen.left, screen.right);
        const LONG top = within((around.top + around.bottom - height) / 2, height, screen.top, screen.bottom);
        SetWindowPos(window_, nullptr, static_cast<int>(left), static_cast<int>(top), static_cast<int>(width),
                     static_cast<int>(height), SWP_NOZORDER);
    }

    void open(ui::Control& control, int left, int top, int width, int height) {
        const wchar_t* windowClass = L"STATIC";
        DWORD style = WS_CHILD | WS_VISIBLE;
        DWORD exStyle = 0;
        std::u16string text;
        if (const auto* captioned = dynamic_cast<ui::CaptionControl*>(&control))
            text = captioned->caption();
        if (const auto* edit = dynamic_cast<ui::TextBox*>(&control)) {
            windowClass = L"EDIT";
            style |= WS_TABSTOP | ES_AUTOHSCROLL;
            exStyle = WS_EX_CLIENTEDGE;
            text = edit->text();
        } else if (dynamic_cast<ui::CheckBox*>(&control)) {
            windowClass = L"BUTTON";
            style |= WS_TABSTOP | BS_CHECKBOX; // the model toggles, the box shows
        } else if (dynamic_cast<ui::Button*>(&control)) {
            windowClass = L"BUTTON";
            style |= WS_TABSTOP;
            style |= &control == &dialog_.defaultButton() ? DWORD{BS_DEFPUSHBUTTON} : DWORD{BS_PUSHBUTTON};
        }
        const HWND made =
            CreateWindowExW(exStyle, windowClass, asWide(text), style, left, top, width, height, window_,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(idOf(control))), module::instance(), nullptr);
        if (!made)
            throw automation::AutomationError::runtime(automation::errorNumber::outOfMemory);
        SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
        EnableWindow(made, control.enabled());
        showCheck(control);
    }

    void showCheck(ui::Control& control) const {
        if (const auto* box = dynamic_cast<ui::CheckBox*>(&control))
            CheckDlgButton(window_, idOf(control), static_cast<UINT>(box->value()));
    }

    int idOf(const ui::Control& control) const {
        if (&control == &dialog_.defaultButton())
            return IDOK;
        if (&control == &dialog_.cancelButton())
            return IDCANCEL;
        return firstId + static_cast<int>(std::find(controls_.begin(), controls_.end(), &control) - controls_.begin());
    }

    INT_PTR onCommand(int id, WORD code) {
        for (ui::Control* control : controls_) {
            if (idOf(*control) != id)
                continue;
            if (auto* button = dynamic_cast<ui::Button*>(control); button && code == BN_CLICKED)
                button->press();
            else if (auto* box = dynamic_cast<ui::CheckBox*>(control); box && code == BN_CLICKED)
                box->userClick();
            else if (auto* edit = dynamic_cast<ui::TextBox*>(control); edit && code == EN_CHANGE)
                edit->setText(textOf(GetDlgItem(window_, id)));
            else
                return FALSE;
            if (IsWindow(window_))
                showCheck(*control);
            return TRUE;
        }
        return FALSE;
    }

    static std::u16string textOf(HWND edit) {
        std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(edit)), u'\0');
        const int length =
            GetWindowTextW(edit, reinterpret_cast<wchar_t*>(text.data()), static_cast<int>(text.size() + 1));
        text.resize(static_cast<std::size_t>(length));
        return text;
    }

    ui::Dialog& dialog_;
    std::vector<ui::Control*> controls_;
    Appearance look_;
    UniqueFont font_;
    HWND& window_;
    ui::Subscription onClosed_;
};

} // namespace

void showDialog(ui::Dialog& dialog, HWND owner, const Appearance& look, HWND& window) {
    if (dialog.isOpen())
        DialogWindow(dialog, look, window).run(owner);
    if (dialog.isOpen())
        dialog.close();
}

} // namespace orv::windows
