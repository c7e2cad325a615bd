#pragma once

#include "Calls.h"

#include <ORVFilter.h>

#include <string>

/// Prints a line in UTF-8, whatever the console's own code page is.
void printLine(const std::wstring& line);

/// The control; raises ComError when it is not there.
ComPtr<_Filter> createFilter();

/// One of the host's components; raises ComError when it is not there.
ComPtr<IDispatch> createComponent(const wchar_t* progId);

/// Hands it the sample's metadata, as a host does when its list window opens.
void initialize(_Filter* filter);

/// Conditions as a saved scheme has them: the entry record to give to RefreshProfile.
ComPtr<IDispatch> sampleScheme();
