#include "windows/views/StandardViews.h"

namespace orv::windows {

namespace {

/// A container: draws nothing of its own and passes on what its children report.
class PanelView final : public ControlView, public ContainerWindow {
  public:
    PanelView(ui::PictureBox& model, std::shared_ptr<Dressing> dressing)
        : ControlView(model, std::move(dressing)), box_(model) {}
    std::shared_ptr<Window> window() const override { return std::const_pointer_cast<Window>(shared_from_this()); }
    bool takesFocus() const override { return false; }

  protected:
    void open(HWND parent) override {
        Creation how;
        how.style = WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
        how.exStyle = WS_EX_CONTROLPARENT;
        how.parent = parent;
        create(how);
    }
    void showContent() override {}
    /// Scrolling moves a box within its container.
    RECT place() const override {
        RECT r = ControlView::place();
        OffsetRect(&r, 0, MulDiv(box_.topTwips(), dressing().look.dpi, 1440));
        return r;
    }
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_ERASEBKGND) {
            RECT client;
            GetClientRect(hwnd(), &client);
            fillRect(reinterpret_cast<HDC>(wParam), client, dressing().back);
            return 1;
        }
        return ContainerWindow::onMessage(message, wParam, lParam);
    }

  private:
    ui::PictureBox& box_;
};

} // namespace

std::shared_ptr<ControlView> makePanelView(ui::Control& model, const std::shared_ptr<Dressing>& dressing) {
    auto* box = dynamic_cast<ui::PictureBox*>(&model);
    return box ? std::make_shared<PanelView>(*box, dressing) : nullptr;
}

} // namespace orv::windows
