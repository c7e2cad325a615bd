#include "play/Player.h"

#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "play/Expectation.h"
#include "play/ScenarioError.h"
#include "play/Session.h"
#include "play/Verbs.h"

namespace orv::play {

namespace {

using automation::toUtf8;

StepOutcome run(Session& session, const Step& step) {
    StepOutcome outcome;
    try {
        findVerb(step.verb)->run(session, step.body, outcome);
    } catch (const automation::AutomationError& error) {
        outcome.error = RaisedError{error.number(), error.source(), error.description()};
    }
    RecordingPrompts& prompts = session.prompts();
    outcome.messages = prompts.takeMessages();
    outcome.dialogs = prompts.takeDialogs();
    outcome.log = prompts.takeLogged();
    for (const std::string& problem : prompts.takeProblems())
        throw ScenarioError(problem);
    return outcome;
}

std::vector<std::string> failuresOf(const Step& step, const StepOutcome& outcome) {
    std::vector<std::string> failures;
    const Json expected = step.expect.value_or(Json::object());
    if (outcome.error && !expected.contains("error"))
        failures.push_back("error " + std::to_string(outcome.error->number) +
                           " was raised: " + toUtf8(outcome.error->description));
    if (!outcome.refused.empty() && !expected.contains("refused"))
        failures.push_back(outcome.refused);
    for (std::string& difference : differences(expected, outcome.toJson(step.number)))
        failures.push_back(std::move(difference));
    return failures;
}

} // namespace

Report play(const Scenario& scenario, Audience& audience) {
    Report report;
    std::string place = scenario.name + ": ";
    try {
        Session session(scenario);
        audience.begins(scenario);
        for (const Step& step : scenario.steps) {
            place = scenario.name + ": step " + std::to_string(step.number) + ": ";
            const StepOutcome outcome = run(session, step);
            const std::vector<std::string> failures = failuresOf(step, outcome);
            audience.played(step, outcome, failures);
            for (const std::string& failure : failures)
                report.failures.push_back(place + failure);
        }
        if (const std::size_t left = session.prompts().queued())
            report.failures.push_back(scenario.name + ": " + std::to_string(left) +
                                      " queued answers were never asked for");
    } catch (const ScenarioError& error) {
        report.cannotPlay = place + error.what();
    }
    return report;
}

} // namespace orv::play
