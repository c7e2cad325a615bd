#include "ole/Container.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace orv::windows::test {

namespace {

const Calls activated = {"OnInPlaceActivate", "ShowObject"};
const Calls uiActivated = {"OnInPlaceActivate", "ShowObject", "OnUIActivate", "frame.SetActiveObject", "OnFocus 1"};

class Activation : public testing::Test {
  protected:
    FormWindow& form = sharedForm();
    Embedded control{form.hwnd()};
};

RECT placeOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::string text(const RECT& r) {
    return std::to_string(r.left) + "," + std::to_string(r.top) + " - " + std::to_string(r.right) + "," +
           std::to_string(r.bottom);
}

TEST_F(Activation, TheWindowIsAChildOfTheContainersWhereTheContainerWantsIt) {
    control.start();
    EXPECT_EQ(control.site->take(), activated);
    const HWND window = control.window();
    ASSERT_NE(window, nullptr);
    EXPECT_EQ(GetParent(window), form.hwnd());
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(text(placeOf(window)), text(control.site->position));
}

TEST_F(Activation, WithoutASiteNothingIsActivated) {
    EXPECT_EQ(control.verb(OLEIVERB_INPLACEACTIVATE), E_UNEXPECTED);
    EXPECT_EQ(control.verb(OLEIVERB_UIACTIVATE), E_UNEXPECTED);
    EXPECT_EQ(control.verb(OLEIVERB_HIDE), S_OK);
    EXPECT_EQ(control.window(), nullptr);
    EXPECT_EQ(control.as<IOleInPlaceObject>()->SetObjectRects(&control.site->position, &control.site->clip),
              E_UNEXPECTED);
}

TEST_F(Activation, AContainerThatRefusesGetsNoWindow) {
    control.site->allowsActivation = false;
    control.as<IOleObject>()->SetClientSite(control.client());
    EXPECT_EQ(control.verb(OLEIVERB_INPLACEACTIVATE), E_FAIL);
    EXPECT_EQ(control.site->take(), Calls{});
    EXPECT_EQ(control.window(), nullptr);
}

TEST_F(Activation, UiActivationTellsSiteThenFrameAndTakesTheFocus) {
    control.as<IOleObject>()->SetClientSite(control.client());
    EXPECT_EQ(control.verb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(control.site->take(), uiActivated);
    EXPECT_TRUE(IsChild(control.window(), GetFocus()));
    // Again: nothing is left to be told.
    EXPECT_EQ(control.verb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(control.site->take(), Calls{});
}

TEST_F(Activation, AFrameIsNotNeeded) {
    control.site->hasFrame = false;
    control.as<IOleObject>()->SetClientSite(control.client());
    EXPECT_EQ(control.verb(OLEIVERB_UIACTIVATE), S_OK);
    EXPECT_EQ(control.site->take(), (Calls{"OnInPlaceActivate", "ShowObject", "OnUIActivate", "OnFocus 1"}));
}

TEST_F(Activation, FocusThatComesByAClickMakesTheControlTheActiveObject) {
    control.start();
    control.site->take();
    SetFocus(GetWindow(control.window(), GW_CHILD));
    EXPECT_EQ(control.site->take(), (Calls{"OnUIActivate", "frame.SetActiveObject", "OnFocus 1"}));
    SetFocus(form.hwnd());
    pumpMessages();
    EXPECT_EQ(control.site->take(), Calls{"OnFocus 0"});
}

TEST_F(Activation, DeactivationGoesBackStepByStep) {
    control.as<IOleObject>()->SetClientSite(control.client());
    control.verb(OLEIVERB_UIACTIVATE);
    control.site->take();
    const auto inPlace = control.as<IOleInPlaceObject>();
    EXPECT_EQ(inPlace->UIDeactivate(), S_OK);
    EXPECT_EQ(control.site->take(), (Calls{"frame.SetActiveObject none", "OnUIDeactivate"}));
    EXPECT_NE(control.window(), nullptr);
    EXPECT_EQ(inPlace->InPlaceDeactivate(), S_OK);
    EXPECT_EQ(control.site->take(), (Calls{"OnFocus 0", "OnInPlaceDeactivate"}));
    EXPECT_EQ(control.window(), nullptr);
}

struct Step {
    const char* name;
    std::function<void(Embedded&)> run;
};
const Step steps[] = {
    {"activate", [](Embedded& c) { c.verb(OLEIVERB_INPLACEACTIVATE); }},
    {"UI activate", [](Embedded& c) { c.verb(OLEIVERB_UIACTIVATE); }},
    {"show", [](Embedded& c) { c.verb(OLEIVERB_SHOW); }},
    {"hide", [](Embedded& c) { c.verb(OLEIVERB_HIDE); }},
    {"UI deactivate", [](Embedded& c) { c.as<IOleInPlaceObject>()->UIDeactivate(); }},
    {"deactivate", [](Embedded& c) { c.as<IOleInPlaceObject>()->InPlaceDeactivate(); }},
    {"close", [](Embedded& c) { c.as<IOleObject>()->Close(OLECLOSE_NOSAVE); }},
    {"site", [](Embedded& c) { c.as<IOleObject>()->SetClientSite(c.client()); }},
    {"no site", [](Embedded& c) { c.as<IOleObject>()->SetClientSite(nullptr); }},
};

std::ptrdiff_t count(const Calls& calls, const char* name) {
    return std::count(calls.begin(), calls.end(), name);
}

// Every order of two steps, each before and after "UI activate": the container always sees activations and
// deactivations in pairs, and nothing of either side is held in the end.
TEST(ActivationOrder, AnyOrderOfStepsEndsWithNothingHeld) {
    const FormWindow& form = sharedForm();
    for (const Step& first : steps) {
        for (const Step& second : steps) {
            SCOPED_TRACE(std::string("site, ") + first.name + ", UI activate, " + second.name);
            Embedded each(form.hwnd());
            each.as<IOleObject>()->SetClientSite(each.client());
            first.run(each);
            each.verb(OLEIVERB_UIACTIVATE);
            second.run(each);
            ASSERT_EQ(each.finish(), 0u);
            ASSERT_EQ(each.site->heldByOthers(), 0u);
            ASSERT_TRUE(each.loaded.dll.canUnload());
            const Calls calls = each.site->take();
            ASSERT_EQ(count(calls, "OnInPlaceActivate"), count(calls, "OnInPlaceDeactivate"));
            ASSERT_EQ(count(calls, "OnUIActivate"), count(calls, "OnUIDeactivate"));
            ASSERT_EQ(count(calls, "frame.SetActiveObject"), count(calls, "frame.SetActiveObject none"));
            ASSERT_EQ(GetWindow(form.hwnd(), GW_CHILD), nullptr);
        }
    }
}

// A container may end it all from inside of any call that it gets.
TEST_F(Activation, ClosingFromWithinACallOfTheContainerIsSafe) {
    for (const char* call : {"OnInPlaceActivate", "ShowObject", "OnUIActivate", "frame.SetActiveObject", "OnFocus 1",
                             "frame.SetActiveObject none", "OnUIDeactivate", "OnFocus 0", "OnInPlaceDeactivate"}) {
        SCOPED_TRACE(call);
        Embedded each(form.hwnd());
        each.site->actsIn = call;
        each.site->act = [&] { each.as<IOleObject>()->Close(OLECLOSE_NOSAVE); };
        each.as<IOleObject>()->SetClientSite(each.client());
        each.verb(OLEIVERB_UIACTIVATE);
        pumpMessages();
        each.as<IOleInPlaceObject>()->InPlaceDeactivate();
        EXPECT_FALSE(each.site->act) << "the call did not come";
        EXPECT_EQ(each.window(), nullptr);
        const Calls calls = each.site->take();
        EXPECT_EQ(count(calls, "OnInPlaceActivate"), count(calls, "OnInPlaceDeactivate"));
        EXPECT_EQ(each.finish(), 0u);
        EXPECT_EQ(each.site->heldByOthers(), 0u);
    }
}

TEST_F(Activation, TheLastReferenceMayGoWhileTheControlIsActive) {
    control.start();
    control.verb(OLEIVERB_UIACTIVATE);
    control.loaded.filter = nullptr;
    pumpMessages();
    EXPECT_EQ(GetWindow(form.hwnd(), GW_CHILD), nullptr);
    EXPECT_EQ(control.site->heldByOthers(), 0u);
    EXPECT_TRUE(control.loaded.dll.canUnload());
}

TEST(ActivationOrder, TheContainersWindowMayGoFirst) {
    FormWindow form;
    Embedded control(form.hwnd());
    control.start();
    control.verb(OLEIVERB_UIACTIVATE);
    DestroyWindow(form.hwnd());
    pumpMessages();
    EXPECT_EQ(control.window(), nullptr);
    EXPECT_EQ(control.finish(), 0u);
    EXPECT_EQ(control.site->heldByOthers(), 0u);
}

TEST_F(Activation, HiddenAndShownAgain) {
    control.start();
    const HWND window = control.window();
    control.verb(OLEIVERB_HIDE);
    EXPECT_FALSE(IsWindowVisible(window));
    control.verb(OLEIVERB_SHOW);
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(control.window(), window);
}

struct RectCase {
    const char* name;
    RECT position, clip;
    RECT seen; ///< relative to the window
};

TEST_F(Activation, RectanglesMoveTheWindowAndCutOffWhatIsOutside) {
    control.start();
    const auto inPlace = control.as<IOleInPlaceObject>();
    for (const RectCase& c : {
             RectCase{"inside", {0, 0, 500, 300}, {0, 0, 800, 600}, {0, 0, 500, 300}},
             RectCase{"cut right and below", {100, 100, 700, 500}, {0, 0, 400, 300}, {0, 0, 300, 200}},
             RectCase{"cut left", {-50, 0, 450, 300}, {0, 0, 800, 600}, {50, 0, 500, 300}},
             RectCase{"whole again", {10, 10, 410, 310}, {0, 0, 800, 600}, {0, 0, 400, 300}},
         }) {
        SCOPED_TRACE(c.name);
        ASSERT_EQ(inPlace->SetObjectRects(&c.position, &c.clip), S_OK);
        const HWND window = control.window();
        EXPECT_EQ(text(placeOf(window)), text(c.position));
        const HRGN region = CreateRectRgn(0, 0, 0, 0);
        RECT seen{0, 0, c.position.right - c.position.left, c.position.bottom - c.position.top};
        if (GetWindowRgn(window, region) != ERROR)
            GetRgnBox(region, &seen);
        DeleteObject(region);
        EXPECT_EQ(text(seen), text(c.seen));
    }
}

TEST_F(Activation, DesignModeAndDeadUiTakeNoInput) {
    for (const bool design : {true, false}) {
        SCOPED_TRACE(design ? "design mode" : "UI dead");
        Embedded each(form.hwnd());
        each.site->userMode = !design;
        each.site->uiDead = !design;
        each.start();
        each.verb(OLEIVERB_UIACTIVATE);
        EXPECT_EQ(each.site->take(), activated);
        EXPECT_FALSE(IsWindowEnabled(each.window()));
        // The container goes over to user mode.
        each.site->userMode = true;
        each.site->uiDead = false;
        each.as<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN);
        EXPECT_TRUE(IsWindowEnabled(each.window()));
        each.verb(OLEIVERB_UIACTIVATE);
        EXPECT_EQ(each.site->take(), (Calls{"OnUIActivate", "frame.SetActiveObject", "OnFocus 1"}));
    }
}

TEST_F(Activation, WhileTheContainerIsModalTheControlIsDisabled) {
    control.start();
    const auto active = control.as<IOleInPlaceActiveObject>();
    active->EnableModeless(FALSE);
    EXPECT_FALSE(IsWindowEnabled(control.window()));
    active->EnableModeless(TRUE);
    EXPECT_TRUE(IsWindowEnabled(control.window()));
}

TEST_F(Activation, UnknownVerbs) {
    control.start();
    EXPECT_EQ(control.verb(OLEIVERB_OPEN), E_NOTIMPL);
    EXPECT_EQ(control.verb(-99), E_NOTIMPL);
    EXPECT_EQ(control.verb(7), OLEOBJ_S_INVALIDVERB);
    EXPECT_EQ(control.verb(OLEIVERB_DISCARDUNDOSTATE), S_OK);
}

} // namespace

} // namespace orv::windows::test
