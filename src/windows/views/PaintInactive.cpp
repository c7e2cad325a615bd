#include "control/Filter.h"
#include "windows/views/FilterWindow.h"
#include "windows/views/Gdi.h"
#include "windows/views/SurfaceColor.h"

namespace orv::windows {

void paintInactive(HDC dc, const RECT& bounds, control::Filter& filter, const Appearance& look) {
    fillRect(dc, bounds, surfaceColor(filter.controls().UserControl, look.back));
}

} // namespace orv::windows
