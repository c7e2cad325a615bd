#pragma once

#include <oaidl.h>

/// The constituent controls of a filter control, for tests and tools: what a user does at a screen, a program does
/// through these. Private: not in the type library, open to change.
struct IFilterControls : public IUnknown {
    /// The automation object of a control by its name ("vsFilter", "chkPage(1)"). Its members are those of
    /// orv::windows::makeControlObject. Run-time error 5 when there is no control of that name.
    virtual HRESULT STDMETHODCALLTYPE GetControl(BSTR name, IDispatch** control) = 0;
};

__CRT_UUID_DECL(IFilterControls, 0x667ecd8f, 0x66f1, 0x4a82, 0xa7, 0x50, 0xc7, 0x18, 0xbf, 0xf5, 0x55, 0xe4)
