#pragma once

#include "control/Filter.h"
#include "erp/host/ErpHost.h"
#include "play/RecordingPrompts.h"

#include <memory>
#include <string>

namespace orv::play {

struct Scenario;

/// The control of one scenario with its host and its user.
class Session {
  public:
    /// Opens the host, creates the control and gives it its settings. ScenarioError when the host cannot be opened as
    /// the scenario, which must outlive the session, describes it.
    explicit Session(const Scenario& scenario);

    control::Filter& filter() noexcept { return *filter_; }
    erp::ErpHost& host() noexcept { return *host_; }
    RecordingPrompts& prompts() noexcept { return prompts_; }

    /// Another user logs on and gets a control of his own, with the same settings, on the same host: `props` is his
    /// user properties string.
    void logOn(std::u16string props);

    /// The constituent control of that name ("chkPage(1)" for an element of an array); ScenarioError when there is
    /// none.
    ui::Control& control(const std::string& name);
    /// The grid of that name; ScenarioError for another control.
    ui::Spread& grid(const std::string& name);
    /// The class type that the control serves now; ScenarioError without a data service.
    std::int32_t classTypeId();

  private:
    void openControl();

    const Scenario& scenario_;
    std::shared_ptr<erp::ErpHost> host_;
    RecordingPrompts prompts_;
    std::unique_ptr<control::Filter> filter_; // goes first: host and prompts must outlive it
};

} // namespace orv::play
