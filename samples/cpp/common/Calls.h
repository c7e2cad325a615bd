#pragma once

#include "Com.h"

#include <initializer_list>
#include <string>

// For those who call: results and late-bound members.

/// A failed call, with the words of whoever failed.
struct ComError {
    HRESULT code;
    std::wstring description;
};
/// Raises ComError for a failure; `what` says what was asked for.
void check(HRESULT result, const wchar_t* what = L"");

/// Reads a property or calls a method of an object that is called by name; an empty name is the default member, such as
/// an entry of a dictionary or an item of a collection. Raises ComError.
Variant call(IDispatch* object, const wchar_t* member, std::initializer_list<Variant> arguments = {});
/// Writes a property: its new value is the last argument. Raises ComError.
void put(IDispatch* object, const wchar_t* member, std::initializer_list<Variant> arguments);
