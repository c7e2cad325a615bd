#include "control/LocalizeControls.h"

#include "automation/AutomationError.h"
#include "control/ControlObject.h"

namespace orv::control {

using automation::Argument;
using automation::ObjectRef;
using automation::Value;
using support::Localisation;

namespace {

void translate(ui::CaptionControl& control, const Localisation& texts) {
    control.setCaption(texts.TranslateText(control.caption()));
}

void translate(ui::Spread& grid, const Localisation& texts) {
    for (int column = 1; column <= grid.maxCols(); ++column)
        grid.setText(column, 0, texts.TranslateText(grid.text(column, 0)));
}

void translate(ui::TabStrip& tabs, const Localisation& texts) {
    for (std::size_t i = 0; i < tabs.tabs().size(); ++i)
        tabs.setTabCaption(static_cast<int>(i) + 1, texts.TranslateText(tabs.tabs()[i].caption));
}

void translate(ui::ListView& list, const Localisation& texts) {
    auto headers = list.columnHeaders();
    for (std::u16string& header : headers)
        header = texts.TranslateText(header);
    list.setColumnHeaders(std::move(headers));
}

void translate(ui::Toolbar& toolbar, const Localisation& texts) {
    for (int position = 1; position <= toolbar.count(); ++position) {
        auto button = toolbar.buttons()[static_cast<std::size_t>(position - 1)];
        button.caption = texts.TranslateText(button.caption);
        button.toolTip = texts.TranslateText(button.toolTip);
        for (auto& item : button.menu)
            item.text = texts.TranslateText(item.text);
        toolbar.setButton(position, std::move(button));
    }
}

/// False for a control of a type that has nothing to translate.
bool translateControl(ui::Control& control, const Localisation& texts) {
    const auto tryAs = [&]<class T>(T* typed) {
        if (typed != nullptr)
            translate(*typed, texts);
        return typed != nullptr;
    };
    return tryAs(dynamic_cast<ui::CaptionControl*>(&control)) || tryAs(dynamic_cast<ui::Spread*>(&control)) ||
           tryAs(dynamic_cast<ui::TabStrip*>(&control)) || tryAs(dynamic_cast<ui::ListView*>(&control)) ||
           tryAs(dynamic_cast<ui::Toolbar*>(&control));
}

} // namespace

void localizeControls(FilterState& state, const std::vector<ui::Control*>& controls) {
    // A host that keeps a control's object after the call finds the control gone, not its memory.
    const auto alive = std::make_shared<bool>(true);
    ObjectRef fonts;
    try {
        fonts = state.factory.shared(u"ORVFrmRes.FrmResLoader");
    } catch (const automation::AutomationError& error) {
        state.log(error.description());
    }
    for (ui::Control* control : controls) {
        if (!translateControl(*control, state.localisation) || !fonts)
            continue;
        Value reference(makeControlObject(
            [control, token = std::weak_ptr<bool>(alive)] { return token.expired() ? nullptr : control; },
            control->typeName()));
        try {
            automation::call(fonts, u"SetCtlFont", Argument::byReference(reference));
        } catch (const automation::AutomationError& error) {
            state.log(error.description());
        }
    }
}

void localizeControls(FilterState& state) {
    std::vector<ui::Control*> controls;
    state.controls->forEach([&controls](ui::Control& control) { controls.push_back(&control); });
    localizeControls(state, controls);
}

} // namespace orv::control
