#pragma once

#include "erp/windows/list/Texts.h"
#include "ole/Automation.h"

#include <windows.h>

namespace orv::erp {

/// A failure in a message box over a window, titled 单据列表.
inline void showFailure(HWND owner, const Texts& texts, const ole::Failure& failure) {
    MessageBoxW(owner, failure.description().c_str(), texts(L"单据列表").c_str(), MB_OK | MB_ICONEXCLAMATION);
}

} // namespace orv::erp
