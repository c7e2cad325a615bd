#pragma once

#include "LateBound.h"

#include <vector>

/// A component that the filter control creates by name, as a host's middle tier offers it.
struct Component {
    const wchar_t* progId;
    CLSID id; ///< the same as in SampleHost.manifest
    ComPtr<IDispatch> (*create)();
};
const std::vector<Component>& components();
