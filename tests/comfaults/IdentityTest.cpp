#include "windows/Dll.h"
#include "windows/com/IFilterControls.h"

#include <gtest/gtest.h>

#include <ocidl.h>
#include <oleidl.h>

#include <iterator>

// The rules of QueryInterface over all that the control offers.
namespace orv::windows::test {

namespace {

const IID* const offered[] = {
    &IID_IUnknown,
    &IID_IDispatch,
    &__uuidof(_Filter),
    &__uuidof(IFilterControls),
    &IID_ISupportErrorInfo,
    &IID_IProvideClassInfo,
    &IID_IProvideClassInfo2,
    &IID_IOleObject,
    &IID_IOleInPlaceObject,
    &IID_IOleWindow,
    &IID_IOleInPlaceActiveObject,
    &IID_IOleControl,
    &IID_IViewObject,
    &IID_IViewObject2,
    &IID_IPersistStreamInit,
    &IID_IPersistPropertyBag,
    &IID_IConnectionPointContainer,
    &IID_IQuickActivate,
};

TEST(Identity, QueryInterfaceIsReflexiveSymmetricAndTransitive) {
    const LoadedFilter loaded;
    ComPtr<IUnknown> identity;
    ASSERT_EQ(loaded.filter.as(identity), S_OK);
    const auto references = [&] {
        identity->AddRef();
        return identity->Release();
    };
    const ULONG before = references();
    for (const IID* from : offered) {
        ComPtr<IUnknown> first;
        ASSERT_EQ(identity->QueryInterface(*from, first.putVoid()), S_OK);
        for (const IID* to : offered) {
            // From any to any other, back again, and from there to a third: all answer, all with one identity.
            ComPtr<IUnknown> second, back, own;
            ASSERT_EQ(first->QueryInterface(*to, second.putVoid()), S_OK);
            ASSERT_EQ(second->QueryInterface(*from, back.putVoid()), S_OK);
            EXPECT_EQ(back, first) << "the same interface has the same address each time";
            ASSERT_EQ(second->QueryInterface(IID_IUnknown, own.putVoid()), S_OK);
            EXPECT_EQ(own, identity);
            void* none = &none;
            EXPECT_EQ(second->QueryInterface(IID_IStream, &none), E_NOINTERFACE);
            EXPECT_EQ(none, nullptr);
        }
    }
    EXPECT_EQ(references(), before);
}

} // namespace

} // namespace orv::windows::test
