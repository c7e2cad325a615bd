#include "windows/views/FilterWindow.h"

#include "windows/views/FilterSurface.h"

namespace orv::windows {

FilterWindow::FilterWindow(HWND parent, const RECT& bounds, control::Filter& filter, IUnknown* control,
                           const Appearance& look)
    : surface_(std::make_shared<FilterSurface>(filter, control, look, *this)) {
    surface_->open(parent, bounds);
}

FilterWindow::~FilterWindow() {
    surface_->disown();
    surface_->destroy();
}

HWND FilterWindow::hwnd() const {
    return surface_->hwnd();
}

void FilterWindow::move(const RECT& bounds) {
    const auto alive = surface_;
    alive->move(bounds);
}

void FilterWindow::setAppearance(const Appearance& look) {
    const auto alive = surface_;
    alive->setAppearance(look);
}

void FilterWindow::show(bool visible) {
    ShowWindow(hwnd(), visible ? SW_SHOWNA : SW_HIDE);
}

void FilterWindow::enable(bool enabled) {
    EnableWindow(hwnd(), enabled);
}

bool FilterWindow::translateKey(MSG& message) {
    const auto alive = surface_;
    return alive->translateKey(message);
}

bool FilterWindow::pressAccessKey(char16_t letter) {
    const auto alive = surface_;
    return alive->pressAccessKey(letter);
}

bool FilterWindow::takeFocus(bool last) {
    const auto alive = surface_;
    return alive->takeFocus(last);
}

bool FilterWindow::focusIsInside() const {
    return surface_->focusIsInside();
}

} // namespace orv::windows
