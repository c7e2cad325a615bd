#include "ui/TabStrip.h"
#include "windows/views/StandardViews.h"

#include <commctrl.h>

namespace orv::windows {

namespace {

class TabStripView final : public NativeView<ui::TabStrip> {
  public:
    using NativeView::NativeView;

  protected:
    void open(HWND parent) override { createControl(parent, WC_TABCONTROLW, TCS_FOCUSONBUTTONDOWN | WS_TABSTOP); }
    void showContent() override {
        std::vector<std::u16string> captions;
        for (const auto& tab : typed().tabs())
            captions.push_back(tab.caption);
        if (captions != captions_) {
            captions_ = std::move(captions);
            SendMessageW(hwnd(), TCM_DELETEALLITEMS, 0, 0);
            for (std::size_t i = 0; i < captions_.size(); ++i) {
                TCITEMW item{};
                item.mask = TCIF_TEXT;
                item.pszText = reinterpret_cast<wchar_t*>(captions_[i].data());
                SendMessageW(hwnd(), TCM_INSERTITEMW, i, reinterpret_cast<LPARAM>(&item));
            }
        }
        // Tabs as high as the window: the frame of a page below, which the strip has not, would show otherwise.
        if (const int height = typed().bounds().height - 2; height != tabHeight_ && height > 0) {
            tabHeight_ = height;
            SendMessageW(hwnd(), TCM_SETPADDING, 0, MAKELPARAM(dressing().px(10), dressing().px(3)));
            SendMessageW(hwnd(), TCM_SETITEMSIZE, 0, MAKELPARAM(0, height));
        }
        SendMessageW(hwnd(), TCM_SETCURSEL, static_cast<WPARAM>(typed().selected() - 1), 0);
    }
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (ready() && message == reflected + WM_NOTIFY && !refreshing() &&
            reinterpret_cast<const NMHDR*>(lParam)->code == TCN_SELCHANGE) {
            typed().userSelect(static_cast<int>(SendMessageW(hwnd(), TCM_GETCURSEL, 0, 0)) + 1);
            refresh(); // a strip that refuses shows its own tab again
            return 0;
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
    std::vector<std::u16string> captions_;
    int tabHeight_ = 0;
};

} // namespace

std::shared_ptr<ControlView> makeTabStripView(ui::Control& model, const std::shared_ptr<Dressing>& dressing) {
    auto* strip = dynamic_cast<ui::TabStrip*>(&model);
    return strip ? std::make_shared<TabStripView>(*strip, dressing) : nullptr;
}

} // namespace orv::windows
