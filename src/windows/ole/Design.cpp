#include "windows/ole/Design.h"

#include "windows/ole/Extent.h"

namespace orv::windows {

Design::Design(control::Filter& filter) noexcept : filter_(filter), extent_(initial().extent), saved_(initial()) {}

DesignState Design::initial() noexcept {
    DesignState state;
    state.extent = {himetricOfPixels(640, USER_DEFAULT_SCREEN_DPI), himetricOfPixels(400, USER_DEFAULT_SCREEN_DPI)};
    return state;
}

DesignState Design::current() const {
    return {extent_, filter_.get_m_JCType(), displayStyle_};
}

void Design::apply(const DesignState& state) {
    extent_ = state.extent;
    filter_.put_m_JCType(state.jcType);
    if (state.displayStyle != displayStyle_)
        filter_.put_ShowFilterStyle(state.displayStyle);
    displayStyle_ = state.displayStyle;
    markSaved();
}

} // namespace orv::windows
