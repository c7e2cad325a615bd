#pragma once

#include "automation/ObjectFactory.h"
#include "automation/Value.h"
#include "automation/Views.h"
#include "control/FilterControls.h"
#include "ui/Prompts.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace orv::control {

enum class Enu_ShowFilter_Style : std::int32_t {
    Enu_ShowFilter_Style_All = 0,           ///< all three tabs
    Enu_ShowFilter_Style_FilterANDSort = 1, ///< without the column display tab
    Enu_ShowFilter_Style_Filter = 2,        ///< conditions only
};

struct FilterState;

/// The filter control as a host sees it, without a window. Members raise automation::AutomationError.
///
/// Every member may call the host and be re-entered or released meanwhile: whoever owns a Filter keeps it alive
/// for the length of a call.
class Filter {
  public:
    /// Creates the control: fonts, captions and grid headings are set. Both seams must outlive it.
    Filter(automation::ObjectFactory& factory, ui::Prompts& prompts);
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;
    ~Filter();

    // The public members, in interface order. get_ and put_ are property reads and writes.
    bool get_m_JCType() const;
    void put_m_JCType(bool value);
    /// A new dictionary with the shared key maps under "ALL" and "ID".
    automation::Dictionary get_UseKey();
    automation::Dictionary get_dctProFile();
    void put_ConditionExtHide(automation::Dictionary value);
    automation::Dictionary get_dctProFileEntry();
    /// Rebuilds the header column list and returns it.
    automation::Collection get_m_Header();
    automation::Value SetBackGroundColor(std::int32_t lColor);
    void put_ShowScheme(bool value);
    void put_ShowFilterStyle(std::int32_t value);
    void put_DataSrv(automation::ObjectRef value);
    automation::ObjectRef get_DataSrv() const;
    void put_SetSelectPageList(std::u16string value);
    std::u16string get_GetSelectPageList() const;
    /// False when a step failed; what was filled until then stays.
    bool Initialize(std::u16string_view sClassTypeList = {});
    bool SaveLastUseScheme();
    bool RefreshProfile(automation::Dictionary odctProfileEntry);
    std::u16string GetTakeBaseDataSQL(automation::Dictionary dct, automation::Recordset rsAll,
                                      std::u16string_view sValue, std::u16string& FDSPName);
    /// Extends `strFilter` by the filter text. Errors are shown and give False, or are raised when `bRaiseErr`.
    bool GetFilterSql(std::u16string& strFilter, bool bRaiseErr = false);
    bool GetSortString(std::u16string& HeadSort, std::u16string& EntrySort);
    bool InitHideColumns();
    automation::Value SaveScheme();
    automation::Value SetPagetoTop(std::int32_t nPage);
    /// Releases every object that the control holds.
    void ClearMem();
    automation::Dictionary GetFieldInfoByKey(std::u16string_view SKey, std::u16string& sPKey, std::int32_t& lIndex);
    automation::Dictionary get_dctControl() const;
    void put_dctControl(automation::Dictionary value);
    std::u16string EnableMostPage();
    void ClearFace();
    /// The database server's date and time; the zero date when it gives no row.
    automation::Date GetToday();
    bool GetCurPeriod(std::int32_t& CurYear, std::int32_t& CurPeriod, automation::Date& dStartDate,
                      automation::Date& dEndDate);

    /// The constituent controls, for views, tests and tools.
    FilterControls& controls();
    /// The size of the control in pixels at a scale of 96 dots an inch times `scale`; lays everything out again.
    void resize(int widthPx, int heightPx, double scale = 1.0);
    /// A text of a shell's own in the user's language, with "%1" replaced.
    std::u16string translated(std::u16string_view messageTemplate, std::u16string_view first) const;
    /// The database server's date for calendars; nothing when the host does not know it, which is logged.
    std::optional<automation::Date> serverDay();
    /// How the control is reached as an automation object; a shell sets it for host components that want it.
    void setSelfObject(std::function<automation::ObjectRef()> self);

  private:
    std::unique_ptr<FilterState> state_;
};

} // namespace orv::control
