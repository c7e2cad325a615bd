#pragma once

#include "automation/Value.h"
#include "play/Json.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace orv::play {

/// One step of a scenario: a verb, its parameters, and what is expected of it.
struct Step {
    std::size_t number = 0; ///< from 1
    std::string verb;
    Json body;                  ///< the whole step as written
    std::optional<Json> expect; ///< output keys and their values
    std::string note;           ///< what the step is for, in words
};

/// A scenario file: a host, and what a host program and its user do with the control.
struct Scenario {
    std::string name; ///< names the scenario in messages
    std::string title;
    std::string note;
    Json host; ///< "erp" or a described host
    std::optional<automation::Date> now;
    std::optional<std::u16string> props;
    /// Entries of the control settings beyond the host's usual ones; null for a control without any settings.
    Json settings = Json::object();
    std::vector<Step> steps;
};

/// Reads a scenario; ScenarioError names the first thing that is not as it should be, with the step's number.
Scenario parseScenario(std::string_view json, std::string name);

/// Reads a scenario file; ScenarioError also when it cannot be read.
Scenario loadScenario(const std::filesystem::path& file);

} // namespace orv::play
