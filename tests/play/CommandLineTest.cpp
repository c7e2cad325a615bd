#include "SmallHost.h"

#include <filesystem>
#include <fstream>
#include <sstream>

namespace orv::play {
namespace {

/// A scenario in a file of its own, for as long as the object lives.
class ScenarioInFile {
  public:
    explicit ScenarioInFile(const std::string& json) {
        const auto* test = testing::UnitTest::GetInstance()->current_test_info();
        static int count = 0;
        path_ = std::filesystem::temp_directory_path() /
                ("filterplay-" + std::string(test->name()) + "-" + std::to_string(++count) + ".json");
        std::ofstream(path_, std::ios::binary) << json;
    }
    ScenarioInFile(const ScenarioInFile&) = delete;
    ScenarioInFile& operator=(const ScenarioInFile&) = delete;
    ~ScenarioInFile() { std::filesystem::remove(path_); }
    std::string name() const { return path_.string(); }

  private:
    std::filesystem::path path_;
};

struct Played {
    int status = 0;
    std::string out;
    std::string err;
};

Played filterplay(const std::vector<std::string>& arguments) {
    std::vector<const char*> argv{"filterplay"};
    for (const std::string& argument : arguments)
        argv.push_back(argument.c_str());
    std::ostringstream out, err;
    const int status = runFilterPlay(static_cast<int>(argv.size()), argv.data(), out, err);
    return {status, out.str(), err.str()};
}

TEST(CommandLine, PrintsALineForEachStepAndSucceeds) {
    const ScenarioInFile file(
        smallScenario(R"({"get": "m_JCType"}, {"set": "m_JCType", "to": true}, {"get": "m_JCType"})"));
    const Played run = filterplay({file.name()});
    EXPECT_EQ(run.status, allAsExpected);
    EXPECT_EQ(run.out, "{\"step\":1,\"result\":false}\n{\"step\":2}\n{\"step\":3,\"result\":true}\n");
    EXPECT_EQ(run.err, "");
}

TEST(CommandLine, TellsFailuresAndGoesOnWithTheNextScenario) {
    const ScenarioInFile wrong(smallScenario(R"({"get": "m_JCType", "expect": {"result": true}})"));
    const ScenarioInFile right(smallScenario(R"({"get": "GetSelectPageList"})"));
    const Played run = filterplay({wrong.name(), right.name()});
    EXPECT_EQ(run.status, notAsExpected);
    EXPECT_EQ(run.out, "{\"step\":1,\"result\":false,\"failed\":[\"result: expected true, but found false\"]}\n"
                       "{\"step\":1,\"result\":\"\"}\n");
    EXPECT_EQ(run.err, wrong.name() + ": step 1: result: expected true, but found false\n");
}

TEST(CommandLine, RefusesWhatMakesNoSenseWithStatus2) {
    const ScenarioInFile unknown(smallScenario(R"({"gets": "m_JCType"})"));
    const ScenarioInFile wrong(smallScenario(R"({"get": "m_JCType", "expect": {"result": true}}, {"show": "x"})"));
    struct Case {
        std::vector<std::string> arguments;
        std::string error; // a part of it
    };
    const Case cases[] = {
        {{}, "SCENARIO.json is required"},
        {{"--tours", unknown.name()}, "--tours"},
        {{"no-such-file.json"}, "no-such-file.json: cannot be read"},
        {{unknown.name()}, unknown.name() + ": step 1: no known verb"},
        {{wrong.name()}, wrong.name() + ": step 2: no control \"x\""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.error);
        const Played run = filterplay(c.arguments);
        EXPECT_EQ(run.status, cannotPlay);
        EXPECT_NE(run.err.find(c.error), std::string::npos) << run.err;
    }
}

TEST(CommandLine, TellsTheTourInWords) {
    std::string scenario = smallScenario(R"(
        {"set": "DataSrv", "to": 7}, {"call": "Initialize"},
        {"row": 1, "field": "单号", "compare": "等于", "value": "A"},
        {"show": "vsFilter", "note": "The condition:"},
        {"call": "GetFilterSql", "note": "Its SQL:"},
        {"rows": 3, "note": "Bills:"},
        {"get": "m_JCType", "expect": {"result": true}})");
    scenario.insert(1, R"("title": "A 单据 tour", )");
    const ScenarioInFile file(scenario);
    const Played run = filterplay({"--tour", file.name()});
    EXPECT_EQ(run.status, notAsExpected);
    EXPECT_EQ(run.out.substr(0, run.out.find("The condition:")), "A 单据 tour\n===========\n\n");
    EXPECT_NE(
        run.out.find(
            "The condition:\n       项目名称  比较  比较值\n    -  --------  ----  ------\n    1  单号      等于  A\n"),
        std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("Its SQL:\n     ( t_Test.FBillNo= 'A'  ) \n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("Bills:\n    1 found; the first ones: A\n"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("NOT AS EXPECTED: result: expected true, but found false\n"), std::string::npos) << run.out;
}

} // namespace
} // namespace orv::play
