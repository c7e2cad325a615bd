#include "play/Members.h"

#include "automation/Coercion.h"
#include "automation/Text.h"
#include "play/CallArguments.h"
#include "play/DateText.h"
#include "play/ScenarioError.h"
#include "play/Session.h"
#include "play/StepOutcome.h"
#include "play/StepReader.h"
#include "play/Values.h"

#include <algorithm>
#include <array>
#include <vector>

namespace orv::play {

namespace {

using automation::toUtf8;
using automation::Value;
using control::Filter;

Json record(const automation::Dictionary& dictionary) {
    return toJson(Value(dictionary.object()));
}

struct Property {
    std::string_view name;
    Json (*get)(Session&);                             ///< null for a property that cannot be read
    void (*let)(Session&, const CallArguments& value); ///< null for a property that cannot be written
};

Json getDataSrv(Session& session) {
    const automation::ObjectRef service = session.filter().get_DataSrv();
    return service ? toJson(automation::get(service, u"ClassTypeID")) : Json();
}

void letDataSrv(Session& session, const CallArguments& value) {
    session.filter().put_DataSrv(session.host().dataService(value.number(0)));
}

const std::array properties{
    Property{"m_JCType", [](Session& s) { return Json(s.filter().get_m_JCType()); },
             [](Session& s, const CallArguments& v) { s.filter().put_m_JCType(v.flag(0)); }},
    Property{"UseKey", [](Session& s) { return record(s.filter().get_UseKey()); }, nullptr},
    Property{"dctProFile", [](Session& s) { return record(s.filter().get_dctProFile()); }, nullptr},
    Property{"ConditionExtHide", nullptr,
             [](Session& s, const CallArguments& v) { s.filter().put_ConditionExtHide(v.dictionary(0)); }},
    Property{"dctProFileEntry", [](Session& s) { return record(s.filter().get_dctProFileEntry()); }, nullptr},
    Property{"m_Header", [](Session& s) { return toJson(Value(s.filter().get_m_Header().object())); }, nullptr},
    Property{"ShowScheme", nullptr, [](Session& s, const CallArguments& v) { s.filter().put_ShowScheme(v.flag(0)); }},
    Property{"ShowFilterStyle", nullptr,
             [](Session& s, const CallArguments& v) { s.filter().put_ShowFilterStyle(v.number(0)); }},
    Property{"DataSrv", getDataSrv, letDataSrv},
    Property{"SetSelectPageList", nullptr,
             [](Session& s, const CallArguments& v) { s.filter().put_SetSelectPageList(v.text(0)); }},
    Property{"GetSelectPageList", [](Session& s) { return Json(toUtf8(s.filter().get_GetSelectPageList())); }, nullptr},
    Property{"dctControl", [](Session& s) { return record(s.filter().get_dctControl()); },
             [](Session& s, const CallArguments& v) { s.filter().put_dctControl(v.dictionary(0)); }},
};

/// Writes the by-reference arguments into the outcome when a call is over, whichever way it ends.
template <class Write>
class AfterCall {
  public:
    AfterCall(StepOutcome& outcome, Write write) : outcome_(outcome), write_(write) {}
    AfterCall(const AfterCall&) = delete;
    AfterCall& operator=(const AfterCall&) = delete;
    ~AfterCall() { outcome_.args = write_(); }

  private:
    StepOutcome& outcome_;
    Write write_;
};

void callInitialize(Filter& filter, const CallArguments& args, StepOutcome& outcome) {
    outcome.result = filter.Initialize(args.text(0));
}

void callGetTakeBaseDataSQL(Filter& filter, const CallArguments& args, StepOutcome& outcome) {
    std::u16string displayName = args.text(3);
    const AfterCall after(outcome, [&] { return Json::array({toUtf8(displayName)}); });
    outcome.result =
        toUtf8(filter.GetTakeBaseDataSQL(args.fieldRecord(0), args.catalogue(1), args.text(2), displayName));
}

void callGetFilterSql(Filter& filter, const CallArguments& args, StepOutcome& outcome) {
    std::u16string sql = args.text(0);
    const AfterCall after(outcome, [&] { return Json::array({toUtf8(sql)}); });
    outcome.result = filter.GetFilterSql(sql, args.flag(1));
}

void callGetSortString(Filter& filter, const CallArguments& args, StepOutcome& outcome) {
    std::u16string head = args.text(0);
    std::u16string entry = args.text(1);
    const AfterCall after(outcome, [&] { return Json::array({toUtf8(head), toUtf8(entry)}); });
    outcome.result = filter.GetSortString(head, entry);
}

void callGetFieldInfoByKey(Filter& filter, const CallArguments& args, StepOutcome& outcome) {
    std::u16string key = args.text(1);
    std::int32_t index = args.number(2);
    const AfterCall after(outcome, [&] { return Json::array({toUtf8(key), index}); });
    outcome.result = record(filter.GetFieldInfoByKey(args.text(0), key, index));
}

void callGetCurPeriod(Filter& filter, const CallArguments& args, StepOutcome& outcome) {
    std::int32_t year = args.number(0);
    std::int32_t period = args.number(1);
    automation::Date start = args.date(2);
    automation::Date end = args.date(3);
    const AfterCall after(outcome, [&] { return Json::array({year, period, dateText(start), dateText(end)}); });
    outcome.result = filter.GetCurPeriod(year, period, start, end);
}

struct Method {
    std::string_view name;
    std::size_t arguments;
    void (*call)(Filter&, const CallArguments&, StepOutcome&);
};

const std::array methods{
    Method{"SetBackGroundColor", 1,
           [](Filter& f, const CallArguments& a, StepOutcome& o) {
               o.result = toJson(f.SetBackGroundColor(a.number(0)));
           }},
    Method{"Initialize", 1, callInitialize},
    Method{"SaveLastUseScheme", 0,
           [](Filter& f, const CallArguments&, StepOutcome& o) { o.result = f.SaveLastUseScheme(); }},
    Method{"RefreshProfile", 1,
           [](Filter& f, const CallArguments& a, StepOutcome& o) { o.result = f.RefreshProfile(a.dictionary(0)); }},
    Method{"GetTakeBaseDataSQL", 4, callGetTakeBaseDataSQL},
    Method{"GetFilterSql", 2, callGetFilterSql},
    Method{"GetSortString", 2, callGetSortString},
    Method{"InitHideColumns", 0,
           [](Filter& f, const CallArguments&, StepOutcome& o) { o.result = f.InitHideColumns(); }},
    Method{"SaveScheme", 0, [](Filter& f, const CallArguments&, StepOutcome& o) { o.result = toJson(f.SaveScheme()); }},
    Method{"SetPagetoTop", 1,
           [](Filter& f, const CallArguments& a, StepOutcome& o) { o.result = toJson(f.SetPagetoTop(a.number(0))); }},
    Method{"ClearMem", 0, [](Filter& f, const CallArguments&, StepOutcome&) { f.ClearMem(); }},
    Method{"GetFieldInfoByKey", 3, callGetFieldInfoByKey},
    Method{"EnableMostPage", 0,
           [](Filter& f, const CallArguments&, StepOutcome& o) { o.result = toUtf8(f.EnableMostPage()); }},
    Method{"ClearFace", 0, [](Filter& f, const CallArguments&, StepOutcome&) { f.ClearFace(); }},
    Method{"GetToday", 0, [](Filter& f, const CallArguments&, StepOutcome& o) { o.result = dateText(f.GetToday()); }},
    Method{"GetCurPeriod", 4, callGetCurPeriod},
};

template <class Member>
std::string names(const Member& members, auto usable) {
    std::vector<std::string_view> all;
    for (const auto& member : members) {
        if (usable(member))
            all.push_back(member.name);
    }
    return listed(all);
}

template <class Members>
const auto& find(const Members& members, const std::string& name, std::string_view what, auto usable) {
    const auto found =
        std::ranges::find_if(members, [&](const auto& member) { return member.name == name && usable(member); });
    if (found == members.end())
        throw ScenarioError("no " + std::string(what) + " \"" + name + "\" (there are " + names(members, usable) + ")");
    return *found;
}

} // namespace

void letMember(Session& session, const std::string& name, const Json& value) {
    const Property& property =
        find(properties, name, "property to be written", [](const Property& p) { return p.let != nullptr; });
    const Json args = Json::array({value});
    property.let(session, CallArguments(session, args, 1));
}

Json getMember(Session& session, const std::string& name) {
    return find(properties, name, "property to be read", [](const Property& p) { return p.get != nullptr; })
        .get(session);
}

void callMember(Session& session, const std::string& name, const Json& args, StepOutcome& outcome) {
    const Method& method = find(methods, name, "method", [](const Method&) { return true; });
    method.call(session.filter(), CallArguments(session, args, method.arguments), outcome);
}

} // namespace orv::play
