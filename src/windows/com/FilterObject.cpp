#include "windows/com/FilterObject.h"

#include "windows/com/ControlObject.h"
#include "windows/com/Errors.h"
#include "windows/com/Handles.h"
#include "windows/com/TypeLibrary.h"
#include "windows/com/ValueConversion.h"
#include "windows/com/Wrappers.h"

namespace orv::windows {

using automation::Collection;
using automation::Dictionary;
using automation::ObjectRef;
using automation::Recordset;

namespace {

// Results as the interface gives them; each hands over what the caller will own.
VARIANT_BOOL given(bool value) {
    return value ? VARIANT_TRUE : VARIANT_FALSE;
}
BSTR given(const std::u16string& text) {
    return UniqueBstr(text).release();
}
IDispatch* given(const ObjectRef& object) {
    return expose(object).detach();
}
IDispatch* given(const Dictionary& dictionary) {
    return given(dictionary.object());
}
IDispatch* given(const Collection& collection) {
    return given(collection.object());
}
VARIANT given(const automation::Value& value) {
    return toVariant(value).release();
}
DATE given(automation::Date date) {
    return date.days;
}

void clear(VARIANT& out) noexcept {
    VariantInit(&out);
}
template <class Out>
void clear(Out& out) noexcept {
    out = Out{};
}

/// A caller's text for the length of a call. It is handed back also when the call fails.
class TextVariable {
  public:
    explicit TextVariable(BSTR& variable) : variable_(variable), text_(viewOf(variable)) {}
    TextVariable(const TextVariable&) = delete;
    TextVariable& operator=(const TextVariable&) = delete;
    ~TextVariable() {
        if (text_ == viewOf(variable_))
            return;
        // Without memory for the new text the old one stays.
        if (BSTR changed = SysAllocStringLen(asWide(text_), static_cast<UINT>(text_.size())))
            SysFreeString(std::exchange(variable_, changed));
    }
    std::u16string& text() noexcept { return text_; }

  private:
    BSTR& variable_;
    std::u16string text_;
};

/// A caller's number or date for the length of a call, likewise.
template <class Outer, class Inner>
class Variable {
  public:
    Variable(Outer& variable, Inner value) : variable_(variable), value_(value) {}
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
    ~Variable() {
        if constexpr (std::is_same_v<Inner, automation::Date>)
            variable_ = value_.days;
        else
            variable_ = value_;
    }
    Inner& value() noexcept { return value_; }

  private:
    Outer& variable_;
    Inner value_;
};
using NumberVariable = Variable<LONG, std::int32_t>;
using DateVariable = Variable<DATE, automation::Date>;

} // namespace

/// Runs a body with this object kept alive: the host may release it while the core calls the host.
template <class Body>
HRESULT FilterObject::run(Body&& body) noexcept {
    const ComPtr<IUnknown> alive = ComPtr<IUnknown>::copyFrom(identity());
    return guarded(std::forward<Body>(body));
}

template <class Out, class Body>
HRESULT FilterObject::answer(Out* out, Body&& body) noexcept {
    if (!out)
        return E_POINTER;
    clear(*out);
    return run([&] { *out = given(body()); });
}

FilterObject::FilterObject()
    : site_(*identity()), prompts_(site_), filter_(factory_, prompts_), embedding_(site_, filter_) {
    // For host components that want the control they work for; the reference lasts as long as they keep it.
    filter_.setSelfObject([this] { return wrap(static_cast<_Filter*>(this)); });
}

FilterObject::~FilterObject() = default;

HRESULT FilterObject::QueryInterface(REFIID id, void** out) noexcept {
    if (SUCCEEDED(ComObject::QueryInterface(id, out)))
        return S_OK;
    if (!out)
        return E_POINTER;
    *out = embedding_.find(id);
    if (!*out)
        return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

// A plain field: no host code runs that could release the control.
HRESULT FilterObject::get_m_JCType(VARIANT_BOOL* value) noexcept {
    if (!value)
        return E_POINTER;
    *value = VARIANT_FALSE;
    return guarded([&] { *value = given(filter_.get_m_JCType()); });
}

HRESULT FilterObject::put_m_JCType(VARIANT_BOOL value) noexcept {
    return guarded([&] { filter_.put_m_JCType(value != VARIANT_FALSE); });
}

HRESULT FilterObject::get_UseKey(IDispatch** value) noexcept {
    return answer(value, [&] { return filter_.get_UseKey(); });
}

HRESULT FilterObject::get_dctProFile(IDispatch** value) noexcept {
    return answer(value, [&] { return filter_.get_dctProFile(); });
}

HRESULT FilterObject::put_ConditionExtHide(IDispatch** value) noexcept {
    if (!value)
        return E_POINTER;
    return run([&] { filter_.put_ConditionExtHide(Dictionary(wrap(*value))); });
}

HRESULT FilterObject::get_dctProFileEntry(IDispatch** value) noexcept {
    return answer(value, [&] { return filter_.get_dctProFileEntry(); });
}

HRESULT FilterObject::get_m_Header(IDispatch** value) noexcept {
    return answer(value, [&] { return filter_.get_m_Header(); });
}

HRESULT FilterObject::SetBackGroundColor(LONG lColor, VARIANT* result) noexcept {
    return answer(result, [&] { return filter_.SetBackGroundColor(lColor); });
}

HRESULT FilterObject::put_ShowScheme(VARIANT_BOOL value) noexcept {
    return run([&] { filter_.put_ShowScheme(value != VARIANT_FALSE); });
}

HRESULT FilterObject::put_ShowFilterStyle(Enu_ShowFilter_Style value) noexcept {
    return run([&] {
        filter_.put_ShowFilterStyle(static_cast<std::int32_t>(value));
        embedding_.design().noteDisplayStyle(static_cast<std::int32_t>(value));
    });
}

HRESULT FilterObject::put_DataSrv(IDispatch* value) noexcept {
    return run([&] { filter_.put_DataSrv(wrap(value)); });
}

HRESULT FilterObject::get_DataSrv(IDispatch** value) noexcept {
    return answer(value, [&] { return filter_.get_DataSrv(); });
}

HRESULT FilterObject::put_SetSelectPageList(BSTR value) noexcept {
    return run([&] { filter_.put_SetSelectPageList(std::u16string(viewOf(value))); });
}

HRESULT FilterObject::get_GetSelectPageList(BSTR* value) noexcept {
    return answer(value, [&] { return filter_.get_GetSelectPageList(); });
}

HRESULT FilterObject::Initialize(BSTR sClassTypeList, VARIANT_BOOL* result) noexcept {
    return answer(result, [&] { return filter_.Initialize(viewOf(sClassTypeList)); });
}

HRESULT FilterObject::SaveLastUseScheme(VARIANT_BOOL* result) noexcept {
    return answer(result, [&] { return filter_.SaveLastUseScheme(); });
}

HRESULT FilterObject::RefreshProfile(IDispatch* odctProfileEntry, VARIANT_BOOL* result) noexcept {
    return answer(result, [&] { return filter_.RefreshProfile(Dictionary(wrap(odctProfileEntry))); });
}

HRESULT FilterObject::GetTakeBaseDataSQL(IDispatch* dct, IDispatch* rsAll, BSTR sValue, BSTR* FDSPName,
                                         BSTR* result) noexcept {
    if (!FDSPName)
        return E_POINTER;
    return answer(result, [&] {
        TextVariable name(*FDSPName);
        return filter_.GetTakeBaseDataSQL(Dictionary(wrap(dct)), Recordset(wrap(rsAll)), viewOf(sValue), name.text());
    });
}

HRESULT FilterObject::GetFilterSql(BSTR* strFilter, VARIANT_BOOL bRaiseErr, VARIANT_BOOL* result) noexcept {
    if (!strFilter)
        return E_POINTER;
    return answer(result, [&] {
        TextVariable filter(*strFilter);
        return filter_.GetFilterSql(filter.text(), bRaiseErr != VARIANT_FALSE);
    });
}

HRESULT FilterObject::GetSortString(BSTR* HeadSort, BSTR* EntrySort, VARIANT_BOOL* result) noexcept {
    if (!HeadSort || !EntrySort)
        return E_POINTER;
    return answer(result, [&] {
        TextVariable head(*HeadSort);
        TextVariable entry(*EntrySort);
        return filter_.GetSortString(head.text(), entry.text());
    });
}

HRESULT FilterObject::InitHideColumns(VARIANT_BOOL* result) noexcept {
    return answer(result, [&] { return filter_.InitHideColumns(); });
}

HRESULT FilterObject::SaveScheme(VARIANT* result) noexcept {
    return answer(result, [&] { return filter_.SaveScheme(); });
}

HRESULT FilterObject::SetPagetoTop(LONG nPage, VARIANT* result) noexcept {
    return answer(result, [&] { return filter_.SetPagetoTop(nPage); });
}

HRESULT FilterObject::ClearMem() noexcept {
    return run([&] { filter_.ClearMem(); });
}

HRESULT FilterObject::GetFieldInfoByKey(BSTR SKey, BSTR* sPKey, LONG* lIndex, IDispatch** result) noexcept {
    if (!sPKey || !lIndex)
        return E_POINTER;
    return answer(result, [&] {
        TextVariable parent(*sPKey);
        NumberVariable index(*lIndex, *lIndex);
        return filter_.GetFieldInfoByKey(viewOf(SKey), parent.text(), index.value());
    });
}

HRESULT FilterObject::get_dctControl(IDispatch** value) noexcept {
    return answer(value, [&] { return filter_.get_dctControl(); });
}

HRESULT FilterObject::put_dctControl(IDispatch* value) noexcept {
    return run([&] { filter_.put_dctControl(Dictionary(wrap(value))); });
}

HRESULT FilterObject::EnableMostPage(BSTR* result) noexcept {
    return answer(result, [&] { return filter_.EnableMostPage(); });
}

HRESULT FilterObject::ClearFace() noexcept {
    return run([&] { filter_.ClearFace(); });
}

HRESULT FilterObject::GetToday(DATE* result) noexcept {
    return answer(result, [&] { return filter_.GetToday(); });
}

HRESULT FilterObject::GetCurPeriod(LONG* CurYear, LONG* CurPeriod, DATE* dStartDate, DATE* dEndDate,
                                   VARIANT_BOOL* result) noexcept {
    if (!CurYear || !CurPeriod || !dStartDate || !dEndDate)
        return E_POINTER;
    return answer(result, [&] {
        NumberVariable year(*CurYear, *CurYear);
        NumberVariable period(*CurPeriod, *CurPeriod);
        DateVariable start(*dStartDate, automation::Date{*dStartDate});
        DateVariable end(*dEndDate, automation::Date{*dEndDate});
        return filter_.GetCurPeriod(year.value(), period.value(), start.value(), end.value());
    });
}

HRESULT FilterObject::InterfaceSupportsErrorInfo(REFIID id) noexcept {
    return id == __uuidof(_Filter) || id == __uuidof(IFilterControls) ? S_OK : S_FALSE;
}

HRESULT FilterObject::GetClassInfo(ITypeInfo** info) noexcept {
    if (!info)
        return E_POINTER;
    *info = nullptr;
    ComPtr<ITypeInfo> found;
    const HRESULT result = loadTypeInfo(__uuidof(::Filter), found);
    *info = found.detach();
    return result;
}

HRESULT FilterObject::GetGUID(DWORD kind, GUID* id) noexcept {
    if (!id)
        return E_POINTER;
    *id = kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? __uuidof(__Filter) : GUID_NULL;
    return kind == GUIDKIND_DEFAULT_SOURCE_DISP_IID ? S_OK : E_INVALIDARG;
}

HRESULT FilterObject::GetControl(BSTR name, IDispatch** control) noexcept {
    return answer(control, [&] {
        return makeControlObject(ComPtr<IUnknown>::copyFrom(identity()), filter_.controls(), viewOf(name));
    });
}

} // namespace orv::windows
