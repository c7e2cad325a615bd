#include "windows/com/ControlObject.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"

#include <string>
#include <utility>

namespace orv::windows {

using automation::Arguments;
using automation::AutomationError;
using automation::InvokeKind;
using automation::sameMember;
using automation::Value;
namespace errorNumber = automation::errorNumber;

namespace {

/// One call of a control object: which member, with how many arguments.
struct Request {
    std::u16string_view member;
    Arguments arguments;

    bool is(std::u16string_view name, std::size_t count = 0) const {
        if (!sameMember(member, name))
            return false;
        if (arguments.size() != count)
            throw AutomationError::runtime(errorNumber::wrongArgumentCount);
        return true;
    }
    int number(std::size_t i) const { return automation::toInt32(arguments[i].value()); }
    std::u16string text(std::size_t i) const { return automation::toText(arguments[i].value()); }
};

[[noreturn]] void unknownMember() {
    throw AutomationError::runtime(errorNumber::memberNotFound);
}

template <class T>
const T& elementAt(const std::vector<T>& list, int position) {
    if (position < 0 || static_cast<std::size_t>(position) >= list.size())
        throw AutomationError::runtime(errorNumber::subscriptOutOfRange);
    return list[static_cast<std::size_t>(position)];
}

std::u16string_view nameOf(ui::CellType type) {
    switch (type) {
    case ui::CellType::edit:
        return u"edit";
    case ui::CellType::comboBox:
        return u"comboBox";
    case ui::CellType::checkBox:
        return u"checkBox";
    case ui::CellType::staticText:
        return u"staticText";
    case ui::CellType::wholeNumber:
        return u"wholeNumber";
    case ui::CellType::decimal:
        return u"decimal";
    case ui::CellType::date:
        return u"date";
    case ui::CellType::time:
        return u"time";
    }
    return {};
}

Value ask(ui::Button& button, const Request& request) {
    if (!request.is(u"Press"))
        unknownMember();
    button.press();
    return {};
}

Value ask(ui::CheckBox& box, const Request& request) {
    if (request.is(u"Value"))
        return static_cast<std::int32_t>(box.value());
    if (!request.is(u"Click"))
        unknownMember();
    box.userClick();
    return {};
}

Value ask(ui::ComboBox& box, const Request& request) {
    if (request.is(u"Text"))
        return box.text();
    if (request.is(u"Count"))
        return box.count();
    if (request.is(u"ListIndex"))
        return box.listIndex();
    if (request.is(u"Item", 1))
        return elementAt(box.items(), request.number(0));
    if (!request.is(u"Choose", 1))
        unknownMember();
    box.userSelect(request.number(0));
    return {};
}

Value ask(ui::Spread& grid, const Request& request) {
    if (request.is(u"MaxRows"))
        return grid.maxRows();
    if (request.is(u"MaxCols"))
        return grid.maxCols();
    if (request.is(u"Text", 2))
        return grid.text(request.number(0), request.number(1));
    if (request.is(u"CellType", 2)) {
        const ui::CellSpan shown = grid.spanAt(request.number(0), request.number(1));
        return nameOf(grid.cellType(shown.column, shown.row));
    }
    if (request.is(u"ListCount", 2))
        return static_cast<std::int32_t>(grid.comboItems(request.number(0), request.number(1)).size());
    if (request.is(u"Item", 3))
        return elementAt(grid.comboItems(request.number(0), request.number(1)), request.number(2));
    if (request.is(u"MoveTo", 2))
        return grid.userMoveTo(request.number(0), request.number(1));
    if (request.is(u"Type", 3))
        return grid.userType(request.number(0), request.number(1), request.text(2));
    if (request.is(u"Choose", 3))
        return grid.userChoose(request.number(0), request.number(1), request.number(2));
    if (request.is(u"Toggle", 2))
        return grid.userToggle(request.number(0), request.number(1));
    if (!request.is(u"Key", 2))
        unknownMember();
    grid.userKeyDown(request.number(0), request.number(1));
    return {};
}

Value ask(ui::TabStrip& tabs, const Request& request) {
    if (request.is(u"Count"))
        return static_cast<std::int32_t>(tabs.tabs().size());
    if (request.is(u"Selected"))
        return tabs.selected();
    if (!request.is(u"Choose", 1))
        unknownMember();
    tabs.userSelect(request.number(0));
    return {};
}

Value ask(ui::Toolbar& bar, const Request& request) {
    if (request.is(u"Click", 1))
        bar.userClick(request.text(0));
    else if (request.is(u"Menu", 2))
        bar.userMenu(request.text(0), request.text(1));
    else
        unknownMember();
    return {};
}

Value ask(ui::ListView& list, const Request& request) {
    if (request.is(u"Count"))
        return list.count();
    if (request.is(u"Selected"))
        return list.selected();
    if (request.is(u"Item", 1))
        return elementAt(list.items(), request.number(0) - 1).text;
    if (!request.is(u"Choose", 1))
        unknownMember();
    list.userSelect(request.number(0));
    return {};
}

template <class T>
bool askIf(ui::Control& control, const Request& request, Value& answer) {
    auto* specific = dynamic_cast<T*>(&control);
    if (specific)
        answer = ask(*specific, request);
    return specific != nullptr;
}

class ControlObject final : public automation::Object {
  public:
    ControlObject(ComPtr<IUnknown> owner, control::FilterControls& controls, std::u16string_view name)
        : owner_(std::move(owner)), controls_(controls), name_(name) {
        found();
    }

    Value invoke(std::u16string_view member, InvokeKind kind, Arguments arguments) override {
        if (kind == InvokeKind::let || kind == InvokeKind::set)
            unknownMember();
        ui::Control& control = found();
        const Request request{member, arguments};
        if (request.is(u"Name"))
            return control.fullName();
        if (request.is(u"Visible"))
            return control.visible();
        if (request.is(u"Enabled"))
            return control.enabled();
        if (const auto* captioned = dynamic_cast<const ui::CaptionControl*>(&control);
            captioned && request.is(u"Caption"))
            return captioned->caption();
        Value answer;
        if (!(askIf<ui::Button>(control, request, answer) || askIf<ui::CheckBox>(control, request, answer) ||
              askIf<ui::ComboBox>(control, request, answer) || askIf<ui::Spread>(control, request, answer) ||
              askIf<ui::TabStrip>(control, request, answer) || askIf<ui::Toolbar>(control, request, answer) ||
              askIf<ui::ListView>(control, request, answer)))
            unknownMember();
        return answer;
    }

    std::u16string_view typeName() const override { return u"Control"; }

  private:
    ui::Control& found() const {
        ui::Control* control = controls_.find(name_);
        if (!control)
            throw AutomationError::runtime(errorNumber::invalidCall);
        return *control;
    }

    ComPtr<IUnknown> owner_;
    control::FilterControls& controls_;
    std::u16string name_;
};

} // namespace

automation::ObjectRef makeControlObject(ComPtr<IUnknown> owner, control::FilterControls& controls,
                                        std::u16string_view name) {
    return std::make_shared<ControlObject>(std::move(owner), controls, name);
}

} // namespace orv::windows
