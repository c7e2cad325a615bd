#pragma once

#include "control/Filter.h"
#include "windows/com/ComObject.h"
#include "windows/com/ComObjectFactory.h"
#include "windows/com/IFilterControls.h"
#include "windows/ole/Embedding.h"
#include "windows/ole/HostPrompts.h"

#include <ORVFilter.h>

#include <ocidl.h>

namespace orv::windows {

template <>
struct Extends<_Filter> {
    using type = IDispatch;
};
template <>
struct Extends<IProvideClassInfo2> {
    using type = IProvideClassInfo;
};

/// The COM face of the control: the dual interface over control::Filter, and its embedding. It holds no rule of the
/// system.
class FilterObject final : public ComObject<_Filter, ISupportErrorInfo, IProvideClassInfo2, IFilterControls> {
  public:
    FilterObject();

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** out) noexcept override;

    // IDispatch
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID reserved, LPOLESTR* names, UINT count, LCID locale,
                                            DISPID* ids) noexcept override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID reserved, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* details, UINT* wrongArgument) noexcept override;

    // _Filter
    HRESULT STDMETHODCALLTYPE get_m_JCType(VARIANT_BOOL* value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_m_JCType(VARIANT_BOOL value) noexcept override;
    HRESULT STDMETHODCALLTYPE get_UseKey(IDispatch** value) noexcept override;
    HRESULT STDMETHODCALLTYPE get_dctProFile(IDispatch** value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_ConditionExtHide(IDispatch** value) noexcept override;
    HRESULT STDMETHODCALLTYPE get_dctProFileEntry(IDispatch** value) noexcept override;
    HRESULT STDMETHODCALLTYPE get_m_Header(IDispatch** value) noexcept override;
    HRESULT STDMETHODCALLTYPE SetBackGroundColor(LONG lColor, VARIANT* result) noexcept override;
    HRESULT STDMETHODCALLTYPE put_ShowScheme(VARIANT_BOOL value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_ShowFilterStyle(Enu_ShowFilter_Style value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_DataSrv(IDispatch* value) noexcept override;
    HRESULT STDMETHODCALLTYPE get_DataSrv(IDispatch** value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_SetSelectPageList(BSTR value) noexcept override;
    HRESULT STDMETHODCALLTYPE get_GetSelectPageList(BSTR* value) noexcept override;
    HRESULT STDMETHODCALLTYPE Initialize(BSTR sClassTypeList, VARIANT_BOOL* result) noexcept override;
    HRESULT STDMETHODCALLTYPE SaveLastUseScheme(VARIANT_BOOL* result) noexcept override;
    HRESULT STDMETHODCALLTYPE RefreshProfile(IDispatch* odctProfileEntry, VARIANT_BOOL* result) noexcept override;
    HRESULT STDMETHODCALLTYPE GetTakeBaseDataSQL(IDispatch* dct, IDispatch* rsAll, BSTR sValue, BSTR* FDSPName,
                                                 BSTR* result) noexcept override;
    HRESULT STDMETHODCALLTYPE GetFilterSql(BSTR* strFilter, VARIANT_BOOL bRaiseErr,
                                           VARIANT_BOOL* result) noexcept override;
    HRESULT STDMETHODCALLTYPE GetSortString(BSTR* HeadSort, BSTR* EntrySort, VARIANT_BOOL* result) noexcept override;
    HRESULT STDMETHODCALLTYPE InitHideColumns(VARIANT_BOOL* result) noexcept override;
    HRESULT STDMETHODCALLTYPE SaveScheme(VARIANT* result) noexcept override;
    HRESULT STDMETHODCALLTYPE SetPagetoTop(LONG nPage, VARIANT* result) noexcept override;
    HRESULT STDMETHODCALLTYPE ClearMem() noexcept override;
    HRESULT STDMETHODCALLTYPE GetFieldInfoByKey(BSTR SKey, BSTR* sPKey, LONG* lIndex,
                                                IDispatch** result) noexcept override;
    HRESULT STDMETHODCALLTYPE get_dctControl(IDispatch** value) noexcept override;
    HRESULT STDMETHODCALLTYPE put_dctControl(IDispatch* value) noexcept override;
    HRESULT STDMETHODCALLTYPE EnableMostPage(BSTR* result) noexcept override;
    HRESULT STDMETHODCALLTYPE ClearFace() noexcept override;
    HRESULT STDMETHODCALLTYPE GetToday(DATE* result) noexcept override;
    HRESULT STDMETHODCALLTYPE GetCurPeriod(LONG* CurYear, LONG* CurPeriod, DATE* dStartDate, DATE* dEndDate,
                                           VARIANT_BOOL* result) noexcept override;

    // ISupportErrorInfo
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) noexcept override;

    // IProvideClassInfo2
    HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** info) noexcept override;
    HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* id) noexcept override;

    // IFilterControls
    HRESULT STDMETHODCALLTYPE GetControl(BSTR name, IDispatch** control) noexcept override;

  private:
    ~FilterObject() override;

    template <class Body>
    HRESULT run(Body&& body) noexcept;
    template <class Out, class Body>
    HRESULT answer(Out* out, Body&& body) noexcept;

    ComObjectFactory factory_;
    OleSite site_;
    HostPrompts prompts_;
    control::Filter filter_;
    Embedding embedding_;
};

} // namespace orv::windows
