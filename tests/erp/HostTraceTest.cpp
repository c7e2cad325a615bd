#include "../automation/TraceFiles.h"
#include "ControlOnHost.h"

// The trace of a control at work on the sample host.
namespace orv::erp {
namespace {

using namespace testing;
using automation::Dictionary;
using automation::Value;
using automation::tests::entriesOf;
using automation::tests::TraceFolder;
using automation::tests::TraceLine;

class HostTrace : public ControlOnHost {
  protected:
    void openTraced(const Value& mask = Value()) {
        Dictionary settings = erp().defaultSettings();
        settings.set(u"Trace", file);
        settings.set(u"TraceMask", mask);
        filter.put_dctControl(settings);
        filter.put_DataSrv(erp().dataService(1000201));
        ASSERT_TRUE(filter.Initialize(u"1000201,1000202"));
    }
    void enter(int row, const char16_t* field, const char16_t* comparison, std::u16string_view value) {
        choose(2, row, field);
        choose(3, row, comparison);
        ASSERT_TRUE(grid().userType(4, row, std::u16string(value)));
    }
    std::vector<TraceLine> entries() const { return entriesOf(file); }
    /// The entries of a member, in order.
    std::vector<TraceLine> entries(std::string_view member) const {
        auto found = entries();
        std::erase_if(found, [&](const TraceLine& line) { return line.member != member; });
        return found;
    }

    TraceFolder folder;
    std::u16string file = folder.file(u"trace.txt");
};

TEST_F(HostTrace, TellsWhatHostAndControlAskOfEachOther) {
    openTraced();
    const auto made = entries();
    ASSERT_FALSE(made.empty());
    EXPECT_EQ(made.front().member, "Filter.dctControl");
    EXPECT_EQ(made.back(), (TraceLine{0, "method", "Filter.Initialize", "(\"1000201,1000202\")", "True"}));
    ASSERT_EQ(entries("cboClassType.click").size(), 1u);
    EXPECT_EQ(entries("cboClassType.click")[0].depth, 1) << "Initialize selects the line";
    EXPECT_EQ(entries("ORVClassTpl.DataSrv").front().kind, "create");

    enter(1, u"摘要", u"包含", u"O'Brien");
    EXPECT_EQ(entries().back().member, "vsFilter.cellChanged");
    std::u16string sql = u"before";
    ASSERT_TRUE(filter.GetFilterSql(sql));
    const auto told = entries("Filter.GetFilterSql");
    ASSERT_EQ(told.size(), 1u);
    EXPECT_EQ(told[0].arguments, "(\"before\", False)");
    std::string shownSql = utf8(sql);
    for (std::size_t at = 0; (at = shownSql.find("\r\n", at)) != std::string::npos;)
        shownSql.replace(at, 2, "\\r\\n");
    EXPECT_EQ(told[0].outcome, "True left (\"" + shownSql + "\", False)");
}

TEST_F(HostTrace, TellsFailuresAndMessages) {
    openTraced();
    enter(1, u"摘要", u"包含", u"x");
    ASSERT_TRUE(grid().userChoose(1, 1, 1)); // an opening bracket alone
    std::u16string sql;
    EXPECT_FALSE(filter.GetFilterSql(sql));
    ASSERT_EQ(entries("ok").size(), 1u);
    EXPECT_EQ(entries("ok")[0], (TraceLine{1, "message", "ok", "", "\"" + shown.messages.at(0) + "\""}));
    EXPECT_THROW(filter.GetFilterSql(sql, true), automation::AutomationError);
    EXPECT_EQ(entries().back().outcome.substr(0, 34), "error 5 from \"ORVFilter.Filter\": \"");
}

TEST_F(HostTrace, HidesWhatUsersTyped) {
    openTraced(u"yes");
    enter(1, u"摘要", u"包含", u"O'Brien geheim");
    enter(2, u"金额+原币", u"大于", u"4711.25");
    std::u16string sql;
    ASSERT_TRUE(filter.GetFilterSql(sql));
    filter.SaveScheme();
    const auto made = entries();
    EXPECT_GT(made.size(), 100u);
    for (const TraceLine& line : made) {
        for (const std::string& part : {line.arguments, line.outcome})
            for (const char* typed : {"Brien", "geheim", "4711"})
                EXPECT_EQ(part.find(typed), std::string::npos) << line.member << ": " << part;
    }
    EXPECT_NE(entries("Filter.GetFilterSql")[0].outcome.find("t_RP_RBill.FExplanation LIKE  '?'"), std::string::npos)
        << entries("Filter.GetFilterSql")[0].outcome;
}

TEST_F(HostTrace, BeginsAtInitializeWhenTheSettingsHaveChanged) {
    const Dictionary settings = erp().defaultSettings();
    filter.put_dctControl(settings);
    settings.set(u"Trace", file);
    filter.put_DataSrv(erp().dataService(1000201));
    EXPECT_TRUE(entries().empty());
    ASSERT_TRUE(filter.Initialize());
    EXPECT_FALSE(entries("Filter.Initialize").empty());

    settings.set(u"Trace", u"");
    ASSERT_TRUE(filter.Initialize());
    EXPECT_EQ(entries("Filter.Initialize").size(), 1u) << "and ends in the same way";
}

TEST_F(HostTrace, EndsWithClearMem) {
    openTraced();
    filter.ClearMem();
    const auto made = entries();
    EXPECT_EQ(made.back(), (TraceLine{0, "method", "Filter.ClearMem", "()", "done"}));
    filter.EnableMostPage();
    EXPECT_EQ(entries().size(), made.size());
}

TEST_F(HostTrace, AFileThatCannotBeOpenedChangesNothing) {
    file = folder.file(u"no/such/folder/trace.txt");
    openTraced();
    EXPECT_EQ(shown.logged, (std::vector<std::string>(2, "跟踪文件无法打开：" + utf8(file)))) << "told at each try";
    enter(1, u"摘要", u"包含", u"x");
    std::u16string sql;
    EXPECT_TRUE(filter.GetFilterSql(sql));
    EXPECT_FALSE(sql.empty());
    EXPECT_TRUE(shown.messages.empty());
}

} // namespace
} // namespace orv::erp
