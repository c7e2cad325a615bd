#include "ui/Spread.h"
#include "windows/views/StandardViews.h"

namespace orv::windows {

namespace {

class GridView final : public NativeView<ui::Spread> {
  public:
    using NativeView::NativeView;

  protected:
    void open(HWND parent) override {
        Creation how;
        how.style = WS_CHILD | WS_CLIPSIBLINGS | WS_TABSTOP | WS_BORDER;
        how.parent = parent;
        create(how);
    }
    void showContent() override {}
};

} // namespace

std::shared_ptr<ControlView> makeGridView(ui::Control& model, const std::shared_ptr<Dressing>& dressing) {
    auto* grid = dynamic_cast<ui::Spread*>(&model);
    return grid ? std::make_shared<GridView>(*grid, dressing) : nullptr;
}

} // namespace orv::windows
