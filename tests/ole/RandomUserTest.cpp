#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "ole/Form.h"
#include "ole/SampleComponents.h"

#include <gtest/gtest.h>

#include <iterator>
#include <random>

// A user who presses, clicks, types and scrolls at random in the control's real windows, while the host does anything
// and some of its calls fail: the control holds out, and works afterwards.
namespace orv::windows::test {

namespace {

using automation::AutomationError;
using automation::call;
using automation::let;
using faults::FaultyHost;

using Windows = std::vector<HWND>;
BOOL CALLBACK addIfUsable(HWND window, LPARAM data) {
    if (IsWindowVisible(window) && IsWindowEnabled(window))
        reinterpret_cast<Windows*>(data)->push_back(window);
    return TRUE;
}
BOOL CALLBACK addPopup(HWND window, LPARAM data) {
    if (window != sharedForm().hwnd() && addIfUsable(window, data))
        EnumChildWindows(window, addIfUsable, data);
    return TRUE;
}

class RandomUser {
  public:
    RandomUser(std::uint32_t seed, Form& form, FaultyHost& host) : random_(seed), form_(form), host_(host) {}

    void act() {
        constexpr void (RandomUser::*kinds[])() = {
            &RandomUser::pressKey,    &RandomUser::pressKey, &RandomUser::pressKey,     &RandomUser::typeLetters,
            &RandomUser::typeLetters, &RandomUser::click,    &RandomUser::click,        &RandomUser::click,
            &RandomUser::useList,     &RandomUser::scroll,   &RandomUser::clipboard,    &RandomUser::assist,
            &RandomUser::focus,       &RandomUser::hostActs, &RandomUser::surroundings,
        };
        const auto kind = oneOf(kinds);
        const int before = host_.strike.calls;
        (this->*kind)();
        pumpMessages();
        if (kind != &RandomUser::hostActs)
            calls_ += host_.strike.calls - before;
    }
    /// Calls of the host that the user's own doing has led to.
    int calls() const noexcept { return calls_; }

    /// What the user does with a modal window.
    void answer(HWND modal) {
        if (const HWND name = FindWindowExW(modal, nullptr, L"Edit", nullptr); name && below(2) == 0)
            SetWindowTextW(name, below(2) == 0 ? L"S" : L"T");
        HWND button = FindWindowExW(modal, nullptr, L"Button", nullptr);
        if (const HWND other = FindWindowExW(modal, button, L"Button", nullptr); other && below(2) == 0)
            button = other;
        PostMessageW(button, BM_CLICK, 0, 0);
    }

  private:
    std::size_t below(std::size_t limit) { return random_() % limit; }
    template <class T, std::size_t count>
    const T& oneOf(const T (&choices)[count]) {
        return choices[below(count)];
    }

    /// A window that the user can see: the control's own, the parts, what they have opened.
    HWND window() {
        Windows windows;
        const HWND control = form_.control().window();
        if (control) {
            addIfUsable(control, reinterpret_cast<LPARAM>(&windows));
            EnumChildWindows(control, addIfUsable, reinterpret_cast<LPARAM>(&windows));
        }
        EnumThreadWindows(GetCurrentThreadId(), addPopup, reinterpret_cast<LPARAM>(&windows));
        return windows.empty() ? nullptr : windows[below(windows.size())];
    }
    LPARAM pointIn(HWND window) {
        RECT client{};
        GetClientRect(window, &client);
        const auto within = [this](LONG size) { return static_cast<int>(below(static_cast<std::size_t>(size) + 1)); };
        return MAKELPARAM(within(client.right), within(client.bottom));
    }

    void pressKey() {
        constexpr BYTE keys[] = {VK_TAB,  VK_RETURN, VK_ESCAPE, VK_SPACE, VK_LEFT,   VK_RIGHT,  VK_UP,   VK_DOWN,
                                 VK_HOME, VK_END,    VK_PRIOR,  VK_NEXT,  VK_DELETE, VK_INSERT, VK_BACK, VK_F2,
                                 VK_F4,   VK_F4,     VK_F6,     VK_F7,    'A',       'C',       'V',     'X'};
        BYTE held[256] = {};
        if (below(4) == 0)
            held[oneOf({BYTE{VK_SHIFT}, BYTE{VK_CONTROL}})] = 0x80;
        SetKeyboardState(held);
        MSG message{};
        message.hwnd = GetFocus();
        message.message = WM_KEYDOWN;
        message.wParam = oneOf(keys);
        message.lParam = 1;
        // The container offers its keys to the active control first.
        ComPtr<IOleInPlaceActiveObject> active;
        form_.control().loaded.filter.as(active);
        if (message.hwnd && active->TranslateAccelerator(&message) != S_OK)
            DispatchMessageW(&message);
        BYTE released[256] = {};
        SetKeyboardState(released);
    }
    void typeLetters() {
        constexpr const char16_t* texts[] = {u"1",  u"12.5", u"-3",  u"2024-02-29", u"1e9",   u"%'[]", u"单", u"日期",
                                             u"金", u"等于", u"甲A", u"NULL",       u"a;b,c", u"(",    u")",  u"9999"};
        type(oneOf(texts));
        if (below(2) == 0)
            key(VK_RETURN);
    }
    void click() {
        const HWND at = window();
        const LPARAM from = pointIn(at);
        const bool isDouble = below(6) == 0;
        // Posted: a part that follows the mouse finds the end of it in its own loop.
        PostMessageW(at, isDouble ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, MK_LBUTTON, from);
        if (below(3) == 0)
            PostMessageW(at, WM_MOUSEMOVE, MK_LBUTTON, pointIn(at));
        PostMessageW(at, WM_LBUTTONUP, 0, below(4) == 0 ? pointIn(at) : from);
    }
    /// Chooses a field, as users mostly do.
    void useList() {
        if (!form_.grid())
            return;
        openFields(form_.grid());
        key(oneOf({WPARAM{VK_DOWN}, WPARAM{VK_END}, WPARAM{VK_UP}}));
        key(VK_RETURN);
        host_.erp().clearLookUps();
        host_.erp().queueLookUp(u"C1");
    }
    void scroll() {
        const HWND at = window();
        const auto code = static_cast<WPARAM>(below(8)); // SB_LINEUP to SB_BOTTOM; no end of a drag without its begin
        if (below(3) == 0)
            SendMessageW(at, WM_MOUSEWHEEL, MAKEWPARAM(0, oneOf({WHEEL_DELTA, -WHEEL_DELTA, 5 * WHEEL_DELTA})), 0);
        else if (HWND grid = form_.grid(); grid && code != SB_THUMBPOSITION && code != SB_THUMBTRACK)
            SendMessageW(grid, oneOf({UINT{WM_VSCROLL}, UINT{WM_HSCROLL}}), code, 0);
    }
    void clipboard() {
        SendMessageW(GetFocus(), oneOf({UINT{WM_COPY}, UINT{WM_CUT}, UINT{WM_PASTE}, UINT{WM_CLEAR}}), 0, 0);
    }
    void assist() {
        const auto cell = form_.grid() ? form_.activeCell() : nullptr;
        if (!cell)
            return;
        UniqueBstr name;
        cell->get_accName(itself(), name.put());
        const UniqueBstr text(oneOf({u"1", u"日期", u"等于"}));
        if (below(2) == 0)
            cell->accDoDefaultAction(itself());
        else
            cell->put_accValue(itself(), text.get());
    }
    void focus() { SetFocus(below(3) == 0 ? sharedForm().hwnd() : window()); }

    void hostActs() {
        host_.strike.at = below(2) == 0 ? host_.strike.calls + static_cast<int>(below(40)) + 1 : 0;
        try {
            member();
        } catch (const AutomationError&) { // what the host's own code gets
        }
    }
    void member() {
        const automation::ObjectRef filter = form_.filter();
        automation::Value text = u"", entrySort = u"";
        switch (below(10)) {
        case 0:
            form_.setUp(host_);
            break;
        case 1:
            call(filter, u"ClearMem");
            break;
        case 2:
            call(filter, u"SetPagetoTop", static_cast<std::int32_t>(below(5)));
            break;
        case 3:
            let(filter, u"ShowScheme", below(2) == 0);
            break;
        case 4:
            call(filter, u"GetFilterSql", automation::Argument::byReference(text), true);
            break;
        case 5:
            call(filter, u"GetSortString", automation::Argument::byReference(text),
                 automation::Argument::byReference(entrySort));
            break;
        case 6:
            automation::get(filter, u"m_Header");
            break;
        case 7:
            call(filter, u"InitHideColumns");
            break;
        case 8:
            call(filter, u"ClearFace");
            break;
        default:
            call(filter, u"SaveLastUseScheme");
            break;
        }
    }
    void surroundings() {
        const RECT place{0, 0, static_cast<LONG>(below(900)), static_cast<LONG>(below(700))};
        switch (below(5)) {
        case 0:
            form_.control().as<IOleInPlaceObject>()->SetObjectRects(&place, &place);
            break;
        case 1:
            SendMessageW(form_.control().window(),
                         oneOf({UINT{WM_SETTINGCHANGE}, UINT{WM_SYSCOLORCHANGE}, UINT{WM_THEMECHANGED}}), 0, 0);
            break;
        case 2:
            form_.control().as<IOleInPlaceObject>()->UIDeactivate();
            break;
        case 3:
            form_.control().as<IOleInPlaceObject>()->InPlaceDeactivate();
            form_.control().verb(OLEIVERB_INPLACEACTIVATE);
            break;
        default:
            form_.control().verb(OLEIVERB_UIACTIVATE);
            break;
        }
    }

    std::mt19937 random_;
    Form& form_;
    FaultyHost& host_;
    int calls_ = 0;
};

/// The filter of one condition on a control that is set up anew, without blanks: a logic word that a scheme has left in
/// the line leaves one more.
std::u16string filterOfOneCondition(Form& form, FaultyHost& host) {
    call(form.filter(), u"ClearMem");
    const RECT place{0, 0, 640, 480};
    form.control().as<IOleInPlaceObject>()->SetObjectRects(&place, &place);
    form.control().verb(OLEIVERB_UIACTIVATE);
    EXPECT_TRUE(form.setUp(host));
    call(form.filter(), u"ClearFace");
    call(form.filter(), u"SetPagetoTop", 1);
    pumpMessages();
    chooseField(form.grid(), u"单号");
    type(u"SK-1");
    key(VK_RETURN);
    automation::Value text = u"";
    EXPECT_TRUE(automation::toBoolean(call(form.filter(), u"GetFilterSql", automation::Argument::byReference(text))));
    std::u16string filter = automation::toText(text);
    std::erase(filter, u' ');
    return filter;
}

class RandomUsers : public testing::TestWithParam<std::uint32_t> {};

TEST_P(RandomUsers, LeaveAControlThatWorks) {
    constexpr int steps = 3000;
    const Dll kept(u"ORVFilter.ocx");
    {
        FaultyHost host(faults::openSmallErp());
        const ServedHost served(host);
        Form form(host);
        const std::u16string expected = filterOfOneCondition(form, host);
        EXPECT_NE(expected.find(u"'SK-1'"), std::u16string::npos);
        host.strike.action = [] { throw AutomationError(5001, u"host", u"broken on purpose"); };
        RandomUser user(GetParam(), form, host);
        {
            const ModalUser modal([&user](HWND window) { user.answer(window); });
            for (int step = 0; step < steps; ++step)
                user.act();
            host.strike.at = 0;
            SetFocus(sharedForm().hwnd());
            pumpMessages();
            // Behind the condition stand the options that the user has left chosen.
            EXPECT_EQ(filterOfOneCondition(form, host).substr(0, expected.size()), expected);
            EXPECT_GT(user.calls(), steps / 10) << "the user hardly comes to the host";
        }
        EXPECT_EQ(form.close(false), 0u);
    }
    pumpMessages();
    EXPECT_TRUE(kept.canUnload()) << "objects of the control are alive";
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomUsers, testing::Range(1u, faults::isFullSweep() ? 61u : 5u));

} // namespace

} // namespace orv::windows::test
