#include "ControlOnHost.h"
#include "automation/AutomationError.h"

// The control on the sample host: what both sides agreed on must meet.
namespace orv::erp {
namespace {

using namespace testing;
using automation::toText;
using control::Filter;

constexpr std::int32_t allClassTypes[] = {1000101, 1000201, 1000202, 1000301, 1000801, 1000901, 1000902};

TEST_F(ControlOnHost, OpensEveryClassTypeWithItsFields) {
    for (const auto classType : allClassTypes) {
        SCOPED_TRACE(classType);
        open(classType);
        const auto fields = collection(automation::get(filter.get_DataSrv(), u"SelectList")).count();
        const auto offered = grid().comboItems(2, 1).size();
        EXPECT_EQ(offered, static_cast<std::size_t>(fields) + 1) << "every field and the empty item";
        EXPECT_GT(filter.get_m_Header().count(), 5);
    }
    EXPECT_TRUE(shown.messages.empty());
    for (const std::string& line : shown.logged)
        ADD_FAILURE() << "the control met a failure: " << line;
}

TEST_F(ControlOnHost, SwitchesThroughTheListOfClassTypes) {
    filter.put_DataSrv(erp().dataService(1000202));
    ASSERT_TRUE(filter.Initialize(u"1000101,1000201,1000202,1000301,1000801,1000901,1000902"));
    auto& box = filter.controls().cboClassType;
    EXPECT_EQ(box.count(), 7);
    EXPECT_EQ(utf8(box.text()), "付款单据");
    for (int line = 0; line < box.count(); ++line) {
        box.userSelect(line);
        EXPECT_EQ(utf8(record(automation::get(filter.get_DataSrv(), u"ClassType")).get(u"FName")), utf8(box.text()));
    }
}

struct F7Case {
    std::int32_t classType;
    const char16_t* caption;
    std::u16string answer;
    std::string value;   ///< text that the value cell shows then
    std::string message; ///< or what is shown instead
};

// One field of every look-up kind. Kind 0 takes the look-up of the page field of the same column; the third account has
// no balance; kind 10 needs an item class.
TEST_F(ControlOnHost, F7OpensTheDialogOfEveryLookUpKind) {
    const std::string region =
        utf8(erp().database().query(u"SELECT FName FROM t_AuxData WHERE FTypeID=20 ORDER BY FItemID").rows[0][0]);
    const std::u16string regionNumber =
        toText(erp().database().query(u"SELECT FNumber FROM t_AuxData WHERE FTypeID=20 ORDER BY FItemID").rows[0][0]);
    const std::u16string customer =
        toText(erp().database().query(u"SELECT FNumber FROM t_Customer ORDER BY FItemID").rows[0][0]);
    const std::u16string bill = erp().list(1000301, u"", u"t_SO_Delivery.FBillNo  ASC ", u"", 1).firstKeys.at(0);
    const F7Case cases[] = {
        {1000201, u"客户代码", customer, utf8(customer), ""},
        {1000301, u"购货单位地区", regionNumber, region, ""},
        {1000201, u"结算方式", u"JF02", "电汇", ""},
        {1000201, u"客户地区", regionNumber, region, ""},
        {1000201, u"源单编号", bill, utf8(bill), ""},
        {1000201, u"收款账户", u"1002.01", "1002.01", ""},
        {1000201, u"收款账户", u"9001", "", "不能选择表外科目 "},
        {1000201, u"制单人", u"张敏", "张敏", ""},
        {1000201, u"核算项目", u"D000002", "D000002", ""},
        {1000201, u"核算项目(类别未定)", u"", "", "核算项目(类别未定)对应的核算项目类别不确定，请先设置核算项目类别！"},
        {1000201, u"核算项目(无类别)", u"", "", "核算项目(无类别)对应的核算项目类别不确定，不支持F7功能。"},
        {1000301, u"单位", u"0102", "箱", ""},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(std::to_string(expected.classType) + " " + utf8(expected.caption));
        open(expected.classType);
        shown.messages.clear();
        choose(2, 1, expected.caption);
        grid().setActiveCell(4, 1);
        erp().queueLookUp(expected.answer);
        grid().userKeyDown(ui::key::f7, 0);
        EXPECT_EQ(utf8(grid().shownText(4, 1)), expected.value);
        std::vector<std::string> messages;
        if (!expected.message.empty())
            messages.push_back(expected.message);
        EXPECT_EQ(shown.messages, messages);
        erp().clearLookUps(); // an answer that no dialog took must not reach the next case
    }
}

// A caption that the resource file lacks would stay Chinese.
TEST_F(ControlOnHost, EveryCaptionIsEnglishForAnEnglishUser) {
    const auto english = describe("{}");
    english->setProps(u"UserID=1;UserName=Admin;Language=EN");
    Filter translated(*english, shown);
    const auto expectTranslated = [](const ui::Control& control, const std::u16string& text) {
        const bool chinese = std::ranges::any_of(text, [](char16_t unit) { return unit >= 0x4E00 && unit <= 0x9FFF; });
        EXPECT_FALSE(chinese) << utf8(control.fullName()) << " shows " << utf8(text);
    };
    auto& controls = translated.controls();
    controls.forEach([&](ui::Control& control) {
        if (const auto* label = dynamic_cast<const ui::CaptionControl*>(&control))
            expectTranslated(control, label->caption());
    });
    for (const ui::Spread* heading : {&controls.vsFilter, &controls.vsOrder, &controls.vsHideColumn})
        for (int column = 1; column <= heading->maxCols(); ++column)
            expectTranslated(*heading, heading->text(column, 0));
    for (const auto& tab : controls.tbFilter.tabs())
        expectTranslated(controls.tbFilter, tab.caption);
    for (const auto& button : controls.tlbProject.buttons())
        expectTranslated(controls.tlbProject, button.caption + button.toolTip);
}

TEST_F(ControlOnHost, AConditionSelectsBills) {
    open(1000201);
    choose(2, 1, u"日期");
    choose(3, 1, u"本月");
    std::u16string where;
    ASSERT_TRUE(filter.GetFilterSql(where));
    const ListResult found = erp().list(1000201, where, u"", u"", 1);
    EXPECT_GT(found.bills, 0u) << utf8(where);
    EXPECT_LT(found.bills, erp().list(1000201, u"", u"", u"", 1).bills);
}

} // namespace
} // namespace orv::erp
