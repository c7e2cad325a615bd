#include "ole/Container.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orv::windows::test {

namespace {

/// A key that is held down, as far as this thread knows.
class HeldKey {
  public:
    explicit HeldKey(int key) : key_(key) { set(0x80); }
    HeldKey(const HeldKey&) = delete;
    HeldKey& operator=(const HeldKey&) = delete;
    ~HeldKey() { set(0); }

  private:
    void set(BYTE state) const {
        BYTE keys[256];
        GetKeyboardState(keys);
        keys[key_] = state;
        SetKeyboardState(keys);
    }
    int key_;
};

class Keyboard : public testing::Test {
  protected:
    void SetUp() override {
        control.start();
        control.verb(OLEIVERB_UIACTIVATE);
        control.site->take();
    }
    /// Offers a key as a container's message loop does.
    HRESULT press(WPARAM key) {
        MSG message{};
        message.hwnd = GetFocus();
        message.message = WM_KEYDOWN;
        message.wParam = key;
        const HRESULT result = control.as<IOleInPlaceActiveObject>()->TranslateAccelerator(&message);
        pumpMessages();
        return result;
    }
    /// The places of the focus, from the one it has, until Tab leads out. A grid goes through its cells first.
    std::vector<HWND> walk() {
        std::vector<HWND> stops{GetFocus()};
        for (int keys = 0; keys < 400 && press(VK_TAB) == S_OK; ++keys) {
            if (GetFocus() != stops.back())
                stops.push_back(GetFocus());
        }
        return stops;
    }

    Embedded control{sharedForm().hwnd()};
};

TEST_F(Keyboard, TabGoesThroughAllPartsAndThenToTheContainer) {
    const std::vector<HWND> stops = walk();
    EXPECT_GT(stops.size(), 3u);
    EXPECT_LT(stops.size(), 40u);
    for (std::size_t i = 0; i < stops.size(); ++i) {
        EXPECT_TRUE(IsChild(control.window(), stops[i])) << "stop " << i;
        EXPECT_EQ(std::count(stops.begin(), stops.end(), stops[i]), 1) << "stop " << i << " comes twice";
    }
    EXPECT_EQ(control.site->take(), Calls{"key 9 0"}) << "the container gets the Tab that leads out, and no other";
}

TEST_F(Keyboard, ShiftTabGoesTheSameWayBack) {
    std::vector<HWND> forward = walk();
    control.site->take();
    const HeldKey shift(VK_SHIFT);
    std::vector<HWND> backward = walk();
    std::reverse(backward.begin(), backward.end());
    EXPECT_EQ(backward, forward);
    EXPECT_EQ(control.site->take(), Calls{"key 9 1"});
}

TEST_F(Keyboard, APlainTabGoesToTheNextPartToo) {
    const HWND first = GetFocus();
    EXPECT_EQ(press(VK_TAB), S_OK);
    EXPECT_NE(GetFocus(), first);
    EXPECT_TRUE(IsChild(control.window(), GetFocus()));
    EXPECT_EQ(control.site->take(), Calls{});
}

TEST_F(Keyboard, TabbingBackwardsEntersAtTheLastPart) {
    const HWND last = walk().back();
    SetFocus(sharedForm().hwnd());
    control.as<IOleInPlaceObject>()->UIDeactivate();
    const HeldKey shift(VK_SHIFT);
    MSG message{};
    message.message = WM_KEYDOWN;
    message.wParam = VK_TAB;
    control.as<IOleObject>()->DoVerb(OLEIVERB_UIACTIVATE, &message, control.client(), 0, nullptr, nullptr);
    EXPECT_EQ(GetFocus(), last);
}

TEST_F(Keyboard, EnterAndEscAreTheContainersAndItsAnswerCounts) {
    for (const bool takes : {false, true}) {
        control.site->takesKeys = takes;
        EXPECT_EQ(press(VK_RETURN), takes ? S_OK : S_FALSE);
        EXPECT_EQ(press(VK_ESCAPE), takes ? S_OK : S_FALSE);
        EXPECT_EQ(control.site->take(), (Calls{"key 13 0", "key 27 0"}));
    }
}

TEST_F(Keyboard, ADeadUiTakesNoKey) {
    control.site->uiDead = true;
    control.as<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN);
    control.site->take();
    EXPECT_EQ(press(VK_TAB), S_FALSE);
    EXPECT_EQ(control.site->take(), Calls{});
}

TEST_F(Keyboard, ClosingWithinTheContainersKeyHandlingIsSafe) {
    control.site->actsIn = "key 27 0";
    control.site->act = [&] { control.as<IOleObject>()->Close(OLECLOSE_NOSAVE); };
    press(VK_ESCAPE);
    EXPECT_EQ(control.window(), nullptr);
    EXPECT_EQ(press(VK_TAB), S_FALSE);
}

} // namespace

} // namespace orv::windows::test
