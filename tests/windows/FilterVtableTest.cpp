#include "windows/Dll.h"
#include "windows/FakeDispatch.h"
#include "windows/com/IFilterControls.h"

#include <gtest/gtest.h>

#include <string>

// The control through its vtable, as compiled hosts call it.

namespace orv::windows::test {

namespace {

struct ThreadError {
    std::u16string source, description;
    bool isSet = false;
};

ThreadError takeThreadError() {
    ThreadError error;
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.put()) != S_OK)
        return error;
    UniqueBstr source, description;
    info->GetSource(source.put());
    info->GetDescription(description.put());
    return {std::u16string(source.view()), std::u16string(description.view()), true};
}

TEST(FilterVtable, RefusesNullPointersAndClearsResults) {
    const LoadedFilter loaded;
    _Filter& filter = *loaded.filter;
    EXPECT_EQ(filter.get_m_JCType(nullptr), E_POINTER);
    EXPECT_EQ(filter.get_UseKey(nullptr), E_POINTER);
    EXPECT_EQ(filter.put_ConditionExtHide(nullptr), E_POINTER);
    VARIANT_BOOL done = VARIANT_TRUE;
    EXPECT_EQ(filter.GetFilterSql(nullptr, VARIANT_FALSE, &done), E_POINTER);
    EXPECT_EQ(filter.GetSortString(nullptr, nullptr, &done), E_POINTER);

    DATE today = 123;
    EXPECT_EQ(static_cast<DWORD>(filter.GetToday(&today)), 0x800A01ADu);
    EXPECT_EQ(today, 0) << "cleared although the call failed";
}

TEST(FilterVtable, LeavesErrorInformationForTheThread) {
    const LoadedFilter loaded;
    ComPtr<ISupportErrorInfo> supports;
    ASSERT_EQ(loaded.filter.as(supports), S_OK);
    EXPECT_EQ(supports->InterfaceSupportsErrorInfo(__uuidof(_Filter)), S_OK);
    EXPECT_EQ(supports->InterfaceSupportsErrorInfo(IID_IStream), S_FALSE);

    SetErrorInfo(0, nullptr);
    DATE today = 0;
    ASSERT_EQ(static_cast<DWORD>(loaded.filter->GetToday(&today)), 0x800A01ADu);
    const ThreadError error = takeThreadError();
    EXPECT_TRUE(error.isSet);
    EXPECT_EQ(error.source, u"ORVFilter.Filter");
    EXPECT_NE(error.description.find(u"ORVEBCGLView.GLData"), std::u16string::npos);
}

TEST(FilterVtable, TakesNullTextsForEmptyOnes) {
    const LoadedFilter loaded;
    ASSERT_EQ(loaded.filter->put_SetSelectPageList(nullptr), S_OK);
    UniqueBstr pages;
    ASSERT_EQ(loaded.filter->get_GetSelectPageList(pages.put()), S_OK);
    EXPECT_TRUE(pages.view().empty());
    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ(loaded.filter->Initialize(nullptr, &done), S_OK);
    UniqueBstr head, entry;
    EXPECT_EQ(loaded.filter->GetSortString(head.put(), entry.put(), &done), S_OK);
    EXPECT_EQ(done, VARIANT_TRUE);
}

TEST(FilterVtable, GivesNewOuterButSharedInnerKeyMaps) {
    const LoadedFilter loaded;
    ComPtr<IDispatch> first, second;
    ASSERT_EQ(loaded.filter->get_UseKey(first.put()), S_OK);
    ASSERT_EQ(loaded.filter->get_UseKey(second.put()), S_OK);
    EXPECT_NE(first, second);
    const auto inner = [](IDispatch& outer) {
        VARIANT key;
        const UniqueBstr name(u"ALL");
        V_VT(&key) = VT_BSTR;
        V_BSTR(&key) = name.get();
        DISPPARAMS parameters{&key, nullptr, 1, 0};
        UniqueVariant result;
        EXPECT_EQ(
            outer.Invoke(DISPID_VALUE, IID_NULL, 0, DISPATCH_PROPERTYGET, &parameters, result.put(), nullptr, nullptr),
            S_OK);
        return result;
    };
    const UniqueVariant a = inner(*first), b = inner(*second);
    EXPECT_EQ(V_DISPATCH(&a.get()), V_DISPATCH(&b.get()));
}

TEST(FilterVtable, ReleasesTheHostsObjects) {
    const auto settings = makeComObject<FakeDispatch>();
    auto loaded = std::make_unique<LoadedFilter>();
    ASSERT_EQ(loaded->filter->put_dctControl(settings.get()), S_OK);
    EXPECT_GT(settings->references(), 1u);
    ASSERT_EQ(loaded->filter->ClearMem(), S_OK);
    EXPECT_EQ(settings->references(), 1u);
    ASSERT_EQ(loaded->filter->put_dctControl(settings.get()), S_OK);
    loaded->filter = nullptr;
    EXPECT_EQ(settings->references(), 1u);
    EXPECT_TRUE(loaded->dll.canUnload());
}

TEST(FilterVtable, SurvivesItsReleaseDuringACall) {
    // The host lets go of the control while the control reads the host's data service.
    const Dll dll(u"ORVFilter.ocx");
    ComPtr<_Filter> filter = dll.create<_Filter>(__uuidof(::Filter));
    const auto service = fakeWith(u"SelectList", [&](const FakeCall&) -> HRESULT {
        filter = nullptr;
        return DISP_E_MEMBERNOTFOUND;
    });
    _Filter* const called = filter.get();
    EXPECT_EQ(static_cast<DWORD>(called->put_DataSrv(service.get())), 0x800A01B6u);
    EXPECT_EQ(filter.get(), nullptr);
    EXPECT_EQ(service->references(), 1u);
    EXPECT_TRUE(dll.canUnload());
}

TEST(FilterVtable, OffersItsControlsToTools) {
    LoadedFilter loaded;
    ComPtr<IFilterControls> controls;
    ASSERT_EQ(loaded.filter.as(controls), S_OK);
    ComPtr<IDispatch> tabs;
    ASSERT_EQ(controls->GetControl(UniqueBstr(u"TBFILTER").get(), tabs.put()), S_OK);
    ComPtr<IDispatch> none;
    EXPECT_EQ(static_cast<DWORD>(controls->GetControl(UniqueBstr(u"nothing").get(), none.put())), 0x800A0005u);

    // The control lives on for whoever holds one of its controls.
    controls = nullptr;
    loaded.filter = nullptr;
    wchar_t count[] = L"Count";
    wchar_t* name = count;
    DISPID id = DISPID_UNKNOWN;
    ASSERT_EQ(tabs->GetIDsOfNames(IID_NULL, &name, 1, 0, &id), S_OK);
    DISPPARAMS none1{};
    UniqueVariant result;
    ASSERT_EQ(tabs->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none1, result.put(), nullptr, nullptr), S_OK);
    EXPECT_EQ(V_I4(&result.get()), 3);
    tabs = nullptr;
    EXPECT_TRUE(loaded.dll.canUnload());
}

} // namespace

} // namespace orv::windows::test
