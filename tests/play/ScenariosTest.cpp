#include "SmallHost.h"
#include "play/Verbs.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>

// Plays every scenario file of the repository and every example of the documentation.
namespace orv::play {
namespace {

namespace fs = std::filesystem;

fs::path repository() {
    return fs::path(__FILE__).parent_path().parent_path().parent_path();
}

std::vector<fs::path> scenarioFiles() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(repository() / "tests" / "scenarios")) {
        if (entry.path().extension() == ".json")
            files.push_back(entry.path());
    }
    std::ranges::sort(files);
    return files;
}

void expectAsWritten(const Scenario& scenario) {
    Outcomes outcomes;
    const Report report = play(scenario, outcomes);
    for (const std::string& failure : report.failures)
        ADD_FAILURE() << failure;
    EXPECT_EQ(report.cannotPlay, "");
}

class ScenarioFile : public testing::TestWithParam<fs::path> {};

TEST_P(ScenarioFile, RunsAsWritten) {
    Scenario scenario = loadScenario(GetParam());
    scenario.name = GetParam().filename().string();
    expectAsWritten(scenario);
}

INSTANTIATE_TEST_SUITE_P(All, ScenarioFile, testing::ValuesIn(scenarioFiles()), [](const auto& file) {
    std::string name = file.param.stem().string();
    std::ranges::replace_if(
        name, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
});

TEST(ScenarioDocument, ExamplesRunAsWritten) {
    std::ifstream in(repository() / "docs" / "scenarios.md", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    ASSERT_FALSE(text.empty());
    int examples = 0;
    const std::string begin = "```json\n{\n";
    for (std::size_t at = text.find(begin); at != std::string::npos; at = text.find(begin, at + 1)) {
        const std::size_t first = at + begin.size() - 2;
        const std::string example = text.substr(first, text.find("```", first) - first);
        SCOPED_TRACE("example " + std::to_string(++examples));
        expectAsWritten(parseScenario(example, "docs/scenarios.md"));
    }
    EXPECT_GE(examples, 2);
}

TEST(ScenarioDocument, NamesEveryVerb) {
    std::ifstream in(repository() / "docs" / "scenarios.md", std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    for (const Verb& verb : verbs()) {
        EXPECT_NE(text.find("\n| `" + std::string(verb.name) + "`"), std::string::npos) << verb.name;
        for (const std::string_view key : verb.keys)
            EXPECT_NE(text.find("`" + std::string(key) + "`"), std::string::npos) << verb.name << ": " << key;
    }
}

} // namespace
} // namespace orv::play
