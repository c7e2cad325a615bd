#pragma once

#include "Com.h"

#include <ORVFilter.h>

#include <string>

/// A failed call, with the words of whoever failed.
struct ComError {
    HRESULT code;
    std::wstring description;
};
/// Raises ComError for a failure; `what` says what was asked for.
void check(HRESULT result, const wchar_t* what = L"");

/// Prints a line in UTF-8, whatever the console's own code page is.
void printLine(const std::wstring& line);

/// The control; raises ComError when it is not there.
ComPtr<_Filter> createFilter();

/// Hands it the sample's metadata, as a host does when its list window opens.
void initialize(_Filter* filter);

/// Conditions as a saved scheme has them: the entry record to give to RefreshProfile.
ComPtr<IDispatch> sampleScheme();
