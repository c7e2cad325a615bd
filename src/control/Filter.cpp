#include "control/Filter.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
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
using automation::ObjectRef;
using automation::Recordset;
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
    return state_->m_JCType;
}

void Filter::put_m_JCType(bool value) {
    state_->m_JCType = value;
}

Dictionary Filter::get_UseKey() {
    state_->provideKeyMaps();
    Dictionary maps = automation::newRecord(state_->factory);
    maps.set(u"ALL", state_->allKeys.object());
    maps.set(u"ID", state_->idKeys.object());
    return maps;
}

void Filter::put_ConditionExtHide(Dictionary value) {
    state_->hiddenConditions = std::move(value);
}

Collection Filter::get_m_Header() {
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
}

Value Filter::SetBackGroundColor(std::int32_t lColor) {
    state_->controls->UserControl.setBackColor(static_cast<std::uint32_t>(lColor));
    return {};
}

void Filter::put_ShowScheme(bool value) {
    state_->showScheme = value;
}

void Filter::put_ShowFilterStyle(std::int32_t value) {
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
}

void Filter::put_DataSrv(ObjectRef value) {
    state_->takeDataService(std::move(value));
}

ObjectRef Filter::get_DataSrv() const {
    return state_->dataService;
}

void Filter::put_SetSelectPageList(std::u16string value) {
    state_->selectedPages = std::move(value);
}

std::u16string Filter::get_GetSelectPageList() const {
    return state_->selectedPages;
}

bool Filter::Initialize(std::u16string_view sClassTypeList) {
    try {
        loadClassTypes(*state_, sClassTypeList);
        return true;
    } catch (const AutomationError& error) {
        state_->log(error.description());
        return false;
    }
}

std::u16string Filter::GetTakeBaseDataSQL(Dictionary dct, Recordset rsAll, std::u16string_view sValue,
                                          std::u16string& FDSPName) {
    return editor::GetTakeBaseDataSQL(dct, rsAll, sValue, FDSPName);
}

bool Filter::GetFilterSql(std::u16string& strFilter, bool bRaiseErr) {
    return filterSql(*state_, strFilter, bRaiseErr);
}

Dictionary Filter::get_dctProFile() {
    return state_->schemeManager.headerRecord();
}

Dictionary Filter::get_dctProFileEntry() {
    return state_->schemeManager.entryRecord();
}

bool Filter::SaveLastUseScheme() {
    return state_->schemeManager.saveLastUsed();
}

bool Filter::RefreshProfile(Dictionary odctProfileEntry) {
    try {
        state_->schemeManager.applyEntry(odctProfileEntry);
        return true;
    } catch (const AutomationError& error) {
        state_->log(error.description());
        return false;
    }
}

Value Filter::SaveScheme() {
    if (state_->showScheme)
        saveScheme(*state_, schemes::SaveMode::silent, 1);
    return {};
}

bool Filter::GetSortString(std::u16string& HeadSort, std::u16string& EntrySort) {
    state_->provideKeyMaps();
    const auto catalogue = state_->catalogue();
    // The maps of this call, whatever the host makes of the control's meanwhile.
    const Dictionary allKeys = state_->allKeys;
    const Dictionary idKeys = state_->idKeys;
    sortcols::appendSortStrings(state_->controls->vsOrder, state_->sortGrid, *catalogue, allKeys, idKeys, HeadSort,
                                EntrySort);
    return true;
}

bool Filter::InitHideColumns() {
    if (!state_->selectList)
        return false;
    initHideColumns(*state_);
    return true;
}

Value Filter::SetPagetoTop(std::int32_t nPage) {
    if (nPage >= 1 && nPage <= 3)
        state_->controls->tbFilter.select(nPage);
    return {};
}

void Filter::ClearMem() {
    state_->releaseObjects();
}

Dictionary Filter::GetFieldInfoByKey(std::u16string_view SKey, std::u16string& sPKey, std::int32_t& lIndex) {
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
}

Dictionary Filter::get_dctControl() const {
    return state_->settings;
}

void Filter::put_dctControl(Dictionary value) {
    state_->settings = std::move(value);
}

std::u16string Filter::EnableMostPage() {
    return enabledPages(*state_);
}

void Filter::ClearFace() {}

Date Filter::GetToday() {
    return editor::serverToday(state_->factory);
}

bool Filter::GetCurPeriod(std::int32_t& CurYear, std::int32_t& CurPeriod, Date& dStartDate, Date& dEndDate) {
    editor::AccountingPeriod period{false, CurYear, CurPeriod, dStartDate, dEndDate};
    const std::u16string props = state_->userProperties.text();
    editor::askCurrentPeriod(state_->factory, state_->classTypeId(), props, period);
    CurYear = automation::toInt32(period.year);
    CurPeriod = automation::toInt32(period.period);
    dStartDate = automation::toDate(period.start);
    dEndDate = automation::toDate(period.end);
    if (!period.known)
        state_->messages().warn(u"中间层调用失败！");
    return period.known;
}

} // namespace orv::control
