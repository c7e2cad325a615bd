#include "ole/Container.h"
#include "ole/User.h"
#include "windows/com/IFilterControls.h"

#include <gtest/gtest.h>

namespace orv::windows::test {

namespace {

std::u16string captionOf(HWND window) {
    wchar_t text[200];
    return std::u16string(asUtf16(text), static_cast<std::size_t>(GetWindowTextW(window, text, 200)));
}

/// The user presses the save button of the scheme toolbar.
HRESULT pressSave(const Embedded& control) {
    ComPtr<IDispatch> toolbar;
    control.as<IFilterControls>()->GetControl(UniqueBstr(u"tlbProject").get(), toolbar.put());
    wchar_t member[] = L"Click";
    LPOLESTR members = member;
    DISPID id = 0;
    toolbar->GetIDsOfNames(IID_NULL, &members, 1, 0, &id);
    UniqueVariant key;
    V_VT(&key.ref()) = VT_BSTR;
    V_BSTR(&key.ref()) = UniqueBstr(u"TLBSAVE").release();
    DISPPARAMS arguments{&key.ref(), nullptr, 1, 0};
    return toolbar->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &arguments, nullptr, nullptr, nullptr);
}

class Prompts : public testing::Test {
  protected:
    void SetUp() override {
        // The scheme toolbar is there.
        control.loaded.filter->put_ShowScheme(VARIANT_TRUE);
        control.start();
        control.site->take();
    }
    Embedded control{sharedForm().hwnd()};
};

TEST_F(Prompts, TheSaveDialogStandsOverTheFormAndItsBoxOverTheDialog) {
    std::vector<std::u16string> seen;
    bool boxOverDialog = false;
    {
        const ModalUser user([&, dialog = HWND{}](HWND modal) mutable {
            if (GetWindow(modal, GW_OWNER) == sharedForm().hwnd() && !dialog) {
                dialog = modal;
                seen.push_back(captionOf(modal));
                EXPECT_FALSE(IsWindowEnabled(sharedForm().hwnd()));
                // No name yet: the dialog objects and stays.
                PostMessageW(modal, WM_COMMAND, IDOK, 0);
            } else if (GetWindow(modal, GW_OWNER) == dialog && dialog) {
                boxOverDialog = true;
                seen.push_back(captionOf(modal));
                PostMessageW(modal, WM_COMMAND, IDOK, 0);
            } else if (modal == dialog && boxOverDialog) {
                PostMessageW(modal, WM_COMMAND, IDCANCEL, 0);
            }
        });
        EXPECT_EQ(pressSave(control), S_OK);
    }
    EXPECT_EQ(seen, (std::vector<std::u16string>{u"保存方案", u"Velquor提示"}));
    EXPECT_TRUE(IsWindowEnabled(sharedForm().hwnd()));
    const Calls calls = control.site->take();
    EXPECT_EQ(calls, (Calls{"EnableModeless 0", "EnableModeless 0", "EnableModeless 1", "EnableModeless 1"}));
}

TEST_F(Prompts, WhatIsTypedIntoTheDialogIsWhatIsSaved) {
    std::u16string told;
    bool isShared = false;
    {
        const ModalUser user([&, dialog = HWND{}](HWND modal) mutable {
            if (!dialog) {
                dialog = modal;
                const HWND name = FindWindowExW(modal, nullptr, L"Edit", nullptr);
                SetWindowTextW(name, L"MINE");
                const HWND share = GetNextDlgTabItem(modal, name, FALSE);
                SendMessageW(share, BM_CLICK, 0, 0);
                isShared = SendMessageW(share, BM_GETCHECK, 0, 0) == BST_CHECKED;
                PostMessageW(modal, WM_COMMAND, IDOK, 0);
            } else if (modal != dialog && told.empty()) {
                // There is nothing to save it with: the box names what was to be saved.
                wchar_t text[200];
                const UINT length = GetDlgItemTextW(modal, 0xFFFF, text, 200);
                told.assign(asUtf16(text), length);
                PostMessageW(modal, WM_COMMAND, IDOK, 0);
            }
        });
        EXPECT_EQ(pressSave(control), S_OK);
    }
    EXPECT_EQ(told, u"保存方案 [ MINE ] 失败！");
    EXPECT_TRUE(isShared);
}

TEST_F(Prompts, ClosingTheFormsControlBehindADialogEndsIt) {
    {
        const ModalUser user([&](HWND modal) {
            control.as<IOleObject>()->Close(OLECLOSE_NOSAVE);
            PostMessageW(modal, WM_CLOSE, 0, 0);
        });
        EXPECT_EQ(pressSave(control), S_OK);
    }
    EXPECT_EQ(control.window(), nullptr);
    EXPECT_EQ(control.finish(), 0u);
    EXPECT_EQ(control.site->heldByOthers(), 0u);
}

} // namespace

} // namespace orv::windows::test
