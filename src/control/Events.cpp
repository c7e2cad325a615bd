#include "control/Events.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/TracedCall.h"
#include "control/ClassTypeLoading.h"
#include "control/ClassTypeReload.h"
#include "control/LayOut.h"

namespace orv::control {

using automation::AutomationError;

namespace {

/// Twips that one step of the page area's scroll bar moves it by.
constexpr int twipsPerScrollStep = 45;

/// Positions of the buttons of `cmdHide`.
enum class HideButton { up, down, all, none, usual };

template <class Action>
void trapped(FilterState& state, Action action) {
    try {
        action();
    } catch (const AutomationError& error) {
        state.log(error.description());
    }
}

class Wiring {
  public:
    explicit Wiring(FilterState& state) : state_(state) {}

    /// `name` must be a literal: the trace shows the event under it.
    template <class... Args, class Action>
    void on(ui::Signal<Args...>& signal, std::u16string_view name, Action action) {
        state_.subscriptions.push_back(signal.subscribe([&state = state_, name, action](Args... args) {
            trapped(state, [&] { automation::tracedEvent(state.trace, name, [&] { action(args...); }); });
        }));
    }
    /// The same for an event whose handler reads or changes the grids: what is being typed comes first.
    template <class... Args, class Action>
    void afterEdits(ui::Signal<Args...>& signal, std::u16string_view name, Action action) {
        on(signal, name, [&state = state_, action](Args... args) {
            state.finishEdits();
            action(args...);
        });
    }

  private:
    FilterState& state_;
};

void hideButtonPressed(FilterState& state, HideButton button) {
    switch (button) {
    case HideButton::up:
        state.columnGrid.moveUp();
        break;
    case HideButton::down:
        state.columnGrid.moveDown();
        break;
    case HideButton::all:
        state.columnGrid.setAllShown(true);
        break;
    case HideButton::none:
        state.columnGrid.setAllShown(false);
        break;
    case HideButton::usual:
        initHideColumns(state);
        break;
    }
}

} // namespace

void saveScheme(FilterState& state, schemes::SaveMode mode, std::int32_t status) {
    trapped(state, [&] {
        state.finishEdits();
        state.schemeManager.save(mode, status);
    });
}

void wireEvents(FilterState& state) {
    FilterControls& controls = *state.controls;
    Wiring wiring(state);
    wiring.afterEdits(controls.cboClassType.click, u"cboClassType.click", [&state] { classTypeChosen(state); });
    // A text that its cell refuses is not to vanish with its page.
    wiring.on(controls.tbFilter.beforeClick, u"tbFilter.beforeClick",
              [&state](bool& cancel) { cancel = !state.finishEdits() || cancel; });
    wiring.on(controls.tbFilter.click, u"tbFilter.click", [&state] { layOutControls(state); });
    wiring.on(controls.vsFilter.cellChanged, u"vsFilter.cellChanged",
              [&state](int column, int row) { state.accountCheck.cellChanged(column, row); });
    wiring.on(controls.vsFilter.keyDown, u"vsFilter.keyDown",
              [&state](int keyCode, int) { state.valueLookUp.keyDown(keyCode); });
    wiring.afterEdits(controls.cmdInsert.click, u"cmdInsert.click", [&state] { state.conditionGrid.insertRow(); });
    wiring.afterEdits(controls.cmdDel.click, u"cmdDel.click", [&state] { state.conditionGrid.deleteRow(); });
    wiring.afterEdits(controls.cmdDelAll.click, u"cmdDelAll.click", [&state] { state.conditionGrid.clearAll(); });
    for (int i = 0; i <= controls.cmdHide.upperBound(); ++i)
        wiring.afterEdits(controls.cmdHide(i).click, u"cmdHide.click",
                          [&state, i] { hideButtonPressed(state, static_cast<HideButton>(i)); });
    wiring.on(controls.vsHideColumn.click, u"vsHideColumn.click", [&state, &controls](int, int) {
        for (const HideButton move : {HideButton::up, HideButton::down})
            if (state.columnGrid.currentRow() != 0)
                controls.cmdHide(static_cast<int>(move)).setEnabled(true);
    });
    wiring.afterEdits(controls.lvwProject.itemClick, u"lvwProject.itemClick",
                      [&state] { state.schemeManager.applySelected(); });
    wiring.afterEdits(controls.tlbProject.buttonClick, u"tlbProject.buttonClick",
                      [&state](const std::u16string& key) { state.schemeManager.toolbarClick(key); });
    // 16-bit arithmetic: a value beyond it is a failure for whoever set it.
    state.subscriptions.push_back(controls.vsPage.change.subscribe([&controls] {
        const double top = -double{twipsPerScrollStep} * controls.vsPage.value();
        controls.picPage.setTopTwips(automation::roundToInt16(top));
    }));
}

} // namespace orv::control
