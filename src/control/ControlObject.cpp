#include "control/ControlObject.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"

#include <array>

namespace orv::control {

using automation::Arguments;
using automation::AutomationError;
using automation::InvokeKind;
using automation::Value;
namespace errorNumber = automation::errorNumber;

namespace {

struct Property {
    std::u16string_view name;
    Value (*read)(const ui::Control&);
    void (*write)(ui::Control&, const Value&); ///< null for what only the control changes
};

ui::CaptionControl& captioned(ui::Control& control) {
    auto* result = dynamic_cast<ui::CaptionControl*>(&control);
    if (result == nullptr)
        throw AutomationError::runtime(errorNumber::memberNotFound);
    return *result;
}

Value readCaption(const ui::Control& control) {
    const auto* result = dynamic_cast<const ui::CaptionControl*>(&control);
    if (result == nullptr)
        throw AutomationError::runtime(errorNumber::memberNotFound);
    return result->caption();
}

Value readIndex(const ui::Control& control) {
    if (!control.index())
        throw AutomationError::runtime(errorNumber::memberNotFound);
    return std::int32_t{*control.index()};
}

const std::array properties{
    Property{u"Name", [](const ui::Control& c) { return Value(c.name()); }, nullptr},
    Property{u"Index", readIndex, nullptr},
    Property{u"Caption", readCaption,
             [](ui::Control& c, const Value& v) { captioned(c).setCaption(automation::toText(v)); }},
    Property{u"Tag", [](const ui::Control& c) { return Value(c.tag()); },
             [](ui::Control& c, const Value& v) { c.setTag(automation::toText(v)); }},
    Property{u"ToolTipText", [](const ui::Control& c) { return Value(c.toolTip()); },
             [](ui::Control& c, const Value& v) { c.setToolTip(automation::toText(v)); }},
    Property{u"Visible", [](const ui::Control& c) { return Value(c.visible()); },
             [](ui::Control& c, const Value& v) { c.setVisible(automation::toBoolean(v)); }},
    Property{u"Enabled", [](const ui::Control& c) { return Value(c.enabled()); },
             [](ui::Control& c, const Value& v) { c.setEnabled(automation::toBoolean(v)); }},
    Property{u"Left", [](const ui::Control& c) { return Value(std::int32_t{c.bounds().left}); }, nullptr},
    Property{u"Top", [](const ui::Control& c) { return Value(std::int32_t{c.bounds().top}); }, nullptr},
    Property{u"Width", [](const ui::Control& c) { return Value(std::int32_t{c.bounds().width}); }, nullptr},
    Property{u"Height", [](const ui::Control& c) { return Value(std::int32_t{c.bounds().height}); }, nullptr},
};

class ControlObject final : public automation::Object {
  public:
    ControlObject(std::function<ui::Control*()> find, std::u16string_view type) : find_(std::move(find)), type_(type) {}

    std::u16string_view typeName() const override { return type_; }

    Value invoke(std::u16string_view member, InvokeKind kind, Arguments arguments) override {
        ui::Control* control = find_();
        if (control == nullptr)
            throw AutomationError::runtime(errorNumber::objectNotSet);
        for (const Property& property : properties) {
            if (!automation::sameMember(property.name, member))
                continue;
            const bool writes = kind == InvokeKind::let || kind == InvokeKind::set;
            if (arguments.size() != (writes ? 1U : 0U))
                throw AutomationError::runtime(errorNumber::wrongArgumentCount);
            if (!writes)
                return property.read(*control);
            if (property.write == nullptr)
                break;
            property.write(*control, arguments[0].value());
            return {};
        }
        throw AutomationError::runtime(errorNumber::memberNotFound);
    }

  private:
    std::function<ui::Control*()> find_;
    std::u16string_view type_; // a literal of the control's class
};

} // namespace

automation::ObjectRef makeControlObject(std::function<ui::Control*()> find, std::u16string_view typeName) {
    return std::make_shared<ControlObject>(std::move(find), typeName);
}

} // namespace orv::control
