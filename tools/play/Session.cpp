#include "play/Session.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Text.h"
#include "play/Scenario.h"
#include "play/ScenarioError.h"
#include "play/Values.h"

namespace orv::play {

namespace {

std::shared_ptr<erp::ErpHost> openHost(const Scenario& scenario) {
    erp::HostOptions options;
    if (scenario.props)
        options.props = *scenario.props;
    if (scenario.now)
        options.now = scenario.now->days;
    try {
        if (scenario.host.is_object())
            return erp::ErpHost::described(scenario.host.dump(), options);
        return erp::ErpHost::open(options);
    } catch (const automation::AutomationError& error) {
        throw ScenarioError("the host: " + automation::toUtf8(error.description()));
    } catch (const Json::exception& error) {
        throw ScenarioError(std::string("the host: ") + error.what());
    }
}

} // namespace

Session::Session(const Scenario& scenario) : scenario_(scenario), host_(openHost(scenario)) {
    openControl();
}

void Session::logOn(std::u16string props) {
    filter_.reset();
    host_->setProps(std::move(props));
    openControl();
}

void Session::openControl() {
    filter_ = std::make_unique<control::Filter>(*host_, prompts_);
    if (scenario_.settings.is_null())
        return;
    const automation::Dictionary settings = host_->defaultSettings();
    for (const auto& [key, entry] : scenario_.settings.items())
        settings.set(automation::fromUtf8(key), toValue(entry, *host_));
    filter_->put_dctControl(settings);
}

ui::Control& Session::control(const std::string& name) {
    control::FilterControls& controls = filter_->controls();
    if (ui::Control* found = controls.find(automation::fromUtf8(name)))
        return *found;
    std::string names;
    controls.forEach([&names](const ui::Control& control) {
        names += (names.empty() ? "" : ", ") + automation::toUtf8(control.fullName());
    });
    throw ScenarioError("no control \"" + name + "\" (there are " + names + ")");
}

ui::Spread& Session::grid(const std::string& name) {
    if (auto* grid = dynamic_cast<ui::Spread*>(&control(name)))
        return *grid;
    throw ScenarioError("\"" + name + "\" is no grid");
}

std::int32_t Session::classTypeId() {
    const automation::ObjectRef service = filter_->get_DataSrv();
    if (!service)
        throw ScenarioError("there is no data service yet: set \"DataSrv\" first");
    return automation::toInt32(automation::get(service, u"ClassTypeID"));
}

} // namespace orv::play
