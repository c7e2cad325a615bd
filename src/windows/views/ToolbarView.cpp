#include "ui/Toolbar.h"
#include "windows/views/Pictures.h"
#include "windows/views/StandardViews.h"

#include <commctrl.h>

#include <algorithm>

namespace orv::windows {

namespace {

/// Commands of menu items count from here, so that they differ from those of buttons.
constexpr UINT firstMenuCommand = 1000;

class ToolbarView final : public NativeView<ui::Toolbar> {
  public:
    using NativeView::NativeView;
    ~ToolbarView() override {
        destroy();
        dropImages();
    }
    bool wantsKey(const MSG& message) const override {
        return ControlView::wantsKey(message) || message.wParam == VK_RETURN || message.wParam == VK_F4;
    }
    void redress() override {
        pictureSize_ = 0;
        ControlView::redress();
    }

  protected:
    void open(HWND parent) override {
        createControl(parent, TOOLBARCLASSNAMEW,
                      TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_TOOLTIPS | CCS_NOPARENTALIGN | CCS_NORESIZE |
                          CCS_NODIVIDER | WS_TABSTOP);
        SendMessageW(hwnd(), TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
        SendMessageW(hwnd(), TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_MIXEDBUTTONS | TBSTYLE_EX_DRAWDDARROWS);
    }
    void showContent() override {
        // With captions where they fit beside the pictures, else the tool tips tell.
        const bool captions = typed().bounds().width >= typed().count() * dressing().px(52);
        const bool same = captions == captions_ && pictureSize_ == dressing().px(16) && shown_.size() == keys().size();
        if (!same || shown_ != keys())
            rebuild(captions);
    }
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (!ready())
            return pass(message, wParam, lParam);
        if (message == reflected + WM_COMMAND) {
            press(LOWORD(wParam));
            return 0;
        }
        if (message == reflected + WM_NOTIFY) {
            auto* header = reinterpret_cast<NMHDR*>(lParam);
            if (header->code == TBN_DROPDOWN) {
                dropMenu(reinterpret_cast<const NMTOOLBARW*>(lParam)->iItem);
                return TBDDRET_DEFAULT;
            }
            if (header->code == TBN_GETINFOTIPW)
                tellTip(*reinterpret_cast<NMTBGETINFOTIPW*>(lParam));
            return 0;
        }
        if ((message == WM_KEYDOWN || message == WM_SYSKEYDOWN) && onKey(wParam))
            return 0;
        if (message == WM_SETFOCUS || message == WM_KILLFOCUS) {
            const LRESULT result = pass(message, wParam, lParam);
            makeCurrent(message == WM_SETFOCUS ? nextEnabled(current_, 1) : none);
            return result;
        }
        // The pointer takes the mark of the current button along; while it has the focus, it comes back.
        if (message == WM_MOUSELEAVE) {
            const LRESULT result = pass(message, wParam, lParam);
            if (GetFocus() == hwnd())
                SendMessageW(hwnd(), TB_SETHOTITEM, static_cast<WPARAM>(current_), 0);
            return result;
        }
        if (message == WM_ERASEBKGND && dressing().brush) {
            RECT client;
            GetClientRect(hwnd(), &client);
            FillRect(reinterpret_cast<HDC>(wParam), &client, dressing().brush.get());
            return 1;
        }
        return pass(message, wParam, lParam);
    }

  private:
    static constexpr int none = -1;

    /// The first button from a position on that can be pressed, going that way; the position itself where none can.
    int nextEnabled(int position, int step) const {
        for (int at = position; at >= 0 && at < typed().count(); at += step) {
            if (typed().buttons()[static_cast<std::size_t>(at)].enabled)
                return at;
        }
        return position;
    }
    void makeCurrent(int position) {
        if (position >= 0 && position < typed().count())
            current_ = position;
        SendMessageW(hwnd(), TB_SETHOTITEM, static_cast<WPARAM>(position), 0);
    }
    void goAlong(int step) {
        const int to = nextEnabled(current_ + step, step);
        if (to >= 0 && to < typed().count())
            makeCurrent(to);
    }
    bool onKey(WPARAM key) {
        switch (key) {
        case VK_LEFT:
        case VK_UP:
            goAlong(-1);
            return true;
        case VK_RIGHT:
            goAlong(1);
            return true;
        case VK_DOWN:
            if (const auto* button = buttonAt(current_ + 1); button && button->menu.empty())
                goAlong(1);
            else
                dropMenu(current_ + 1);
            return true;
        case VK_F4:
            dropMenu(current_ + 1);
            return true;
        case VK_HOME:
            makeCurrent(nextEnabled(0, 1));
            return true;
        case VK_END:
            makeCurrent(nextEnabled(typed().count() - 1, -1));
            return true;
        case VK_SPACE:
        case VK_RETURN:
            press(current_ + 1);
            return true;
        default:
            return false;
        }
    }

    /// All that the buttons show, to see whether it has changed.
    std::vector<std::u16string> keys() const {
        std::vector<std::u16string> all;
        for (const auto& button : typed().buttons())
            all.push_back(button.key + u'\n' + button.caption + (button.enabled ? u"\n1" : u"\n0") +
                          (button.menu.empty() ? u"" : u"v"));
        return all;
    }
    void dropImages() {
        if (images_)
            ImageList_Destroy(static_cast<HIMAGELIST>(images_));
        images_ = nullptr;
    }
    void rebuild(bool captions) {
        captions_ = captions;
        shown_ = keys();
        while (SendMessageW(hwnd(), TB_BUTTONCOUNT, 0, 0) > 0)
            SendMessageW(hwnd(), TB_DELETEBUTTON, 0, 0);
        if (pictureSize_ != dressing().px(16) || imageCount_ != typed().count()) {
            pictureSize_ = dressing().px(16);
            imageCount_ = typed().count();
            std::vector<const char16_t*> pictures;
            for (const auto& button : typed().buttons())
                pictures.push_back(button.key.c_str());
            const HANDLE images = makeImageList({pictures.data(), imageCount_}, pictureSize_);
            SendMessageW(hwnd(), TB_SETBITMAPSIZE, 0, MAKELPARAM(pictureSize_, pictureSize_));
            SendMessageW(hwnd(), TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images));
            dropImages();
            images_ = images;
        }
        for (int i = 0; i < typed().count(); ++i)
            addButton(i, typed().buttons()[static_cast<std::size_t>(i)]);
        const int side = std::max(typed().bounds().height - 2, pictureSize_ + 4);
        SendMessageW(hwnd(), TB_SETBUTTONSIZE, 0, MAKELPARAM(side, side));
        SendMessageW(hwnd(), TB_AUTOSIZE, 0, 0);
        InvalidateRect(hwnd(), nullptr, TRUE);
    }
    void addButton(int position, const ui::Toolbar::ToolButton& button) {
        TBBUTTON added{};
        added.iBitmap = position;
        added.idCommand = position + 1;
        added.fsState = button.enabled ? TBSTATE_ENABLED : 0;
        added.fsStyle = BTNS_AUTOSIZE | BTNS_NOPREFIX;
        if (captions_)
            added.fsStyle |= BTNS_SHOWTEXT;
        if (!button.menu.empty())
            added.fsStyle |= BTNS_DROPDOWN;
        added.iString = reinterpret_cast<INT_PTR>(button.caption.c_str());
        SendMessageW(hwnd(), TB_ADDBUTTONSW, 1, reinterpret_cast<LPARAM>(&added));
    }
    const ui::Toolbar::ToolButton* buttonAt(int command) const {
        return command >= 1 && command <= typed().count() ? &typed().buttons()[static_cast<std::size_t>(command - 1)]
                                                          : nullptr;
    }
    void press(int command) {
        if (const auto* button = buttonAt(command))
            typed().userClick(std::u16string(button->key));
    }
    void dropMenu(int command) {
        const auto* button = buttonAt(command);
        if (!button || button->menu.empty())
            return;
        const HMENU menu = CreatePopupMenu();
        for (std::size_t i = 0; i < button->menu.size(); ++i)
            AppendMenuW(menu, MF_STRING, firstMenuCommand + i, asWide(button->menu[i].text));
        RECT r;
        SendMessageW(hwnd(), TB_GETRECT, static_cast<WPARAM>(command), reinterpret_cast<LPARAM>(&r));
        MapWindowPoints(hwnd(), nullptr, reinterpret_cast<POINT*>(&r), 2);
        const auto chosen =
            static_cast<UINT>(TrackPopupMenu(menu, TPM_RETURNCMD | TPM_NONOTIFY, r.left, r.bottom, 0, hwnd(), nullptr));
        DestroyMenu(menu);
        // The menu pumps messages: the button may have changed meanwhile.
        button = ready() ? buttonAt(command) : nullptr;
        if (button && chosen >= firstMenuCommand && chosen - firstMenuCommand < button->menu.size())
            typed().userMenu(std::u16string(button->key), std::u16string(button->menu[chosen - firstMenuCommand].key));
    }
    void tellTip(NMTBGETINFOTIPW& tip) const {
        const auto* button = buttonAt(tip.iItem);
        if (button && tip.cchTextMax > 0)
            lstrcpynW(tip.pszText, asWide(button->toolTip), tip.cchTextMax);
    }

    std::vector<std::u16string> shown_;
    HANDLE images_ = nullptr;
    int imageCount_ = 0;
    int current_ = 0; ///< the button that keys press, from 0
    int pictureSize_ = 0;
    bool captions_ = false;
};

} // namespace

std::shared_ptr<ControlView> makeToolbarView(ui::Control& model, const std::shared_ptr<Dressing>& dressing) {
    auto* toolbar = dynamic_cast<ui::Toolbar*>(&model);
    return toolbar ? std::make_shared<ToolbarView>(*toolbar, dressing) : nullptr;
}

} // namespace orv::windows
