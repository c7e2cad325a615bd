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

namespace orv::control {

using automation::AutomationError;
using automation::Collection;
using automation::Date;
using automation::Dictionary;
using automation::InvokeKind;
using automation::ObjectRef;
using automation::Recordset;
using automation::tracedMember;
using automation::Value;

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

void Filter::setSelfObject(std::function<automation::ObjectRef()> self) {
    state_->selfObject = std::move(self);
}

bool Filter::get_m_JCType() const {
    return tracedMember(state_->trace, u"m_JCType", InvokeKind::get, [&]() -> bool { return state_->m_JCType; });
}

void Filter::put_m_JCType(bool value) {
    tracedMember(
        state_->trace, u"m_JCType", InvokeKind::let, [&] { state_->m_JCType = value; }, value);
}

Dictionary Filter::get_UseKey() {
    return tracedMember(state_->trace, u"UseKey", InvokeKind::get, [&]() -> Dictionary {
        state_->provideKeyMaps();
        Dictionary maps = automation::newRecord(state_->factory);
        maps.set(u"ALL", state_->allKeys.object());
        maps.set(u"ID", state_->idKeys.object());
        return maps;
    });
}

void Filter::put_ConditionExtHide(Dictionary value) {
    tracedMember(
        state_->trace, u"ConditionExtHide", InvokeKind::let, [&] { state_->hiddenConditions = std::move(value); },
        value);
}

Collection Filter::get_m_Header() {
    return tracedMember(state_->trace, u"m_Header", InvokeKind::get, [&]() -> Collection {
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
    return tracedMember(
        state_->trace, u"SetBackGroundColor", InvokeKind::method,
        [&]() -> Value {
            state_->controls->UserControl.setBackColor(static_cast<std::uint32_t>(lColor));
            return {};
        },
        lColor);
}

void Filter::put_ShowScheme(bool value) {
    tracedMember(
        state_->trace, u"ShowScheme", InvokeKind::let, [&] { state_->showScheme = value; }, value);
}

void Filter::put_ShowFilterStyle(std::int32_t value) {
    tracedMember(
        state_->trace, u"ShowFilterStyle", InvokeKind::let,
        [&] {
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
        },
        value);
}

void Filter::put_DataSrv(ObjectRef value) {
    tracedMember(
        state_->trace, u"DataSrv", InvokeKind::let, [&] { state_->takeDataService(std::move(value)); }, value);
}

ObjectRef Filter::get_DataSrv() const {
    return tracedMember(state_->trace, u"DataSrv", InvokeKind::get, [&]() -> ObjectRef { return state_->dataService; });
}

void Filter::put_SetSelectPageList(std::u16string value) {
    tracedMember(
        state_->trace, u"SetSelectPageList", InvokeKind::let, [&] { state_->selectedPages = std::move(value); }, value);
}

std::u16string Filter::get_GetSelectPageList() const {
    return tracedMember(state_->trace, u"GetSelectPageList", InvokeKind::get,
                        [&]() -> std::u16string { return state_->selectedPages; });
}

bool Filter::Initialize(std::u16string_view sClassTypeList) {
    state_->followTraceSettings();
    return tracedMember(
        state_->trace, u"Initialize", InvokeKind::method,
        [&]() -> bool {
            try {
                loadClassTypes(*state_, sClassTypeList);
                return true;
            } catch (const AutomationError& error) {
                state_->log(error.description());
                return false;
            }
        },
        sClassTypeList);
}

std::u16string Filter::GetTakeBaseDataSQL(Dictionary dct, Recordset rsAll, std::u16string_view sValue,
                                          std::u16string& FDSPName) {
    return tracedMember(
        state_->trace, u"GetTakeBaseDataSQL", InvokeKind::method,
        [&]() -> std::u16string { return editor::GetTakeBaseDataSQL(dct, rsAll, sValue, FDSPName); }, dct, rsAll,
        sValue, FDSPName);
}

bool Filter::GetFilterSql(std::u16string& strFilter, bool bRaiseErr) {
    return tracedMember(
        state_->trace, u"GetFilterSql", InvokeKind::method,
        [&]() -> bool {
            if (state_->trace)
                state_->trace->text().setTypedValues(state_->typedValues());
            return filterSql(*state_, strFilter, bRaiseErr);
        },
        strFilter, bRaiseErr);
}

Dictionary Filter::get_dctProFile() {
    return tracedMember(state_->trace, u"dctProFile", InvokeKind::get,
                        [&]() -> Dictionary { return state_->schemeManager.headerRecord(); });
}

Dictionary Filter::get_dctProFileEntry() {
    return tracedMember(state_->trace, u"dctProFileEntry", InvokeKind::get,
                        [&]() -> Dictionary { return state_->schemeManager.entryRecord(); });
}

bool Filter::SaveLastUseScheme() {
    return tracedMember(state_->trace, u"SaveLastUseScheme", InvokeKind::method,
                        [&]() -> bool { return state_->schemeManager.saveLastUsed(); });
}

bool Filter::RefreshProfile(Dictionary odctProfileEntry) {
    return tracedMember(
        state_->trace, u"RefreshProfile", InvokeKind::method,
        [&]() -> bool {
            try {
                state_->schemeManager.applyEntry(odctProfileEntry);
                return true;
            } catch (const AutomationError& error) {
                state_->log(error.description());
                return false;
            }
        },
        odctProfileEntry);
}

Value Filter::SaveScheme() {
    return tracedMember(state_->trace, u"SaveScheme", InvokeKind::method, [&]() -> Value {
        if (state_->showScheme)
            saveScheme(*state_, schemes::SaveMode::silent, 1);
        return {};
    });
}

bool Filter::GetSortString(std::u16string& HeadSort, std::u16string& EntrySort) {
    return tracedMember(
        state_->trace, u"GetSortString", InvokeKind::method,
        [&]() -> bool {
            state_->provideKeyMaps();
            const auto catalogue = state_->catalogue();
            // The maps of this call, whatever the host makes of the control's meanwhile.
            const Dictionary allKeys = state_->allKeys;
            const Dictionary idKeys = state_->idKeys;
            sortcols::appendSortStrings(state_->controls->vsOrder, state_->sortGrid, *catalogue, allKeys, idKeys,
                                        HeadSort, EntrySort);
            return true;
        },
        HeadSort, EntrySort);
}

bool Filter::InitHideColumns() {
    return tracedMember(state_->trace, u"InitHideColumns", InvokeKind::method, [&]() -> bool {
        if (!state_->selectList)
            return false;
        initHideColumns(*state_);
        return true;
    });
}

Value Filter::SetPagetoTop(std::int32_t nPage) {
    return tracedMember(
        state_->trace, u"SetPagetoTop", InvokeKind::method,
        [&]() -> Value {
            if (nPage >= 1 && nPage <= 3)
                state_->controls->tbFilter.select(nPage);
            return {};
        },
        nPage);
}

void Filter::ClearMem() {
    tracedMember(state_->trace, u"ClearMem", InvokeKind::method, [&] {
        state_->releaseObjects();
        state_->followTraceSettings();
    });
}

Dictionary Filter::GetFieldInfoByKey(std::u16string_view SKey, std::u16string& sPKey, std::int32_t& lIndex) {
    return tracedMember(
        state_->trace, u"GetFieldInfoByKey", InvokeKind::method,
        [&]() -> Dictionary {
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
        },
        SKey, sPKey, lIndex);
}

Dictionary Filter::get_dctControl() const {
    return tracedMember(state_->trace, u"dctControl", InvokeKind::get,
                        [&]() -> Dictionary { return state_->settings; });
}

void Filter::put_dctControl(Dictionary value) {
    state_->settings = value;
    state_->followTraceSettings();
    // A trace that the settings ask for begins with them.
    tracedMember(
        state_->trace, u"dctControl", InvokeKind::let, [] {}, value);
}

std::u16string Filter::EnableMostPage() {
    return tracedMember(state_->trace, u"EnableMostPage", InvokeKind::method,
                        [&]() -> std::u16string { return enabledPages(*state_); });
}

void Filter::ClearFace() {
    tracedMember(state_->trace, u"ClearFace", InvokeKind::method, [] {});
}

Date Filter::GetToday() {
    return tracedMember(state_->trace, u"GetToday", InvokeKind::method,
                        [&]() -> Date { return editor::serverToday(state_->factory); });
}

bool Filter::GetCurPeriod(std::int32_t& CurYear, std::int32_t& CurPeriod, Date& dStartDate, Date& dEndDate) {
    return tracedMember(
        state_->trace, u"GetCurPeriod", InvokeKind::method,
        [&]() -> bool {
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
        },
        CurYear, CurPeriod, dStartDate, dEndDate);
}

} // namespace orv::control
