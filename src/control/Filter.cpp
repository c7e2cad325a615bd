#include "control/Filter.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/TracedCall.h"
#include "control/ClassTypeLoading.h"
#include "control/ClassTypeReload.h"
#include "control/Creation.h"
#include "control/Events.h"
#include "control/FilterResults.h"
#include "control/FilterState.h"
#include "control/LayOut.h"
#include "control/PageBoxes.h"
#include "editor/BaseDataSql.h"
#include "editor/DateServices.h"
#include "metadata/HeaderBuild.h"

#include <tuple>

namespace orv::control {

using automation::AutomationError;
using automation::Collection;
using automation::Date;
using automation::Dictionary;
using automation::InvokeKind;
using automation::ObjectRef;
using automation::Recordset;
using automation::Value;

namespace {

/// A member's name, measured by the compiler: members without a trace do nothing with it.
class Name {
  public:
    consteval Name(const char16_t* literal) : text_(literal) {}
    constexpr operator std::u16string_view() const noexcept { return text_; }

  private:
    std::u16string_view text_;
};

// The three kinds of members, with their entries in the trace.

template <class Body>
auto readMember(const FilterState& state, Name name, Body body) {
    return automation::tracedMember(state.trace, name, InvokeKind::get, std::tie(), body);
}

template <class NewValue, class Body>
void writeMember(const FilterState& state, Name name, const NewValue& value, Body body) {
    automation::tracedMember(state.trace, name, InvokeKind::let, std::tie(value), body);
}

/// `arguments` come from std::tie.
template <class Arguments, class Body>
auto runMember(const FilterState& state, Name name, const Arguments& arguments, Body body) {
    return automation::tracedMember(state.trace, name, InvokeKind::method, arguments, body);
}

} // namespace

Filter::Filter(automation::ObjectFactory& factory, ui::Prompts& prompts)
    : state_(std::make_unique<FilterState>(*this, factory, prompts)) {
    create(*state_);
}

Filter::~Filter() = default;

FilterControls& Filter::controls() {
    return *state_->controls;
}

void Filter::resize(int widthPx, int heightPx, double scale) {
    state_->size = {widthPx, heightPx, scale};
    layOutControls(*state_);
}

std::u16string Filter::translated(std::u16string_view messageTemplate, std::u16string_view first) const {
    return state_->localisation.message(messageTemplate, first);
}

std::optional<Date> Filter::serverDay() {
    try {
        const Date now = editor::serverToday(state_->factory);
        if (now.days >= 1)
            return now;
    } catch (const AutomationError& error) {
        // A calendar opens all the same.
        state_->log(error.description());
    }
    return std::nullopt;
}

void Filter::setSelfObject(std::function<automation::ObjectRef()> self) {
    state_->selfObject = std::move(self);
}

bool Filter::get_m_JCType() const {
    return readMember(*state_, u"m_JCType", [&] { return state_->m_JCType; });
}

void Filter::put_m_JCType(bool value) {
    writeMember(*state_, u"m_JCType", value, [&] { state_->m_JCType = value; });
}

Dictionary Filter::get_UseKey() {
    return readMember(*state_, u"UseKey", [&] {
        state_->provideKeyMaps();
        Dictionary maps = automation::newRecord(state_->factory);
        maps.set(u"ALL", state_->allKeys.object());
        maps.set(u"ID", state_->idKeys.object());
        return maps;
    });
}

void Filter::put_ConditionExtHide(Dictionary value) {
    writeMember(*state_, u"ConditionExtHide", value, [&] { state_->hiddenConditions = std::move(value); });
}

Collection Filter::get_m_Header() {
    return readMember(*state_, u"m_Header", [&] {
        state_->finishEdits();
        // Kept from the start: a build that fails leaves the columns it had added.
        const Collection header = automation::newCollection(state_->factory);
        state_->header = header;
        state_->provideKeyMaps();
        const auto catalogue = state_->catalogue();
        const auto columns = state_->columnGrid.settings();
        const metadata::PageSelection pages(state_->selectedPages);
        metadata::buildHeader({*catalogue, columns, pages, state_->classTypeId(), state_->allKeys, state_->factory},
                              header);
        return header;
    });
}

Value Filter::SetBackGroundColor(std::int32_t lColor) {
    return runMember(*state_, u"SetBackGroundColor", std::tie(lColor), [&]() -> Value {
        state_->controls->UserControl.setBackColor(static_cast<std::uint32_t>(lColor));
        return {};
    });
}

void Filter::put_ShowScheme(bool value) {
    writeMember(*state_, u"ShowScheme", value, [&] { state_->showScheme = value; });
}

void Filter::put_ShowFilterStyle(std::int32_t value) {
    writeMember(*state_, u"ShowFilterStyle", value, [&] {
        state_->style = value;
        const auto removeTab = [this](std::u16string_view key) {
            ui::TabStrip& tabs = state_->controls->tbFilter;
            for (const auto& tab : tabs.tabs()) {
                if (tab.key == key) {
                    tabs.removeTab(key);
                    return;
                }
            }
        };
        const auto style = static_cast<Enu_ShowFilter_Style>(value);
        if (style == Enu_ShowFilter_Style::Enu_ShowFilter_Style_Filter)
            removeTab(u"Sort");
        if (style == Enu_ShowFilter_Style::Enu_ShowFilter_Style_Filter ||
            style == Enu_ShowFilter_Style::Enu_ShowFilter_Style_FilterANDSort)
            removeTab(u"HideSet");
        layOutControls(*state_);
    });
}

void Filter::put_DataSrv(ObjectRef value) {
    writeMember(*state_, u"DataSrv", value, [&] { state_->takeDataService(std::move(value)); });
}

ObjectRef Filter::get_DataSrv() const {
    return readMember(*state_, u"DataSrv", [&] { return state_->dataService; });
}

void Filter::put_SetSelectPageList(std::u16string value) {
    writeMember(*state_, u"SetSelectPageList", value, [&] { state_->selectedPages = std::move(value); });
}

std::u16string Filter::get_GetSelectPageList() const {
    return readMember(*state_, u"GetSelectPageList", [&] { return state_->selectedPages; });
}

bool Filter::Initialize(std::u16string_view sClassTypeList) {
    state_->followTraceSettings();
    return runMember(*state_, u"Initialize", std::tie(sClassTypeList), [&] {
        try {
            state_->finishEdits();
            loadClassTypes(*state_, sClassTypeList);
            return true;
        } catch (const AutomationError& error) {
            state_->log(error.description());
            return false;
        }
    });
}

std::u16string Filter::GetTakeBaseDataSQL(Dictionary dct, Recordset rsAll, std::u16string_view sValue,
                                          std::u16string& FDSPName) {
    return runMember(*state_, u"GetTakeBaseDataSQL", std::tie(dct, rsAll, sValue, FDSPName),
                     [&] { return editor::GetTakeBaseDataSQL(dct, rsAll, sValue, FDSPName); });
}

bool Filter::GetFilterSql(std::u16string& strFilter, bool bRaiseErr) {
    return runMember(*state_, u"GetFilterSql", std::tie(strFilter, bRaiseErr), [&] {
        state_->finishEdits();
        if (state_->trace)
            state_->trace->text().setTypedValues(state_->typedValues());
        return filterSql(*state_, strFilter, bRaiseErr);
    });
}

Dictionary Filter::get_dctProFile() {
    return readMember(*state_, u"dctProFile", [&] { return state_->schemeManager.headerRecord(); });
}

Dictionary Filter::get_dctProFileEntry() {
    return readMember(*state_, u"dctProFileEntry", [&] {
        state_->finishEdits();
        return state_->schemeManager.entryRecord();
    });
}

bool Filter::SaveLastUseScheme() {
    return runMember(*state_, u"SaveLastUseScheme", std::tie(), [&] { return state_->schemeManager.saveLastUsed(); });
}

bool Filter::RefreshProfile(Dictionary odctProfileEntry) {
    return runMember(*state_, u"RefreshProfile", std::tie(odctProfileEntry), [&] {
        try {
            state_->finishEdits();
            state_->schemeManager.applyEntry(odctProfileEntry);
            return true;
        } catch (const AutomationError& error) {
            state_->log(error.description());
            return false;
        }
    });
}

Value Filter::SaveScheme() {
    return runMember(*state_, u"SaveScheme", std::tie(), [&]() -> Value {
        if (state_->showScheme)
            saveScheme(*state_, schemes::SaveMode::silent, 1);
        return {};
    });
}

bool Filter::GetSortString(std::u16string& HeadSort, std::u16string& EntrySort) {
    return runMember(*state_, u"GetSortString", std::tie(HeadSort, EntrySort), [&] {
        state_->finishEdits();
        state_->provideKeyMaps();
        const auto catalogue = state_->catalogue();
        // The maps of this call, whatever the host makes of the control's meanwhile.
        const Dictionary allKeys = state_->allKeys;
        const Dictionary idKeys = state_->idKeys;
        sortcols::appendSortStrings(state_->controls->vsOrder, state_->sortGrid, *catalogue, allKeys, idKeys, HeadSort,
                                    EntrySort);
        return true;
    });
}

bool Filter::InitHideColumns() {
    return runMember(*state_, u"InitHideColumns", std::tie(), [&] {
        if (!state_->selectList)
            return false;
        state_->finishEdits();
        initHideColumns(*state_);
        return true;
    });
}

Value Filter::SetPagetoTop(std::int32_t nPage) {
    return runMember(*state_, u"SetPagetoTop", std::tie(nPage), [&]() -> Value {
        if (nPage >= 1 && nPage <= 3)
            state_->controls->tbFilter.select(nPage);
        return {};
    });
}

void Filter::ClearMem() {
    runMember(*state_, u"ClearMem", std::tie(), [&] {
        state_->releaseObjects();
        state_->followTraceSettings();
    });
}

Dictionary Filter::GetFieldInfoByKey(std::u16string_view SKey, std::u16string& sPKey, std::int32_t& lIndex) {
    return runMember(*state_, u"GetFieldInfoByKey", std::tie(SKey, sPKey, lIndex), [&]() -> Dictionary {
        if (SKey.empty())
            return {};
        const Dictionary lookup(automation::toObjectOrNothing(state_->setting(u"Lookup", Value())));
        const Dictionary tableInfo = state_->tableInfo;
        if (!lookup || !tableInfo || !lookup.exists(SKey))
            return {};
        const std::u16string key = automation::toText(lookup.get(SKey));
        if (!tableInfo.exists(key))
            return {};
        Dictionary record(automation::toObject(tableInfo.get(key)));
        const Value index = record.getValue(u"CtlIndex", std::int32_t{0});
        lIndex = index.isNull() ? 0 : automation::toInt32(index);
        sPKey = key;
        return record;
    });
}

Dictionary Filter::get_dctControl() const {
    return readMember(*state_, u"dctControl", [&] { return state_->settings; });
}

void Filter::put_dctControl(Dictionary value) {
    state_->settings = value;
    state_->followTraceSettings();
    // A trace that the settings ask for begins with them.
    writeMember(*state_, u"dctControl", value, [] {});
}

std::u16string Filter::EnableMostPage() {
    return runMember(*state_, u"EnableMostPage", std::tie(), [&] { return enabledPages(*state_); });
}

void Filter::ClearFace() {
    runMember(*state_, u"ClearFace", std::tie(), [] {});
}

Date Filter::GetToday() {
    return runMember(*state_, u"GetToday", std::tie(), [&] { return editor::serverToday(state_->factory); });
}

bool Filter::GetCurPeriod(std::int32_t& CurYear, std::int32_t& CurPeriod, Date& dStartDate, Date& dEndDate) {
    return runMember(*state_, u"GetCurPeriod", std::tie(CurYear, CurPeriod, dStartDate, dEndDate), [&] {
        editor::AccountingPeriod period{false, CurYear, CurPeriod, dStartDate, dEndDate};
        const std::u16string props = state_->userProperties.text();
        editor::askCurrentPeriod(state_->factory, state_->classTypeId(), props, period);
        // All four or none: a value of a wrong kind fails the call.
        const std::int32_t year = automation::toInt32(period.year);
        const std::int32_t number = automation::toInt32(period.period);
        const Date start = automation::toDate(period.start);
        dEndDate = automation::toDate(period.end);
        CurYear = year;
        CurPeriod = number;
        dStartDate = start;
        if (!period.known)
            state_->messages().warn(u"中间层调用失败！");
        return period.known;
    });
}

} // namespace orv::control
