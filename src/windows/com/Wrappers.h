#pragma once

#include "automation/Object.h"
#include "windows/com/ComPtr.h"

#include <oaidl.h>

// Objects across the boundary keep their identity both ways: a host's object that goes through the control comes out
// as the very pointer that came in, one of ours that a host hands back is the object itself again.
namespace orv::windows {

/// The object behind a dispatch pointer: the core object when it is one of this module's wrappers, else a late-bound
/// view, the same one for the same pointer while it lives. Null for null. Adds a reference of its own.
automation::ObjectRef wrap(IDispatch* dispatch);

/// A dispatch pointer for an object: the host's own pointer, or the wrapper of a core object, the same one while it
/// lives. Null for null.
ComPtr<IDispatch> expose(const automation::ObjectRef& object);

} // namespace orv::windows
