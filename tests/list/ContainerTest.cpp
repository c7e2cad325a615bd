#include "list/FakeControl.h"
#include "ole/ControlWindow.h"
#include "ole/ModalDialog.h"

#include <gtest/gtest.h>

#include <memory>

// What a control may expect of the container, and what a dialog may expect of its keys.
namespace orv::ole::test {
namespace {

using Microsoft::WRL::ComPtr;
using Calls = std::vector<std::string>;

/// Whether the owner could be used when the dialog's button was pressed.
bool ownerWasEnabled = true;

INT_PTR CALLBACK answerCommands(HWND dialog, UINT message, WPARAM wParam, LPARAM) noexcept {
    auto* modal = reinterpret_cast<ModalDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (message == WM_COMMAND && modal && HIWORD(wParam) == BN_CLICKED) {
        ownerWasEnabled = IsWindowEnabled(GetWindow(dialog, GW_OWNER)) != FALSE;
        modal->end(LOWORD(wParam));
    }
    return FALSE;
}

/// A dialog with the control's place and two buttons, over a window of its own.
class Hosting : public testing::Test {
  protected:
    void SetUp() override {
        owner = CreateWindowExW(0, L"STATIC", L"owner", WS_POPUP | WS_VISIBLE, 0, 0, 500, 400, nullptr, nullptr,
                                GetModuleHandleW(nullptr), nullptr);
        struct {
            DLGTEMPLATE dialog;
            WORD menu, windowClass, title;
        } form{};
        form.dialog.style = WS_POPUP | WS_CAPTION | WS_VISIBLE;
        form.dialog.cx = 200;
        form.dialog.cy = 150;
        dialog = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &form.dialog, owner, answerCommands, 0);
        ASSERT_NE(dialog, nullptr);
        frame = makeCounted<Frame>(dialog);
        control = makeCounted<FakeControl>();
    }
    void TearDown() override {
        place = nullptr;
        frame->detach();
        DestroyWindow(dialog);
        DestroyWindow(owner);
    }
    void open() {
        place = std::make_unique<ControlWindow>(dialog, 200, Object(control.Get()), *frame.Get());
        for (const int id : {IDOK, IDCANCEL})
            CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | (id == IDOK ? BS_DEFPUSHBUTTON : 0),
                            10 * id, 100, 10, 10, dialog, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                            GetModuleHandleW(nullptr), nullptr);
        control->calls.clear();
    }
    /// A key as a message loop of the dialog treats it; true when it was the control's.
    bool press(WPARAM key, UINT message = WM_KEYDOWN) {
        MSG pressed{};
        pressed.hwnd = GetFocus();
        pressed.message = message;
        pressed.wParam = key;
        return place->translate(pressed);
    }

    HWND owner = nullptr;
    HWND dialog = nullptr;
    ComPtr<Frame> frame;
    ComPtr<FakeControl> control;
    std::unique_ptr<ControlWindow> place;
};

TEST_F(Hosting, TheSiteComesBeforeTheStateWhereTheControlWishesSo) {
    for (const bool first : {true, false}) {
        control = makeCounted<FakeControl>();
        control->miscStatus = first ? OLEMISC_SETCLIENTSITEFIRST : 0;
        place = std::make_unique<ControlWindow>(dialog, 200, Object(control.Get()), *frame.Get());
        EXPECT_EQ(control->calls, first ? (Calls{"site", "new", "in place"}) : (Calls{"new", "site", "in place"}));
        place = nullptr;
    }
}

TEST_F(Hosting, TheControlFillsItsPlace) {
    open();
    MoveWindow(place->hwnd(), 5, 5, 300, 120, TRUE);
    EXPECT_EQ(control->position.right, 300);
    EXPECT_EQ(control->position.bottom, 120);
    EXPECT_EQ(GetParent(control->window), place->hwnd());
    const HDC screen = GetDC(nullptr);
    const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    EXPECT_NEAR(static_cast<double>(control->extent.cx), 300 * 2540.0 / dpi, 1.0);
}

TEST_F(Hosting, EverythingIsReleasedInTheEnd) {
    open();
    place->activate();
    place = nullptr;
    EXPECT_EQ(control->calls.back(), "no site");
    EXPECT_EQ(frame->activeObject(), nullptr);
    control->AddRef();
    EXPECT_EQ(control->Release(), 1u) << "only the test holds the control";
}

TEST_F(Hosting, ADialogThatGoesFirstTakesTheControlAlong) {
    open();
    DestroyWindow(dialog);
    EXPECT_EQ(control->calls, (Calls{"close", "no site"}));
    EXPECT_EQ(place->hwnd(), nullptr);
    MSG key{};
    key.message = WM_KEYDOWN;
    EXPECT_FALSE(place->translate(key));
}

TEST_F(Hosting, AControlThatKeepsItsSiteCannotReachADeadWindow) {
    open();
    const ComPtr<IOleClientSite> site = control->site;
    place = nullptr;
    ComPtr<IOleInPlaceSite> kept;
    ASSERT_EQ(site.As(&kept), S_OK);
    HWND window = owner;
    EXPECT_EQ(kept->GetWindow(&window), E_FAIL);
    EXPECT_EQ(window, nullptr);
    EXPECT_EQ(kept->CanInPlaceActivate(), S_FALSE);
}

TEST_F(Hosting, TheFocusOfThePlaceIsTheControls) {
    open();
    SetFocus(place->hwnd());
    EXPECT_EQ(control->calls, Calls{"active"});
    EXPECT_EQ(GetFocus(), control->edit(1));
    ASSERT_NE(frame->activeObject(), nullptr);
    place->deactivate();
    EXPECT_EQ(frame->activeObject(), nullptr);
}

TEST_F(Hosting, TheActiveControlIsAskedFirstAndATabThatItLeavesGoesOn) {
    open();
    SetFocus(place->hwnd());
    control->calls.clear();
    control->wantedKeys = {VK_RETURN};
    EXPECT_TRUE(press(VK_RETURN));
    EXPECT_FALSE(press(VK_ESCAPE)) << "Esc is the dialog's";
    EXPECT_EQ(control->calls, (Calls{"key 13", "key 27"}));
    EXPECT_TRUE(press(VK_TAB));
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, IDOK));
    control->calls.clear();
    EXPECT_FALSE(press(VK_RETURN));
    EXPECT_EQ(control->calls, Calls{}) << "the control has not the focus";
}

TEST_F(Hosting, AControlThatEatsEnterKeepsItFromTheDialog) {
    control->eats = CTRLINFO_EATS_RETURN;
    open();
    SetFocus(place->hwnd());
    EXPECT_TRUE(press(VK_RETURN));
    EXPECT_FALSE(press(VK_ESCAPE));
    control->eats = 0;
    control->siteAs<IOleControlSite>()->OnControlInfoChanged();
    EXPECT_FALSE(press(VK_RETURN)) << "the control has told that it changed";
}

TEST_F(Hosting, AccessKeysReachTheControlFromEverywhere) {
    ACCEL key{FALT | FVIRTKEY, 'S', 1};
    control->accelerators = CreateAcceleratorTableW(&key, 1);
    open();
    SetFocus(GetDlgItem(dialog, IDOK));
    MSG pressed{};
    pressed.hwnd = GetFocus();
    pressed.message = WM_SYSKEYDOWN;
    pressed.wParam = 'S';
    pressed.lParam = 1 << 29; // Alt
    BYTE before[256], keys[256];
    GetKeyboardState(before);
    std::copy(std::begin(before), std::end(before), keys);
    keys[VK_MENU] = 0x80;
    SetKeyboardState(keys);
    EXPECT_TRUE(place->translate(pressed));
    pressed.wParam = 'X';
    EXPECT_FALSE(place->translate(pressed));
    SetKeyboardState(before);
    EXPECT_EQ(control->calls, Calls{"mnemonic"});
    DestroyAcceleratorTable(control->accelerators);
}

TEST_F(Hosting, AmbientPropertiesAreThoseOfAWorkingDialog) {
    open();
    const auto ambients = control->siteAs<IDispatch>();
    const auto read = [&](DISPID id) {
        _variant_t value;
        DISPPARAMS none{};
        const HRESULT got =
            ambients->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &value, nullptr, nullptr);
        return got == S_OK ? value : _variant_t(got, VT_ERROR);
    };
    EXPECT_EQ(read(DISPID_AMBIENT_USERMODE), _variant_t(true));
    EXPECT_EQ(read(DISPID_AMBIENT_UIDEAD), _variant_t(false));
    EXPECT_EQ(read(-999).vt, VT_ERROR);
    COLORREF back = 0;
    OleTranslateColor(static_cast<OLE_COLOR>(read(DISPID_AMBIENT_BACKCOLOR).lVal), nullptr, &back);
    EXPECT_EQ(back, GetSysColor(COLOR_BTNFACE));
    ComPtr<IFont> font;
    const _variant_t given = read(DISPID_AMBIENT_FONT);
    ASSERT_EQ(given.vt, VT_DISPATCH);
    ASSERT_EQ(given.pdispVal->QueryInterface(IID_IFont, &font), S_OK);
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
    HFONT handle = nullptr;
    font->get_hFont(&handle);
    LOGFONTW shown{};
    GetObjectW(handle, sizeof shown, &shown);
    EXPECT_STREQ(shown.lfFaceName, metrics.lfMessageFont.lfFaceName);
    EXPECT_NEAR(shown.lfHeight, metrics.lfMessageFont.lfHeight, 1);
}

TEST_F(Hosting, AModalDialogDisablesItsOwnerUntilItEnds) {
    open();
    ModalDialog modal(dialog);
    SetWindowLongPtrW(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&modal));
    control->wantedKeys = {VK_F2};
    // What the user does, as posted messages: a key of the control's, then Enter, which it leaves to the dialog.
    PostMessageW(control->edit(1), WM_KEYDOWN, VK_F2, 0);
    PostMessageW(control->edit(1), WM_KEYDOWN, VK_RETURN, 0);
    EXPECT_EQ(modal.run(*place), IDOK);
    EXPECT_FALSE(ownerWasEnabled);
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_FALSE(IsWindowVisible(dialog));
    EXPECT_EQ(control->calls, (Calls{"active", "key 113", "key 13"}));
}

} // namespace
} // namespace orv::ole::test
