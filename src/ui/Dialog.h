#pragma once

#include "ui/Control.h"

#include <string>
#include <vector>

namespace orv::ui {

/// The model of a modal dialog: its constituent controls and whether it is still open. A view shows it, feeds the
/// user's actions into the controls and leaves when `closed` is raised.
class Dialog {
  public:
    explicit Dialog(std::u16string name) : name_(std::move(name)) {}
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    virtual ~Dialog() = default;

    const std::u16string& name() const noexcept { return name_; }
    const std::u16string& caption() const noexcept { return caption_; }
    void setCaption(std::u16string caption) { caption_ = std::move(caption); }
    /// The dialog's controls in tab order.
    virtual std::vector<Control*> controls() = 0;
    /// The buttons that Enter and Esc press.
    virtual Button& defaultButton() = 0;
    virtual Button& cancelButton() = 0;

    bool isOpen() const noexcept { return open_; }
    void close() {
        open_ = false;
        closed.raise();
    }
    Signal<> closed;

  private:
    std::u16string name_;
    std::u16string caption_;
    bool open_ = true;
};

} // namespace orv::ui
