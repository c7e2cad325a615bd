#include "play/CommandLine.h"

#include "play/JsonLines.h"
#include "play/ScenarioError.h"
#include "play/Tour.h"

#include <CLI/CLI.hpp>

#include <memory>
#include <string>
#include <vector>

namespace orv::play {

int runFilterPlay(int argc, const char* const* argv, std::ostream& out, std::ostream& err) {
    CLI::App app("Plays scenarios against the filter control without a window, and prints one JSON line for each step.",
                 "filterplay");
    std::vector<std::string> files;
    bool tour = false;
    app.add_option("SCENARIO.json", files, "scenario files, played one after the other")->required();
    app.add_flag("--tour", tour, "tell what happens in words and tables instead");
    app.footer(
        "Exit status: 0 all as expected, 1 an expectation failed, 2 a scenario or the command line makes no sense.");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error, out, err) == 0 ? allAsExpected : cannotPlay;
    }

    std::unique_ptr<Audience> audience;
    if (tour)
        audience = std::make_unique<Tour>(out);
    else
        audience = std::make_unique<JsonLines>(out);
    bool failed = false;
    bool unplayable = false;
    const auto refuse = [&](const std::string& why) {
        err << why << '\n';
        unplayable = true;
    };
    for (const std::string& file : files) {
        try {
            const Report report = play(loadScenario(file), *audience);
            for (const std::string& failure : report.failures)
                err << failure << '\n';
            failed = failed || !report.failures.empty();
            if (!report.cannotPlay.empty())
                refuse(report.cannotPlay);
        } catch (const ScenarioError& error) {
            refuse(error.what());
        }
    }
    return unplayable ? cannotPlay : failed ? notAsExpected : allAsExpected;
}

} // namespace orv::play
