#include "ControlChecks.h"

#include "Input.h"
#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "faults/Invariants.h"

namespace orv::fuzz {

using automation::AutomationError;
using control::Filter;

namespace {

template <class Ask>
std::u16string answer(Ask ask) {
    try {
        return ask();
    } catch (const AutomationError& error) {
        return u"error " + automation::numberToText(error.number()) + u": " + error.description();
    }
}

} // namespace

void checkInvariants(Filter& filter) {
    const std::string broken = faults::brokenInvariant(filter);
    require(broken.empty(), broken.c_str());
    const auto& boxes = filter.controls().chkPage;
    // One unused box stands for them all until a class type is loaded.
    require(boxes.count() == 1 || boxes.count() == 4, "a box for each page");
    require(boxes.count() == 1 || boxes(0).isChecked(), "the header takes part");
}

void checkResults(Filter& filter) {
    const auto same = [](auto ask, const char* property) { requireSame(answer(ask), answer(ask), property); };
    requireSame(faults::filterText(filter), faults::filterText(filter), "the filter asked twice");
    same(
        [&] {
            std::u16string head, entry;
            filter.GetSortString(head, entry);
            return head + u"|" + entry;
        },
        "the sort asked twice");
    same([&] { return filter.EnableMostPage(); }, "the pages asked twice");
    same([&] { return automation::numberToText(filter.get_m_Header().count()); }, "the header asked twice");
    same(
        [&] {
            const automation::Dictionary entry = filter.get_dctProFileEntry();
            std::u16string all;
            for (const std::u16string& key : entry.keys())
                all += key + u"=" + automation::toText(entry.get(key)) + u"\n";
            return all;
        },
        "the entry record asked twice");
}

void checkUsable(Filter& filter, SmallHost& host) {
    host.failIn = 0;
    filter.put_ConditionExtHide({});
    filter.put_dctControl({});
    filter.put_ShowScheme(false);
    filter.put_SetSelectPageList(u",1*,2,");
    filter.put_DataSrv(host.dataService(34));
    require(filter.Initialize(), "the control starts again");
    require(faults::enterOneCondition(filter, u"B"), "a condition can be entered");
    checkInvariants(filter);
    requireSame(faults::filterText(filter), u" ( t1.FNo= 'B'  ) ", "the filter afterwards");
}

} // namespace orv::fuzz
