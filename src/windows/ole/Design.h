#pragma once

#include "control/Filter.h"

#include <windows.h>

#include <cstdint>

namespace orv::windows {

/// What a designer of a form sets and the form keeps.
struct DesignState {
    SIZEL extent{};                ///< HIMETRIC
    bool jcType = false;           ///< `m_JCType`
    std::int32_t displayStyle = 0; ///< an Enu_ShowFilter_Style value

    friend bool operator==(const DesignState& a, const DesignState& b) noexcept {
        return a.extent.cx == b.extent.cx && a.extent.cy == b.extent.cy && a.jcType == b.jcType &&
               a.displayStyle == b.displayStyle;
    }
};

/// The design state of a control, and whether its container has saved it.
class Design {
  public:
    explicit Design(control::Filter& filter) noexcept;

    /// A new control: 640 x 400 pixels at 96 dots an inch, all else as the control is made.
    static DesignState initial() noexcept;

    DesignState current() const;
    /// Lays a state on the control; it counts as saved then. Tabs that an earlier style removed do not come back.
    void apply(const DesignState& state);
    bool isDirty() const { return !(current() == saved_); }
    void markSaved() { saved_ = current(); }

    const SIZEL& extent() const noexcept { return extent_; }
    void setExtent(const SIZEL& extent) noexcept { extent_ = extent; }
    /// The style that was last set.
    void noteDisplayStyle(std::int32_t style) noexcept { displayStyle_ = style; }

  private:
    control::Filter& filter_;
    SIZEL extent_;
    std::int32_t displayStyle_ = 0;
    DesignState saved_;
};

} // namespace orv::windows
