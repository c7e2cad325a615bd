#include "play/Scenario.h"

#include "automation/Text.h"
#include "play/DateText.h"
#include "play/ScenarioError.h"
#include "play/StepReader.h"
#include "play/Verbs.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <set>

namespace orv::play {

namespace {

constexpr std::array<std::string_view, 7> scenarioKeys{"title", "note", "host", "now", "props", "settings", "steps"};
constexpr std::array<std::string_view, 2> commonStepKeys{"note", "expect"};
constexpr std::array<std::string_view, 7> outputKeys{"result", "args",    "messages", "dialogs",
                                                     "error",  "refused", "log"};

template <class Range>
bool contains(const Range& range, std::string_view key) {
    return std::ranges::find(range, key) != std::ranges::end(range);
}

void checkKeys(const Json& object, std::string_view what, const auto& known) {
    for (const auto& [key, ignored] : object.items()) {
        if (!contains(known, key))
            throw ScenarioError("unknown key \"" + key + "\" " + std::string(what) + " (there are " + listed(known) +
                                ")");
    }
}

/// JSON in which no object has a key twice: a second "expect" would silently replace the first.
Json parseStrictly(std::string_view text) {
    std::vector<std::set<std::string>> keys;
    const auto watch = [&keys](int, Json::parse_event_t event, Json& parsed) {
        if (event == Json::parse_event_t::object_start)
            keys.emplace_back();
        else if (event == Json::parse_event_t::object_end)
            keys.pop_back();
        else if (event == Json::parse_event_t::key && !keys.back().insert(parsed.get<std::string>()).second)
            throw ScenarioError("the key \"" + parsed.get<std::string>() + "\" stands twice in one object");
        return true;
    };
    try {
        return Json::parse(text, watch);
    } catch (const Json::parse_error& error) {
        // "[json.exception.parse_error.101] parse error at line 3, ...": the library's own tag says nothing to a
        // reader.
        const std::string_view what = error.what();
        throw ScenarioError("this is no JSON: " + std::string(what.substr(what.find("] ") + 2)));
    }
}

Step parseStep(const Json& body) {
    if (!body.is_object())
        throw ScenarioError("a step is an object");
    Step step;
    for (const auto& [key, ignored] : body.items()) {
        if (!findVerb(key))
            continue;
        if (!step.verb.empty())
            throw ScenarioError("two verbs, \"" + step.verb + "\" and \"" + key + "\": each needs a step of its own");
        step.verb = key;
    }
    const Verb* verb = findVerb(step.verb);
    if (!verb) {
        std::vector<std::string_view> names;
        std::ranges::transform(verbs(), std::back_inserter(names), &Verb::name);
        throw ScenarioError("no known verb among the keys of " + body.dump() + " (there are " + listed(names) + ")");
    }
    std::vector<std::string_view> known{verb->name};
    known.insert(known.end(), verb->keys.begin(), verb->keys.end());
    known.insert(known.end(), commonStepKeys.begin(), commonStepKeys.end());
    checkKeys(body, "in a \"" + step.verb + "\" step", known);
    step.body = body;
    if (has(body, "note"))
        step.note = utf8Of(body, "note");
    if (has(body, "expect")) {
        step.expect = objectOf(body, "expect");
        checkKeys(*step.expect, "in \"expect\"", outputKeys);
    }
    return step;
}

void parseHead(const Json& json, Scenario& scenario) {
    if (!json.is_object())
        throw ScenarioError("a scenario is an object");
    checkKeys(json, "of the scenario", scenarioKeys);
    if (has(json, "title"))
        scenario.title = utf8Of(json, "title");
    if (has(json, "note"))
        scenario.note = utf8Of(json, "note");
    if (!has(json, "host") || (json["host"] != "erp" && !json["host"].is_object()))
        throw ScenarioError("\"host\" must be \"erp\" or an object that describes a host");
    scenario.host = json["host"];
    if (has(json, "now"))
        scenario.now = parseDateText(utf8Of(json, "now"));
    if (has(json, "props"))
        scenario.props = textOf(json, "props");
    if (has(json, "settings")) {
        scenario.settings = json["settings"];
        if (!scenario.settings.is_object() && !scenario.settings.is_null())
            throw ScenarioError("\"settings\" must be an object, or null for a control without settings");
    }
    if (!has(json, "steps") || !json["steps"].is_array() || json["steps"].empty())
        throw ScenarioError("\"steps\" must be an array of steps");
}

} // namespace

Scenario parseScenario(std::string_view text, std::string name) {
    Scenario scenario;
    scenario.name = std::move(name);
    std::string place;
    try {
        const Json json = parseStrictly(text);
        parseHead(json, scenario);
        for (const Json& body : json["steps"]) {
            place = "step " + std::to_string(scenario.steps.size() + 1) + ": ";
            scenario.steps.push_back(parseStep(body));
            scenario.steps.back().number = scenario.steps.size();
        }
    } catch (const ScenarioError& error) {
        throw ScenarioError(scenario.name + ": " + place + error.what());
    }
    return scenario;
}

Scenario loadScenario(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    if (!in)
        throw ScenarioError(file.string() + ": cannot be read");
    return parseScenario(text, file.string());
}

} // namespace orv::play
