#pragma once

#include "automation/Value.h"
#include "windows/com/Handles.h"

// Platform variants and the control's own values. See Wrappers.h for what becomes of objects.
namespace orv::windows {

/// The value of a variant, references followed. Types without a counterpart take the next one that holds them exactly:
/// VT_R4 a Double, VT_I1 and VT_UI1 16 bits, VT_UI2 32 bits, VT_UI4 32 bits or a Decimal, VT_I8 and VT_UI8 a
/// Decimal. A one-dimensional array becomes a collection of its elements. An object must offer IDispatch. Error 13 for
/// anything else.
automation::Value toValue(const VARIANT& variant);

/// The variant that carries the content: references to variants are followed. Null when they lead to nothing, or
/// round in a circle.
const VARIANT* carrierOf(const VARIANT& sent) noexcept;

/// The variant of a value. Raises std::bad_alloc.
UniqueVariant toVariant(const automation::Value& value);

/// Writes a value where a variant of type VT_BYREF points to, converted to the type that is there; error 13 or 6 when
/// that cannot be.
void assignThrough(const VARIANT& reference, UniqueVariant value);

} // namespace orv::windows
