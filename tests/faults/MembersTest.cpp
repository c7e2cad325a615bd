#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "automation/Text.h"
#include "faults/Invariants.h"
#include "faults/Sessions.h"

#include <gtest/gtest.h>

// Every member in every state: before there is a data service, before Initialize, after it, after ClearMem; each twice.
namespace orv::faults {
namespace {

using automation::AutomationError;
using automation::Dictionary;
using automation::toUtf8;
using control::Filter;

std::string yesNo(bool value) {
    return value ? "True" : "False";
}
std::string countOf(const automation::Collection& list) {
    return list ? std::to_string(list.count()) : "Nothing";
}
std::string countOf(const Dictionary& record) {
    return record ? std::to_string(record.count()) : "Nothing";
}

struct Member {
    const char* name;
    std::string (*call)(Filter&, FaultyHost&);
    // What it gives: without a data service, before Initialize, after it with a condition entered, after ClearMem.
    const char* fresh;
    const char* handed;
    const char* loaded;
    const char* cleared;
};

const Member members[] = {
    {"m_JCType Get", [](Filter& f, FaultyHost&) { return yesNo(f.get_m_JCType()); }, "False", "False", "False",
     "False"},
    {"m_JCType Let", [](Filter& f, FaultyHost&) { return f.put_m_JCType(false), std::string(); }, "", "", "", ""},
    {"UseKey", [](Filter& f, FaultyHost&) { return countOf(f.get_UseKey()); }, "2", "2", "2", "2"},
    {"dctProFile", [](Filter& f, FaultyHost&) { return countOf(f.get_dctProFile()); }, "6", "6", "6", "6"},
    {"ConditionExtHide", [](Filter& f, FaultyHost&) { return f.put_ConditionExtHide({}), std::string(); }, "", "", "",
     ""},
    {"dctProFileEntry", [](Filter& f, FaultyHost&) { return countOf(f.get_dctProFileEntry()); }, "11", "11", "11",
     "error 9"},
    {"SetBackGroundColor", [](Filter& f, FaultyHost&) { return f.SetBackGroundColor(-1), std::string(); }, "", "", "",
     ""},
    {"ShowScheme", [](Filter& f, FaultyHost&) { return f.put_ShowScheme(false), std::string(); }, "", "", "", ""},
    {"ShowFilterStyle", [](Filter& f, FaultyHost&) { return f.put_ShowFilterStyle(2), std::string(); }, "", "", "", ""},
    {"DataSrv Let Nothing",
     [](Filter& f, FaultyHost&) {
         const auto before = f.get_DataSrv();
         try {
             f.put_DataSrv(nullptr);
         } catch (const AutomationError& error) {
             if (before)
                 f.put_DataSrv(before);
             throw;
         }
         return std::string();
     },
     "error 91", "error 91", "error 91", "error 91"},
    {"DataSrv Get", [](Filter& f, FaultyHost&) { return std::string(f.get_DataSrv() ? "an object" : "Nothing"); },
     "Nothing", "an object", "an object", "Nothing"},
    {"SetSelectPageList", [](Filter& f, FaultyHost&) { return f.put_SetSelectPageList(u",1*,2,"), std::string(); }, "",
     "", "", ""},
    {"GetSelectPageList", [](Filter& f, FaultyHost&) { return toUtf8(f.get_GetSelectPageList()); }, ",1*,2,", ",1*,2,",
     ",1*,2,", ",1*,2,"},
    {"SaveLastUseScheme", [](Filter& f, FaultyHost&) { return yesNo(f.SaveLastUseScheme()); }, "False", "False",
     "False", "False"},
    {"RefreshProfile Nothing", [](Filter& f, FaultyHost&) { return yesNo(f.RefreshProfile({})); }, "False", "False",
     "False", "False"},
    {"GetTakeBaseDataSQL Nothing",
     [](Filter& f, FaultyHost&) {
         std::u16string name;
         return toUtf8(f.GetTakeBaseDataSQL({}, {}, u"", name));
     },
     "error 91", "error 91", "error 91", "error 91"},
    {"GetFilterSql", [](Filter& f, FaultyHost&) { return toUtf8(filterText(f)); }, "", "", " ( t.FNo= 'B'  ) ",
     "error 5: 行：1; 字段： 请选择过滤字段"},
    {"GetSortString",
     [](Filter& f, FaultyHost&) {
         std::u16string head = u"h", entry = u"e";
         return yesNo(f.GetSortString(head, entry)) + toUtf8(head + entry);
     },
     "Truehe", "Truehe", "Truehe", "Truehe"},
    {"InitHideColumns", [](Filter& f, FaultyHost&) { return yesNo(f.InitHideColumns()); }, "False", "True", "True",
     "False"},
    {"m_Header", [](Filter& f, FaultyHost&) { return countOf(f.get_m_Header()); }, "0", "6", "6", "0"},
    {"SaveScheme", [](Filter& f, FaultyHost&) { return std::string(f.SaveScheme().isEmpty() ? "Empty" : "?"); },
     "Empty", "Empty", "Empty", "Empty"},
    {"SetPagetoTop", [](Filter& f, FaultyHost&) { return std::string(f.SetPagetoTop(1).isEmpty() ? "Empty" : "?"); },
     "Empty", "Empty", "Empty", "Empty"},
    {"GetFieldInfoByKey",
     [](Filter& f, FaultyHost&) {
         std::u16string key;
         std::int32_t index = 0;
         return countOf(f.GetFieldInfoByKey(u"no", key, index));
     },
     "Nothing", "Nothing", "Nothing", "Nothing"},
    {"dctControl Let",
     [](Filter& f, FaultyHost&) { return f.put_dctControl(automation::makeDictionary()), std::string(); }, "", "", "",
     ""},
    {"dctControl Get", [](Filter& f, FaultyHost&) { return countOf(f.get_dctControl()); }, "0", "0", "0", "0"},
    {"EnableMostPage", [](Filter& f, FaultyHost&) { return toUtf8(f.EnableMostPage()); }, ",", ",1,", ",1,2,", ","},
    {"ClearFace", [](Filter& f, FaultyHost&) { return f.ClearFace(), std::string(); }, "", "", "", ""},
    {"GetToday", [](Filter& f, FaultyHost&) { return std::to_string(static_cast<int>(f.GetToday().days)); }, "45351",
     "45351", "45351", "45351"},
    {"GetCurPeriod",
     [](Filter& f, FaultyHost&) {
         std::int32_t year = 0, period = 0;
         automation::Date first, last;
         return yesNo(f.GetCurPeriod(year, period, first, last));
     },
     "True", "True", "True", "True"},
};

std::string resultOf(const Member& member, Filter& filter, FaultyHost& host) {
    try {
        return member.call(filter, host);
    } catch (const AutomationError& error) {
        return "error " + std::to_string(error.number());
    }
}

class Members : public ::testing::Test {
  protected:
    void callAll(const char* Member::*expected) {
        for (int round = 1; round <= 2; ++round) {
            for (const Member& member : members)
                EXPECT_EQ(resultOf(member, filter, host), member.*expected) << member.name << ", round " << round;
        }
        EXPECT_EQ(brokenInvariant(filter), "");
    }
    void load() {
        filter.put_DataSrv(host.dataService(receipts));
        ASSERT_TRUE(filter.Initialize());
        ASSERT_TRUE(enterOneCondition(filter, u"B"));
    }

    FaultyHost host{openSmallErp()};
    Filter filter{host, host};
};

TEST_F(Members, WithoutADataService) {
    callAll(&Member::fresh);
    EXPECT_FALSE(filter.Initialize());
    callAll(&Member::fresh);
}

TEST_F(Members, BeforeInitialize) {
    filter.put_DataSrv(host.dataService(receipts));
    callAll(&Member::handed);
}

TEST_F(Members, AfterInitialize) {
    load();
    callAll(&Member::loaded);
}

TEST_F(Members, AfterClearMem) {
    load();
    filter.ClearMem();
    filter.ClearMem();
    callAll(&Member::cleared);
    EXPECT_FALSE(filter.Initialize());
    EXPECT_EQ(faultSetUpAnew(filter, host), "");
}

} // namespace
} // namespace orv::faults
