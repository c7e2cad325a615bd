#include "SmallHost.h"
#include "play/ScenarioError.h"

// Scenarios that make no sense: what is wrong must be named, with the step.
namespace orv::play {
namespace {

struct Case {
    const char* name;
    std::string json;    // a scenario, or the steps of one
    const char* message; // a part of the message
};

TEST(BadScenario, FilesAreRefusedWithTheReason) {
    const Case cases[] = {
        {"no JSON", R"({"host": "erp", "steps": [})", "s: this is no JSON: parse error at line 1, column 27"},
        {"a key twice", R"({"host": "erp", "steps": [{"get": "DataSrv", "expect": {}, "expect": {}}]})",
         "s: the key \"expect\" stands twice in one object"},
        {"an array", "[]", "s: a scenario is an object"},
        {"no host", R"({"steps": [{"get": "DataSrv"}]})", "s: \"host\" must be \"erp\" or an object"},
        {"another host", R"({"host": "crm", "steps": [{"get": "DataSrv"}]})", "s: \"host\" must be \"erp\""},
        {"no steps", R"({"host": "erp", "steps": []})", "s: \"steps\" must be an array of steps"},
        {"a misspelled key", R"({"host": "erp", "step": []})",
         "s: unknown key \"step\" of the scenario (there are \"title\", \"note\", \"host\", \"now\", \"props\", "
         "\"settings\", \"steps\")"},
        {"a clock that is none", R"({"host": "erp", "now": "29.2.2024", "steps": [{"get": "DataSrv"}]})",
         "s: \"29.2.2024\" is no date such as"},
        {"settings in an array", R"({"host": "erp", "settings": [], "steps": [{"get": "DataSrv"}]})",
         "s: \"settings\" must be an object"},
        {"an unknown verb", R"({"host": "erp", "steps": [{"get": "DataSrv"}, {"fetch": "DataSrv"}]})",
         "s: step 2: no known verb among the keys of {\"fetch\":\"DataSrv\"} (there are \"set\", \"get\""},
        {"two verbs", R"({"host": "erp", "steps": [{"get": "DataSrv", "set": "DataSrv"}]})",
         "s: step 1: two verbs, \"get\" and \"set\""},
        {"a misspelled parameter", R"({"host": "erp", "steps": [{"call": "GetToday", "arg": []}]})",
         "s: step 1: unknown key \"arg\" in a \"call\" step (there are \"call\", \"args\", \"note\", \"expect\")"},
        {"a misspelled expectation", R"({"host": "erp", "steps": [{"get": "DataSrv", "expect": {"results": 1}}]})",
         "s: step 1: unknown key \"results\" in \"expect\" (there are \"result\", \"args\""},
        {"a step that is a text", R"({"host": "erp", "steps": ["get"]})", "s: step 1: a step is an object"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        try {
            parseScenario(c.json, "s");
            ADD_FAILURE() << "the scenario was accepted";
        } catch (const ScenarioError& error) {
            EXPECT_EQ(std::string(error.what()).substr(0, std::string(c.message).size()), c.message);
        }
    }
}

TEST(BadScenario, StepsThatCannotBePlayedEndItWithTheStepAndTheReason) {
    const std::string ready = R"({"set": "DataSrv", "to": 7}, {"call": "Initialize"}, )";
    const Case cases[] = {
        {"an unknown control", R"({"show": "vsFiltr"})", "no control \"vsFiltr\" (there are "},
        {"an element beyond the array", R"j({"show": "chkPage(5)"})j", "no control \"chkPage(5)\""},
        {"no grid", R"({"cell": {"grid": "cboTime", "col": 1, "row": 1}})", "\"cboTime\" is no grid"},
        {"a cell outside", R"({"cell": {"grid": "vsFilter", "col": 9, "row": 1}})",
         "vsFilter column 9, row 1 is outside of the grid: it has 8 columns and 30 rows"},
        {"a cell to show outside", R"({"show": {"grid": "vsFilter", "col": 1, "row": 31}})",
         "the cell to show is outside"},
        {"a cell without a list", R"({"cell": {"grid": "vsFilter", "col": 4, "row": 1}, "choose": 0})",
         "vsFilter column 4, row 1 has no list to choose from"},
        {"a cell that is no check box", R"({"cell": {"grid": "vsFilter", "col": 4, "row": 1}, "checked": true})",
         "vsFilter column 4, row 1 is no check box"},
        {"two actions on a cell", R"({"cell": {"grid": "vsFilter", "col": 4, "row": 1}, "text": "a", "choose": 1})",
         "only one of \"text\", \"choose\" and \"checked\""},
        {"an unknown caption", R"({"row": true, "field": "数目"})",
         "vsFilter column 2, row 1 has no item \"数目\" (there are \"\", \"单号\", \"数量\")"},
        {"a position beyond the list", R"({"row": true, "field": 3})", "vsFilter column 2, row 1 has no item 3"},
        {"a line beyond the grid", R"({"row": 31, "field": "单号"})", "the condition grid has no line 31"},
        {"a row that is a text", R"({"row": "1"})", "\"row\" must be true or the number of a line"},
        {"a value that is an object", R"({"row": 1, "field": "单号", "value": {}})",
         "\"value\" must be a text or a number"},
        {"a combo item that is not there", R"({"select": "cboTime", "item": "去年"})", "cboTime has no item \"去年\""},
        {"an index beyond the combo box", R"({"select": "cboTime", "index": 4})",
         "cboTime has no item 4: its 4 items count from 0"},
        {"neither item nor index", R"({"select": "cboTime"})", "either \"item\" or \"index\""},
        {"nothing to select in", R"({"select": "cmdDel", "index": 0})", "\"cmdDel\" has no items to select"},
        {"no check box", R"({"check": "cboTime", "value": true})", "\"cboTime\" is no check box"},
        {"nothing to click", R"({"click": "cboTime"})", "\"cboTime\" is neither a button nor a toolbar"},
        {"a toolbar without a button", R"({"click": "tlbProject"})", "\"button\" must be a text"},
        {"an unknown toolbar button", R"({"click": "tlbProject", "button": "TLBX"})",
         "\"tlbProject\" has no button \"TLBX\""},
        {"no scroll bar", R"({"scroll": "cboTime", "to": 1})", "\"cboTime\" is no scroll bar"},
        {"an unknown key", R"({"key": "F13"})", "no key \"F13\" (there are F1 to F12"},
        {"a property that is write-only", R"({"get": "ShowScheme"})",
         "no property to be read \"ShowScheme\" (there are \"m_JCType\""},
        {"a property that is read-only", R"({"set": "UseKey", "to": 1})", "no property to be written \"UseKey\""},
        {"a write without a value", R"({"set": "ShowScheme"})", "\"to\" is missing"},
        {"a value of another kind", R"({"set": "ShowScheme", "to": 1})", "argument 1 must be true or false"},
        {"an unknown method", R"({"call": "GetFilter"})", "no method \"GetFilter\" (there are \"SetBackGroundColor\""},
        {"too many arguments", R"({"call": "GetToday", "args": [1]})", "the call takes 0 arguments, not 1"},
        {"arguments in no array", R"({"call": "Initialize", "args": "7"})", "\"args\" must be an array"},
        {"an argument of another kind", R"({"call": "GetFilterSql", "args": ["", 1]})",
         "argument 2 must be true or false"},
        {"a number beyond 32 bits", R"({"call": "SetPagetoTop", "args": [4294967296]})",
         "argument 1 must be a whole number of 32 bits"},
        {"an unknown field", R"({"call": "GetTakeBaseDataSQL", "args": ["FNone", "rsAllBase", "1", ""]})",
         "no field \"FNone\" in the class type"},
        {"an unknown answer", R"({"answer": "maybe"})",
         "\"answer\" must be \"yes\", \"no\", {\"lookUp\": ...} or {\"dialog\": ...}"},
        {"a fault without a number", R"({"fail": {"progid": "a", "member": "b", "number": "5", "description": ""}})",
         "\"number\" must be"},
        {"a fault with other keys", R"({"fail": {"progId": "a"}})", "\"fail\" has the keys"},
        {"rows as a text", R"({"rows": "all"})", "\"rows\" must be true or the number of keys"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string expected = std::string("small: step 3: ") + c.message;
        EXPECT_EQ(playSmall(ready + c.json).cannotPlay.substr(0, expected.size()), expected);
    }
}

TEST(BadScenario, HostsThatCannotBeOpenedAreRefused) {
    Outcomes outcomes;
    const Report report = play(
        parseScenario(R"({"host": {"classTypes": [{"FName": "x"}]}, "steps": [{"get": "DataSrv"}]})", "s"), outcomes);
    EXPECT_EQ(report.cannotPlay.substr(0, 13), "s: the host: ");
    EXPECT_NE(report.cannotPlay.find("FID"), std::string::npos) << report.cannotPlay;
}

TEST(BadScenario, ListsAreRefusedWithoutADataService) {
    EXPECT_EQ(playSmall(R"({"rows": true})").cannotPlay,
              "small: step 1: there is no data service yet: set \"DataSrv\" first");
}

} // namespace
} // namespace orv::play
