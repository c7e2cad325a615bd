#include "faults/Sessions.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "automation/Text.h"
#include "faults/Invariants.h"

#include <cstdlib>
#include <set>

namespace orv::faults {

using automation::Dictionary;
using control::Filter;

namespace {

ui::Spread& conditionGrid(Filter& filter) {
    return filter.controls().vsFilter;
}

void handDataService(Filter& filter, FaultyHost& host) {
    filter.put_DataSrv(host.dataService(receipts));
}

/// Chooses a field for a line and asks for its look-up.
void lookUp(Filter& filter, FaultyHost& host, int line, int field) {
    Dictionary chosen = automation::makeDictionary();
    for (const char16_t* column : {u"FItemID", u"FName", u"FNumber"})
        chosen.set(column, u"C1");
    chosen.set(u"FGroupID", std::int32_t{101});
    host.erp().clearLookUps();
    host.erp().queueLookUp(chosen);
    conditionGrid(filter).userChoose(2, line, field);
    conditionGrid(filter).setActiveCell(4, line);
    conditionGrid(filter).userKeyDown(ui::key::f7, 0);
    host.erp().clearLookUps();
}

// Fields in the order in which the lists of the usual pages offer them, behind the empty item.
constexpr int numberField = 1;
constexpr int kindField = 2;
constexpr int dateField = 3;
constexpr int accountField = 4;

constexpr Step editingSteps[] = {
    {"DataSrv", Actor::raiser, handDataService},
    {"Initialize", Actor::caller, [](Filter& f, FaultyHost&) { f.Initialize(u"1000201"); }},
    {"a field", Actor::user, [](Filter& f, FaultyHost&) { conditionGrid(f).userChoose(2, 1, numberField); }},
    {"a value", Actor::user, [](Filter& f, FaultyHost&) { conditionGrid(f).userType(4, 1, u"A"); }},
    {"a list field", Actor::user, [](Filter& f, FaultyHost&) { conditionGrid(f).userChoose(2, 2, kindField); }},
    {"a list value", Actor::user, [](Filter& f, FaultyHost&) { conditionGrid(f).userChoose(4, 2, 1); }},
    {"a queried list", Actor::user, [](Filter& f, FaultyHost&) { conditionGrid(f).userChoose(3, 2, 1); }},
    {"a date field", Actor::user, [](Filter& f, FaultyHost&) { conditionGrid(f).userChoose(2, 3, dateField); }},
    {"a keyword", Actor::user, [](Filter& f, FaultyHost&) { conditionGrid(f).userChoose(3, 3, 1); }},
    {"an account", Actor::user,
     [](Filter& f, FaultyHost&) {
         conditionGrid(f).userChoose(2, 4, accountField);
         conditionGrid(f).userType(4, 4, u"1001");
     }},
    {"an inserted line", Actor::user,
     [](Filter& f, FaultyHost&) {
         conditionGrid(f).setActiveCell(2, 2);
         f.controls().cmdInsert.press();
         f.controls().cmdDel.press();
     }},
    {"panel and options", Actor::user,
     [](Filter& f, FaultyHost&) {
         if (f.controls().cmbFilter.upperBound() >= 1 && f.controls().cmbFilter(1).count() > 1)
             f.controls().cmbFilter(1).userSelect(1);
         f.controls().cboTime.userSelect(2);
     }},
    {"GetFilterSql raising", Actor::raiser,
     [](Filter& f, FaultyHost&) {
         std::u16string text;
         f.GetFilterSql(text, true);
     }},
    {"GetFilterSql showing", Actor::caller,
     [](Filter& f, FaultyHost&) {
         std::u16string text;
         f.GetFilterSql(text);
     }},
    {"a page", Actor::user,
     [](Filter& f, FaultyHost&) {
         if (f.controls().chkPage.upperBound() >= 2) {
             f.controls().chkPage(2).setEnabled(true);
             f.controls().chkPage(2).userClick();
         }
     }},
    {"a line without a field", Actor::user,
     [](Filter& f, FaultyHost&) {
         conditionGrid(f).userChoose(1, 9, 1);
         conditionGrid(f).setActiveCell(2, 9);
         conditionGrid(f).userMoveTo(2, 1);
     }},
};

constexpr Step resultSteps[] = {
    {"dctControl", Actor::raiser, [](Filter& f, FaultyHost& h) { f.put_dctControl(h.erp().defaultSettings()); }},
    {"DataSrv", Actor::raiser, handDataService},
    {"Initialize", Actor::caller, [](Filter& f, FaultyHost&) { f.Initialize(); }},
    {"a sort field", Actor::user, [](Filter& f, FaultyHost&) { f.controls().vsOrder.userChoose(1, 1, 1); }},
    {"GetSortString", Actor::raiser,
     [](Filter& f, FaultyHost&) {
         std::u16string head, entry;
         f.GetSortString(head, entry);
     }},
    {"m_Header", Actor::raiser, [](Filter& f, FaultyHost&) { f.get_m_Header(); }},
    {"UseKey", Actor::raiser, [](Filter& f, FaultyHost&) { f.get_UseKey(); }},
    {"InitHideColumns", Actor::raiser, [](Filter& f, FaultyHost&) { f.InitHideColumns(); }},
    {"EnableMostPage", Actor::raiser, [](Filter& f, FaultyHost&) { f.EnableMostPage(); }},
    {"GetToday", Actor::raiser, [](Filter& f, FaultyHost&) { f.GetToday(); }},
    {"GetCurPeriod", Actor::raiser,
     [](Filter& f, FaultyHost&) {
         std::int32_t year = 0, period = 0;
         automation::Date first, last;
         f.GetCurPeriod(year, period, first, last);
     }},
    {"GetFieldInfoByKey", Actor::raiser,
     [](Filter& f, FaultyHost&) {
         std::u16string key;
         std::int32_t index = 0;
         f.GetFieldInfoByKey(u"no", key, index);
     }},
    {"GetTakeBaseDataSQL", Actor::raiser,
     [](Filter& f, FaultyHost&) {
         const automation::ObjectRef service = f.get_DataSrv();
         std::u16string name;
         f.GetTakeBaseDataSQL(automation::makeDictionary(),
                              automation::Recordset(automation::toObjectOrNothing(
                                  service ? automation::get(service, u"rsAllBase") : automation::Value())),
                              u"1", name);
     }},
    {"a base-data look-up", Actor::user, [](Filter& f, FaultyHost& h) { lookUp(f, h, 1, numberField); }},
    {"an account look-up", Actor::user, [](Filter& f, FaultyHost& h) { lookUp(f, h, 2, accountField); }},
    {"a field without look-up", Actor::user, [](Filter& f, FaultyHost& h) { lookUp(f, h, 3, dateField); }},
    {"a wide column", Actor::user,
     [](Filter& f, FaultyHost&) {
         ui::Spread& columns = f.controls().vsHideColumn;
         if (columns.maxRows() < 1)
             return;
         columns.setActiveCell(4, 1);
         columns.userType(4, 1, u"151");
         columns.userMoveTo(1, 1);
     }},
    {"another class type", Actor::caller, [](Filter& f, FaultyHost&) { f.Initialize(u"1000201,1000202"); }},
    {"its line", Actor::user,
     [](Filter& f, FaultyHost&) { f.controls().cboClassType.userSelect(f.controls().cboClassType.count() - 1); }},
};

constexpr Step schemeSteps[] = {
    {"dctControl", Actor::raiser, [](Filter& f, FaultyHost& h) { f.put_dctControl(h.erp().defaultSettings()); }},
    {"DataSrv", Actor::raiser, handDataService},
    {"Initialize", Actor::caller, [](Filter& f, FaultyHost&) { f.Initialize(); }},
    {"a condition", Actor::user,
     [](Filter& f, FaultyHost&) {
         conditionGrid(f).userChoose(2, 1, numberField);
         conditionGrid(f).userType(4, 1, u"A");
     }},
    {"save as", Actor::user,
     [](Filter& f, FaultyHost& h) {
         h.schemeName = u"甲'";
         f.controls().tlbProject.userClick(u"TLBSAVE");
     }},
    {"save again", Actor::user,
     [](Filter& f, FaultyHost&) {
         if (f.controls().lvwProject.count() > 0)
             f.controls().lvwProject.userSelect(f.controls().lvwProject.count());
         f.controls().tlbProject.userClick(u"TLBSAVE");
     }},
    {"SaveScheme", Actor::caller, [](Filter& f, FaultyHost&) { f.SaveScheme(); }},
    {"SaveLastUseScheme", Actor::caller, [](Filter& f, FaultyHost&) { f.SaveLastUseScheme(); }},
    {"dctProFile", Actor::raiser, [](Filter& f, FaultyHost&) { f.get_dctProFile(); }},
    {"dctProFileEntry", Actor::raiser, [](Filter& f, FaultyHost&) { f.get_dctProFileEntry(); }},
    {"RefreshProfile", Actor::raiser, [](Filter& f, FaultyHost&) { f.RefreshProfile(f.get_dctProFileEntry()); }},
    {"Initialize again", Actor::caller, [](Filter& f, FaultyHost&) { f.Initialize(); }},
    {"select", Actor::user,
     [](Filter& f, FaultyHost&) {
         if (f.controls().lvwProject.count() > 0)
             f.controls().lvwProject.userSelect(f.controls().lvwProject.count());
     }},
    {"clear", Actor::user, [](Filter& f, FaultyHost&) { f.controls().tlbProject.userClick(u"TLBCLEAR"); }},
    {"delete", Actor::user, [](Filter& f, FaultyHost&) { f.controls().tlbProject.userClick(u"TLBDEL"); }},
    {"ClearMem", Actor::caller, [](Filter& f, FaultyHost&) { f.ClearMem(); }},
};

constexpr Session allSessions[] = {{"editing", editingSteps}, {"results", resultSteps}, {"schemes", schemeSteps}};

} // namespace

std::span<const Session> sessions() {
    return allSessions;
}

bool isFullSweep() {
    return std::getenv("ORV_FULL_SWEEP") != nullptr;
}

std::u16string outcomeOf(const Step& step, Filter& filter, FaultyHost& host) {
    try {
        step.run(filter, host);
        return {};
    } catch (const automation::AutomationError& error) {
        return automation::numberToText(error.number()) + u" " + error.description();
    }
}

std::string faultAfterwards(Filter& filter, FaultyHost& host) {
    host.strike.at = 0;
    if (std::string broken = brokenInvariant(filter); !broken.empty())
        return "right after it: " + broken;
    const auto& lines = filter.controls().cboClassType.items();
    if (std::set<std::u16string>(lines.begin(), lines.end()).size() != lines.size())
        return "right after it: a class type stands in the box twice";
    return faultSetUpAnew(filter, host);
}

std::string faultSetUpAnew(Filter& filter, FaultyHost& host) {
    host.strike.at = 0;
    filter.put_dctControl({});
    filter.put_ShowScheme(false);
    filter.put_SetSelectPageList(u",1*,2,");
    filter.put_DataSrv(host.dataService(receipts));
    if (!filter.Initialize())
        return "Initialize failed";
    if (!enterOneCondition(filter, u"B"))
        return "no condition could be entered";
    if (std::string broken = brokenInvariant(filter); !broken.empty())
        return "set up anew: " + broken;
    const std::u16string text = filterText(filter);
    return text == u" ( t.FNo= 'B'  ) " ? std::string() : "the filter is " + automation::toUtf8(text);
}

} // namespace orv::faults
