#include "windows/views/StandardViews.h"

#include "support/PaddedItem.h"
#include "windows/views/AccessKeys.h"

#include <algorithm>

namespace orv::windows {

std::u16string captionOf(std::u16string_view item) {
    return item.size() < support::captionWidth ? std::u16string(item)
                                               : std::u16string(support::SplitLookupText(item, false));
}

namespace {

class LabelView final : public NativeView<ui::Label> {
  public:
    using NativeView::NativeView;
    bool takesFocus() const override { return false; }
    const std::u16string* caption() const override { return captionHasMarks(typed()) ? &typed().caption() : nullptr; }

  protected:
    void open(HWND parent) override {
        const DWORD prefix = captionHasMarks(typed()) ? 0 : SS_NOPREFIX;
        createControl(parent, L"STATIC", SS_LEFTNOWORDWRAP | SS_CENTERIMAGE | prefix);
    }
    void showContent() override { showText(typed().caption()); }
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        return message == reflected + WM_CTLCOLORSTATIC ? onSurface(wParam) : pass(message, wParam, lParam);
    }
};

class ButtonView final : public NativeView<ui::Button> {
  public:
    using NativeView::NativeView;
    const std::u16string* caption() const override { return &typed().caption(); }
    void pressByMnemonic() override { typed().press(); }
    bool wantsKey(const MSG& message) const override {
        return message.wParam == VK_SPACE || message.wParam == VK_RETURN;
    }

  protected:
    void open(HWND parent) override { createControl(parent, L"BUTTON", BS_PUSHBUTTON | WS_TABSTOP); }
    void showContent() override { showText(typed().caption()); }
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (!ready())
            return pass(message, wParam, lParam);
        if (message == reflected + WM_CTLCOLORBTN)
            return onSurface(wParam);
        if ((message == reflected + WM_COMMAND && HIWORD(wParam) == BN_CLICKED) ||
            (message == WM_KEYDOWN && wParam == VK_RETURN)) {
            typed().press();
            return 0;
        }
        return pass(message, wParam, lParam);
    }
};

class CheckBoxView final : public NativeView<ui::CheckBox> {
  public:
    using NativeView::NativeView;
    const std::u16string* caption() const override { return captionHasMarks(typed()) ? &typed().caption() : nullptr; }
    void pressByMnemonic() override { typed().userClick(); }
    bool wantsKey(const MSG& message) const override { return message.wParam == VK_SPACE; }

  protected:
    void open(HWND parent) override { createControl(parent, L"BUTTON", BS_3STATE | WS_TABSTOP); }
    void showContent() override {
        showText(captionHasMarks(typed()) ? typed().caption() : withoutMarks(typed().caption()));
        SendMessageW(hwnd(), BM_SETCHECK, static_cast<WPARAM>(typed().value()), 0);
    }
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (!ready())
            return pass(message, wParam, lParam);
        if (message == reflected + WM_CTLCOLORSTATIC || message == reflected + WM_CTLCOLORBTN)
            return onSurface(wParam);
        if (message == reflected + WM_COMMAND && HIWORD(wParam) == BN_CLICKED) {
            typed().userClick();
            return 0;
        }
        return pass(message, wParam, lParam);
    }
};

class ComboBoxView final : public NativeView<ui::ComboBox> {
  public:
    using NativeView::NativeView;
    bool wantsKey(const MSG& message) const override {
        const bool dropped = SendMessageW(hwnd(), CB_GETDROPPEDSTATE, 0, 0) != 0;
        return ControlView::wantsKey(message) || message.wParam == VK_F4 ||
               (dropped && (message.wParam == VK_RETURN || message.wParam == VK_ESCAPE));
    }

  protected:
    void open(HWND parent) override {
        createControl(parent, L"COMBOBOX", CBS_DROPDOWNLIST | CBS_HASSTRINGS | WS_VSCROLL | WS_TABSTOP);
    }
    /// The box is as high as its font wants and stands in the middle of its line; the window's height counts the list.
    RECT place() const override {
        RECT r = ControlView::place();
        const auto text =
            static_cast<int>(SendMessageW(window()->hwnd(), CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0));
        const int frame = 2 * GetSystemMetrics(SM_CYEDGE) + 2;
        r.top += std::max((typed().bounds().height - text - frame) / 2, 0);
        r.bottom = r.top + text + frame + dressing().px(240);
        return r;
    }
    void showContent() override {
        if (items_ != typed().items()) {
            items_ = typed().items();
            SendMessageW(hwnd(), CB_RESETCONTENT, 0, 0);
            for (const std::u16string& item : items_)
                SendMessageW(hwnd(), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(captionOf(item).c_str()));
        }
        if (SendMessageW(hwnd(), CB_GETCURSEL, 0, 0) != typed().listIndex())
            SendMessageW(hwnd(), CB_SETCURSEL, static_cast<WPARAM>(typed().listIndex()), 0);
    }
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (ready() && message == reflected + WM_COMMAND && HIWORD(wParam) == CBN_SELCHANGE && !refreshing()) {
            typed().userSelect(static_cast<int>(SendMessageW(hwnd(), CB_GETCURSEL, 0, 0)));
            refresh();
            return 0;
        }
        return pass(message, wParam, lParam);
    }

  private:
    std::vector<std::u16string> items_;
};

class ScrollBarView final : public NativeView<ui::ScrollBar> {
  public:
    using NativeView::NativeView;

  protected:
    void open(HWND parent) override { createControl(parent, L"SCROLLBAR", SBS_VERT | WS_TABSTOP); }
    void showContent() override {
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        info.nMax = typed().maximum() + pageSteps - 1;
        info.nPage = pageSteps;
        info.nPos = typed().value();
        SetScrollInfo(hwnd(), SB_CTL, &info, TRUE);
    }
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (!ready() || message != reflected + WM_VSCROLL)
            return pass(message, wParam, lParam);
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_TRACKPOS;
        GetScrollInfo(hwnd(), SB_CTL, &info);
        int value = typed().value();
        switch (LOWORD(wParam)) {
        case SB_LINEUP:
            value -= 1;
            break;
        case SB_LINEDOWN:
            value += 1;
            break;
        case SB_PAGEUP:
            value -= pageSteps;
            break;
        case SB_PAGEDOWN:
            value += pageSteps;
            break;
        case SB_TOP:
            value = 0;
            break;
        case SB_BOTTOM:
            value = typed().maximum();
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            value = info.nTrackPos;
            break;
        default:
            return 0;
        }
        typed().setValue(value);
        return 0;
    }

  private:
    /// One line of the page boxes: 24 px of 15 twips, in steps of 45.
    static constexpr int pageSteps = 8;
};

template <class View, class Model>
std::shared_ptr<ControlView> makeOf(ui::Control& model, const std::shared_ptr<Dressing>& dressing) {
    if (auto* typed = dynamic_cast<Model*>(&model))
        return std::make_shared<View>(*typed, dressing);
    return nullptr;
}

} // namespace

std::shared_ptr<ControlView> makeStandardView(ui::Control& model, const std::shared_ptr<Dressing>& dressing) {
    using Maker = std::shared_ptr<ControlView> (*)(ui::Control&, const std::shared_ptr<Dressing>&);
    constexpr Maker makers[] = {makeOf<LabelView, ui::Label>,
                                makeOf<ButtonView, ui::Button>,
                                makeOf<CheckBoxView, ui::CheckBox>,
                                makeOf<ComboBoxView, ui::ComboBox>,
                                makeOf<ScrollBarView, ui::ScrollBar>,
                                makeTabStripView,
                                makeToolbarView,
                                makeListViewView,
                                makeGridView,
                                makePanelView};
    for (const Maker make : makers) {
        if (auto view = make(model, dressing))
            return view;
    }
    return nullptr;
}

} // namespace orv::windows
