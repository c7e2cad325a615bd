#pragma once

#include "ui/Signal.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orv::ui {

/// A rectangle in pixels of the control's own resolution, relative to the containing control.
struct Rect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const Rect&, const Rect&) = default;
};

/// What every constituent control has. A model knows no view: a view subscribes to `changed`.
///
/// A setter that changes nothing raises no `changed`. A setter with an event of its own raises `changed` first, the
/// event last. A handler may destroy the control whose event it handles.
class Control {
  public:
    /// `name` is the control's name; elements of a control array carry their index too ("chkPage", 1).
    explicit Control(std::u16string name, std::optional<int> index = std::nullopt);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    const std::u16string& name() const noexcept { return name_; }
    std::optional<int> index() const noexcept { return index_; }
    /// "chkPage(1)" for an element of a control array, else the name.
    std::u16string fullName() const;
    /// The control's type as the localisation rules name it: "Label", "CheckBox", "vaSpread", ...
    virtual std::u16string_view typeName() const = 0;

    bool visible() const noexcept { return visible_; }
    void setVisible(bool visible);
    bool enabled() const noexcept { return enabled_; }
    void setEnabled(bool enabled);
    const std::u16string& tag() const noexcept { return tag_; }
    void setTag(std::u16string tag);
    const std::u16string& toolTip() const noexcept { return toolTip_; }
    void setToolTip(std::u16string toolTip);
    const Rect& bounds() const noexcept { return bounds_; }
    void setBounds(const Rect& bounds);
    /// A colour as 0x00BBGGRR, or nothing for the system's own.
    std::optional<std::uint32_t> backColor() const noexcept { return backColor_; }
    void setBackColor(std::optional<std::uint32_t> color);

    /// Asks the view for the keyboard focus; `focusRequested` tells it. Whether the control can have it (all its
    /// containers are shown) is known to the view only, so nothing fails here.
    void setFocus();

    /// Anything that a view shows has changed.
    Signal<> changed;
    Signal<> focusRequested;

  protected:
    /// Expires with the control: to be asked by whoever goes on after a handler has run.
    std::weak_ptr<const void> lifetime() const noexcept { return lifetime_; }

  private:
    std::shared_ptr<const void> lifetime_ = std::make_shared<char>();
    std::u16string name_;
    std::optional<int> index_;
    bool visible_ = true;
    bool enabled_ = true;
    std::u16string tag_;
    std::u16string toolTip_;
    Rect bounds_;
    std::optional<std::uint32_t> backColor_;
};

/// A control that shows one caption.
class CaptionControl : public Control {
  public:
    using Control::Control;
    const std::u16string& caption() const noexcept { return caption_; }
    void setCaption(std::u16string caption);

  private:
    std::u16string caption_;
};

class Label final : public CaptionControl {
  public:
    using CaptionControl::CaptionControl;
    std::u16string_view typeName() const override { return u"Label"; }
};

class Button final : public CaptionControl {
  public:
    using CaptionControl::CaptionControl;
    std::u16string_view typeName() const override { return u"CommandButton"; }
    /// What a click does, by the user or from code; nothing when the button is disabled.
    void press();
    Signal<> click;
};

class Frame final : public CaptionControl {
  public:
    using CaptionControl::CaptionControl;
    std::u16string_view typeName() const override { return u"Frame"; }
};

enum class CheckState : std::int16_t { unchecked = 0, checked = 1, grayed = 2 };

class CheckBox final : public CaptionControl {
  public:
    using CaptionControl::CaptionControl;
    std::u16string_view typeName() const override { return u"CheckBox"; }
    CheckState value() const noexcept { return value_; }
    bool isChecked() const noexcept { return value_ == CheckState::checked; }
    /// Raises `click` when the value changes, also from code.
    void setValue(CheckState value);
    /// The user clicks: toggles the box unless it is disabled or hidden; a grayed box becomes unchecked.
    void userClick();
    Signal<> click;

  private:
    CheckState value_ = CheckState::unchecked;
};

/// A container with no content of its own (`picPage`, `PicPan`, `picOrder`, ...).
class PictureBox final : public Control {
  public:
    using Control::Control;
    std::u16string_view typeName() const override { return u"PictureBox"; }
    /// Vertical position in twips within the container, as scrolling sets it.
    int topTwips() const noexcept { return topTwips_; }
    void setTopTwips(int twips);

  private:
    int topTwips_ = 0;
};

class ScrollBar final : public Control {
  public:
    using Control::Control;
    std::u16string_view typeName() const override { return u"VScrollBar"; }
    int value() const noexcept { return value_; }
    int maximum() const noexcept { return maximum_; }
    /// A maximum below 0 is taken as 0; a value beyond the new maximum is brought down to it as by `setValue`.
    void setMaximum(int maximum);
    /// Clamped to 0..maximum; raises `change` when it differs, also from code.
    void setValue(int value);
    Signal<> change;

  private:
    int value_ = 0;
    int maximum_ = 32767;
};

class TextBox final : public Control {
  public:
    using Control::Control;
    std::u16string_view typeName() const override { return u"TextBox"; }
    const std::u16string& text() const noexcept { return text_; }
    /// Raises `change` when the text differs.
    void setText(std::u16string text);
    Signal<> change;

  private:
    std::u16string text_;
};

} // namespace orv::ui
