#include "windows/ole/HostPrompts.h"

#include "windows/ole/DialogWindow.h"
#include "windows/views/VisualStyles.h"

namespace orv::windows {

namespace {

/// The time for which a modal window is open.
class ModalTime {
  public:
    explicit ModalTime(const OleSite& site) : control_(ComPtr<IUnknown>::copyFrom(&site.control)), frame_(site.frame) {
        if (frame_)
            frame_->EnableModeless(FALSE);
    }
    ModalTime(const ModalTime&) = delete;
    ModalTime& operator=(const ModalTime&) = delete;
    ~ModalTime() {
        if (frame_)
            frame_->EnableModeless(TRUE);
    }

  private:
    // The user may close the form behind the box: control and frame stay until the box has gone.
    ComPtr<IUnknown> control_;
    ComPtr<IOleInPlaceFrame> frame_;
    VisualStyles styles_;
};

} // namespace

HostPrompts::HostPrompts(OleSite& site) : site_(site), boxes_([this] { return owner(); }) {}

HWND HostPrompts::owner() const noexcept {
    return dialog_ ? dialog_ : site_.topWindow();
}

ui::MessageAnswer HostPrompts::message(const std::u16string& text, std::int32_t style, const std::u16string& title) {
    const ModalTime modal(site_);
    return boxes_.message(text, style, title);
}

void HostPrompts::showModal(ui::Dialog& dialog) {
    const ModalTime modal(site_);
    showDialog(dialog, owner(), site_.ambients.look, dialog_);
}

void HostPrompts::log(const std::u16string& text) {
    boxes_.log(text);
}

} // namespace orv::windows
