#include "NoWindows.h"
#include "windows/Dll.h"

#include <gtest/gtest.h>

#include <iterator>

// Every method of the dual interface with null where it expects a place for an answer.
namespace orv::windows::test {

namespace {

/// Calls `method` with nothing but null pointers and zeros.
template <class... P>
HRESULT callWithNothing(_Filter& filter, HRESULT (STDMETHODCALLTYPE _Filter::*method)(P...)) {
    return (filter.*method)(P{}...);
}

TEST(NullPointers, AreRefusedByEveryMethodThatWritesThroughThem) {
    const NoWindows noWindows;
    const LoadedFilter loaded;
    _Filter& filter = *loaded.filter;
    const HRESULT results[] = {
        callWithNothing(filter, &_Filter::get_m_JCType),
        callWithNothing(filter, &_Filter::get_UseKey),
        callWithNothing(filter, &_Filter::get_dctProFile),
        callWithNothing(filter, &_Filter::put_ConditionExtHide),
        callWithNothing(filter, &_Filter::get_dctProFileEntry),
        callWithNothing(filter, &_Filter::get_m_Header),
        callWithNothing(filter, &_Filter::SetBackGroundColor),
        callWithNothing(filter, &_Filter::get_DataSrv),
        callWithNothing(filter, &_Filter::get_GetSelectPageList),
        callWithNothing(filter, &_Filter::Initialize),
        callWithNothing(filter, &_Filter::SaveLastUseScheme),
        callWithNothing(filter, &_Filter::RefreshProfile),
        callWithNothing(filter, &_Filter::GetTakeBaseDataSQL),
        callWithNothing(filter, &_Filter::GetFilterSql),
        callWithNothing(filter, &_Filter::GetSortString),
        callWithNothing(filter, &_Filter::InitHideColumns),
        callWithNothing(filter, &_Filter::SaveScheme),
        callWithNothing(filter, &_Filter::SetPagetoTop),
        callWithNothing(filter, &_Filter::GetFieldInfoByKey),
        callWithNothing(filter, &_Filter::get_dctControl),
        callWithNothing(filter, &_Filter::EnableMostPage),
        callWithNothing(filter, &_Filter::GetToday),
        callWithNothing(filter, &_Filter::GetCurPeriod),
    };
    for (std::size_t i = 0; i < std::size(results); ++i)
        EXPECT_EQ(results[i], E_POINTER) << "entry " << i;
}

TEST(NullPointers, MeanNothingWhereAValueIsTaken) {
    const NoWindows noWindows;
    const LoadedFilter loaded;
    _Filter& filter = *loaded.filter;
    EXPECT_EQ(filter.put_dctControl(nullptr), S_OK);
    EXPECT_EQ(filter.put_SetSelectPageList(nullptr), S_OK);
    EXPECT_EQ(filter.put_ShowFilterStyle(static_cast<Enu_ShowFilter_Style>(3)), S_OK);
    IDispatch* none = nullptr;
    EXPECT_EQ(filter.put_ConditionExtHide(&none), S_OK);
    EXPECT_EQ(filter.ClearMem(), S_OK);
    EXPECT_EQ(filter.ClearFace(), S_OK);
    UINT count = 0;
    EXPECT_EQ(filter.GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(filter.GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(filter.GetTypeInfo(0, 0, nullptr), E_POINTER);
    EXPECT_EQ(filter.GetIDsOfNames(IID_NULL, nullptr, 1, 0, nullptr), E_INVALIDARG);
    EXPECT_EQ(filter.Invoke(0x400300AF, IID_NULL, 0, DISPATCH_PROPERTYGET, nullptr, nullptr, nullptr, nullptr),
              E_INVALIDARG);
    EXPECT_EQ(filter.QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

} // namespace

} // namespace orv::windows::test
