#include "SmallHost.h"
#include "play/RecordingPrompts.h"

namespace orv::play {
namespace {

using Failures = std::vector<std::string>;

TEST(Player, TellsWhatCameOutOfEachStep) {
    Outcomes outcomes;
    const Report report = playSmall(R"(
        {"set": "DataSrv", "to": 7},
        {"call": "Initialize"},
        {"row": true, "field": "数量", "compare": "等于", "value": 1},
        {"call": "GetFilterSql", "args": ["X"]},
        {"cell": {"grid": "vsOrder", "col": 1, "row": 1}, "choose": "单号"},
        {"rows": 1})",
                                    outcomes);
    EXPECT_EQ(report.failures, Failures{});
    EXPECT_EQ(report.cannotPlay, "");
    ASSERT_EQ(outcomes.lines.size(), 6U);
    EXPECT_EQ(outcomes.lines[0].dump(), R"({"step":1})");
    EXPECT_EQ(outcomes.lines[1].dump(), R"({"step":2,"result":true})");
    EXPECT_EQ(outcomes.lines[3].dump(), R"({"step":4,"result":true,"args":[" (X isnull(t_Test.FQty,0)= 1 ) "]})");
    EXPECT_EQ(outcomes.lines[5]["result"]["count"], 2);
    EXPECT_EQ(outcomes.lines[5]["result"]["keys"].dump(), R"(["A"])");
}

TEST(Player, CountsErrorsAndRefusalsThatNobodyExpectsAsFailures) {
    struct Case {
        const char* steps;
        Failures failures;
    };
    const Case cases[] = {
        {R"({"fail": {"progid": "ORVEBCGLView.GLData", "member": "getanyrecordset", "number": 2147746132, "description": "x"}},
            {"call": "GetToday"})",
         {"small: step 2: error -2147221164 was raised: x"}},
        {R"({"fail": {"progid": "ORVEBCGLView.GLData", "member": "getanyrecordset", "number": 5, "description": "x"}},
            {"call": "GetToday", "expect": {"error": {"number": 6}}})",
         {"small: step 2: error.number: expected 6, but found 5"}},
        {R"({"call": "GetToday", "expect": {"error": {"number": 6}}})",
         {R"(small: step 1: error: expected {"number":6}, but found nothing)"}},
        {R"({"call": "Initialize"}, {"cell": {"grid": "vsFilter", "col": 2, "row": 3}})",
         {"small: step 2: vsFilter column 2, row 3 could not be entered"}},
        {R"({"set": "DataSrv", "to": 7}, {"call": "Initialize"}, {"select": "cboTime", "index": 0})",
         {"small: step 3: cboTime is hidden"}},
        {R"({"answer": "no"}, {"answer": "yes"})", {"small: 2 queued answers were never asked for"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.steps);
        const Report report = playSmall(c.steps);
        EXPECT_EQ(report.failures, c.failures);
        EXPECT_EQ(report.cannotPlay, "");
    }
}

TEST(Player, GoesOnAfterAFailureAndKeepsItWhenALaterStepCannotBePlayed) {
    const Report report = playSmall(R"(
        {"get": "DataSrv", "expect": {"result": 7}},
        {"get": "m_JCType", "expect": {"result": true}},
        {"get": "Nothing"})");
    EXPECT_EQ(report.failures, (Failures{"small: step 1: result: expected 7, but found null",
                                         "small: step 2: result: expected true, but found false"}));
    EXPECT_EQ(report.cannotPlay.substr(0, 45), "small: step 3: no property to be read \"Nothin");
}

TEST(Player, EndsAtADialogOrQuestionThatHasNoAnswer) {
    const std::string ready =
        R"({"set": "ShowScheme", "to": true}, {"set": "DataSrv", "to": 7}, {"call": "Initialize"}, )";
    EXPECT_EQ(
        playSmall(ready + R"({"click": "tlbProject", "button": "TLBSAVE"})").cannotPlay,
        R"(small: step 4: the dialog frmSaveschame has no answer: queue one before with {"answer": {"dialog": ...}})");
    EXPECT_EQ(playSmall(ready + R"({"answer": {"dialog": {"txtSchemeName": "a"}}},
                                   {"click": "tlbProject", "button": "TLBSAVE"},
                                   {"click": "tlbProject", "button": "TLBDEL"})")
                  .cannotPlay,
              R"(small: step 6: the question "是否要删除a?" has no answer: queue one before with {"answer": "yes"} or )"
              R"({"answer": "no"})");
}

TEST(RecordingPrompts, ConfirmsBoxesWithoutAChoiceAndAnswersQuestionsInOrder) {
    RecordingPrompts prompts;
    prompts.queue(ui::MessageAnswer::yes);
    EXPECT_EQ(prompts.message(u"a", ui::messageStyle::exclamation, u"t"), ui::MessageAnswer::ok);
    EXPECT_EQ(prompts.queued(), 1U);
    EXPECT_EQ(prompts.message(u"b?", ui::messageStyle::yesNoInformation, u"t"), ui::MessageAnswer::yes);
    EXPECT_EQ(prompts.queued(), 0U);
    EXPECT_EQ(prompts.message(u"c?", ui::messageStyle::yesNoInformation, u"t"), ui::MessageAnswer::no);
    EXPECT_EQ(
        prompts.takeProblems(),
        Failures{R"(the question "c?" has no answer: queue one before with {"answer": "yes"} or {"answer": "no"})"});
    const std::vector<ShownMessage> shown{{u"a", u"t", 48}, {u"b?", u"t", 68}, {u"c?", u"t", 68}};
    EXPECT_EQ(prompts.takeMessages(), shown);
    EXPECT_TRUE(prompts.takeMessages().empty());
}

/// A dialog with a name to fill in, which refuses an empty one.
class NameDialog final : public ui::Dialog {
  public:
    NameDialog() : Dialog(u"frmName") {}
    ui::TextBox txtName{u"txtName"};
    ui::CheckBox chkShare{u"chkShare"};
    ui::Button cmdOk{u"cmdOk"};
    ui::Button cmdCancel{u"cmdCancel"};
    std::vector<ui::Control*> controls() override { return {&txtName, &chkShare, &cmdOk, &cmdCancel}; }
    ui::Button& defaultButton() override { return cmdOk; }
    ui::Button& cancelButton() override { return cmdCancel; }

  private:
    ui::Subscription onOk_ = cmdOk.click.subscribe([this] {
        if (!txtName.text().empty())
            close();
    });
    ui::Subscription onCancel_ = cmdCancel.click.subscribe([this] { close(); });
};

TEST(RecordingPrompts, FillInADialogUntilItIsClosed) {
    RecordingPrompts prompts;
    NameDialog dialog;
    prompts.queue(DialogAnswer{{{u"txtName", u""}}, {}, {}});
    prompts.queue(DialogAnswer{{{u"txtName", u"月报"}}, {{u"chkShare", true}}, u"cmdOk"});
    prompts.queue(DialogAnswer{{}, {}, u"cmdCancel"});
    prompts.showModal(dialog);
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_EQ(dialog.txtName.text(), u"月报");
    EXPECT_TRUE(dialog.chkShare.isChecked());
    EXPECT_EQ(prompts.queued(), 1U);
    EXPECT_EQ(prompts.takeDialogs(), std::vector<std::u16string>{u"frmName"});
    EXPECT_EQ(prompts.takeProblems(), Failures{});
}

TEST(RecordingPrompts, CancelADialogThatCannotBeAnsweredAndTellWhy) {
    RecordingPrompts prompts;
    NameDialog unanswered;
    prompts.showModal(unanswered);
    EXPECT_FALSE(unanswered.isOpen());
    NameDialog misspelled;
    prompts.queue(DialogAnswer{{{u"txtNam", u"x"}}, {}, {}});
    prompts.showModal(misspelled);
    EXPECT_FALSE(misspelled.isOpen());
    EXPECT_EQ(prompts.takeProblems(),
              (Failures{R"(the dialog frmName has no answer: queue one before with {"answer": {"dialog": ...}})",
                        R"(the dialog frmName has no control "txtNam" of that kind)"}));
}

} // namespace
} // namespace orv::play
