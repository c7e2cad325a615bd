#include "automation/Text.h"
#include "play/Captions.h"
#include "play/ScenarioError.h"
#include "play/Session.h"
#include "play/Show.h"
#include "play/StepOutcome.h"
#include "play/StepReader.h"
#include "play/Steps.h"

#include <algorithm>

namespace orv::play {

namespace {

/// A user can do nothing with a control that is hidden or disabled; the outcome tells so.
bool usable(const ui::Control& control, StepOutcome& outcome) {
    if (control.visible() && control.enabled())
        return true;
    outcome.refused = automation::toUtf8(control.fullName()) + (control.visible() ? " is disabled" : " is hidden");
    return false;
}

/// The position of what the step names by "item" (a caption) or by "index"; `first` is the control's own first one.
int position(const Json& step, const std::vector<std::u16string>& items, int first, const std::string& name) {
    if (has(step, "item") == has(step, "index"))
        throw ScenarioError("either \"item\" or \"index\" names what is selected");
    if (has(step, "item"))
        return findItem(items, utf8Of(step, "item"), name) + first;
    const int index = numberOf(step, "index");
    if (index < first || index >= first + static_cast<int>(items.size()))
        throw ScenarioError(name + " has no item " + std::to_string(index) + ": its " + std::to_string(items.size()) +
                            " items count from " + std::to_string(first));
    return index;
}

template <class Item>
std::vector<std::u16string> texts(const std::vector<Item>& items, std::u16string Item::*text) {
    std::vector<std::u16string> all;
    std::ranges::transform(items, std::back_inserter(all), text);
    return all;
}

} // namespace

void selectStep(Session& session, const Json& step, StepOutcome& outcome) {
    const std::string& name = utf8Of(step, "select");
    ui::Control& control = session.control(name);
    if (auto* box = dynamic_cast<ui::ComboBox*>(&control)) {
        const int index = position(step, box->items(), 0, name);
        if (usable(control, outcome))
            box->userSelect(index);
    } else if (auto* list = dynamic_cast<ui::ListView*>(&control)) {
        const int index = position(step, texts(list->items(), &ui::ListView::Item::text), 1, name);
        if (usable(control, outcome))
            list->userSelect(index);
    } else if (auto* tabs = dynamic_cast<ui::TabStrip*>(&control)) {
        const int index = position(step, texts(tabs->tabs(), &ui::TabStrip::Tab::caption), 1, name);
        if (usable(control, outcome))
            tabs->userSelect(index);
    } else {
        throw ScenarioError("\"" + name + "\" has no items to select");
    }
}

void checkStep(Session& session, const Json& step, StepOutcome& outcome) {
    const std::string& name = utf8Of(step, "check");
    auto* box = dynamic_cast<ui::CheckBox*>(&session.control(name));
    if (!box)
        throw ScenarioError("\"" + name + "\" is no check box");
    const bool wanted = flagOf(step, "value");
    if (usable(*box, outcome) && box->isChecked() != wanted)
        box->userClick();
}

void clickStep(Session& session, const Json& step, StepOutcome& outcome) {
    const std::string& name = utf8Of(step, "click");
    ui::Control& control = session.control(name);
    if (auto* button = dynamic_cast<ui::Button*>(&control)) {
        if (has(step, "button") || has(step, "menu"))
            throw ScenarioError("\"" + name + "\" is a lone button");
        if (usable(control, outcome))
            button->press();
        return;
    }
    auto* bar = dynamic_cast<ui::Toolbar*>(&control);
    if (!bar)
        throw ScenarioError("\"" + name + "\" is neither a button nor a toolbar");
    const std::u16string key = textOf(step, "button");
    const auto button = std::ranges::find(bar->buttons(), key, &ui::Toolbar::ToolButton::key);
    if (button == bar->buttons().end())
        throw ScenarioError("\"" + name + "\" has no button \"" + automation::toUtf8(key) + "\"");
    if (!usable(control, outcome))
        return;
    if (!button->enabled)
        outcome.refused = "the button " + automation::toUtf8(key) + " is disabled";
    else if (has(step, "menu"))
        bar->userMenu(key, textOf(step, "menu"));
    else
        bar->userClick(key);
}

void scrollStep(Session& session, const Json& step, StepOutcome& outcome) {
    const std::string& name = utf8Of(step, "scroll");
    auto* bar = dynamic_cast<ui::ScrollBar*>(&session.control(name));
    if (!bar)
        throw ScenarioError("\"" + name + "\" is no scroll bar");
    const int value = numberOf(step, "to");
    if (value < 0 || value > bar->maximum())
        throw ScenarioError("\"" + name + "\" scrolls from 0 to " + std::to_string(bar->maximum()));
    if (usable(*bar, outcome))
        bar->setValue(value);
}

void showStep(Session& session, const Json& step, StepOutcome& outcome) {
    const Json& what = step["show"];
    if (what.is_string()) {
        outcome.result = shown(session.control(what.get_ref<const std::string&>()));
        return;
    }
    if (!what.is_object() || what.size() != 3)
        throw ScenarioError("\"show\" names a control, or a cell by \"grid\", \"col\" and \"row\"");
    ui::Spread& grid = session.grid(utf8Of(what, "grid"));
    const int column = numberOf(what, "col");
    const int row = numberOf(what, "row");
    if (column < 0 || column > grid.maxCols() || row < 0 || row > grid.maxRows())
        throw ScenarioError("the cell to show is outside of the grid");
    outcome.result = shownCell(grid, column, row);
}

} // namespace orv::play
