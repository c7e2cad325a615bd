#include "ole/Container.h"

#include <gtest/gtest.h>

#include <olectl.h>

namespace orv::windows::test {

namespace {

class Connections : public testing::Test {
  protected:
    ComPtr<IConnectionPoint> events() const {
        ComPtr<IConnectionPoint> point;
        control.as<IConnectionPointContainer>()->FindConnectionPoint(__uuidof(__Filter), point.put());
        return point;
    }
    Embedded control{nullptr};
};

TEST_F(Connections, TheEventInterfaceIsTheOnlyOneThatIsOffered) {
    const auto points = control.as<IConnectionPointContainer>();
    ComPtr<IConnectionPoint> other;
    EXPECT_EQ(points->FindConnectionPoint(IID_IPropertyNotifySink, other.put()), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(other.get(), nullptr);

    ComPtr<IEnumConnectionPoints> all;
    ASSERT_EQ(points->EnumConnectionPoints(all.put()), S_OK);
    ComPtr<IConnectionPoint> first;
    ULONG fetched = 9;
    ASSERT_EQ(all->Next(1, first.put(), &fetched), S_OK);
    EXPECT_EQ(fetched, 1u);
    EXPECT_EQ(first.get(), events().get());
    IID id{};
    EXPECT_EQ(first->GetConnectionInterface(&id), S_OK);
    EXPECT_EQ(id, __uuidof(__Filter));
    ComPtr<IConnectionPoint> second;
    EXPECT_EQ(all->Next(1, second.put(), nullptr), S_FALSE);
    EXPECT_EQ(all->Reset(), S_OK);
    EXPECT_EQ(all->Skip(1), S_OK);
    EXPECT_EQ(all->Skip(1), S_FALSE);
}

TEST_F(Connections, ListenersAreHeldUntilTheyLeave) {
    const auto listener = makeComObject<Container>(nullptr);
    DWORD first = 0, second = 0;
    ASSERT_EQ(events()->Advise(static_cast<IOleClientSite*>(listener.get()), &first), S_OK);
    ASSERT_EQ(events()->Advise(static_cast<IOleClientSite*>(listener.get()), &second), S_OK);
    EXPECT_NE(first, second);
    EXPECT_EQ(listener->heldByOthers(), 2u);

    ComPtr<IEnumConnections> connected;
    ASSERT_EQ(events()->EnumConnections(connected.put()), S_OK);
    CONNECTDATA data[3]{};
    ULONG fetched = 0;
    EXPECT_EQ(connected->Next(3, data, &fetched), S_FALSE);
    ASSERT_EQ(fetched, 2u);
    EXPECT_EQ(data[0].dwCookie, first);
    for (ULONG i = 0; i < fetched; ++i)
        data[i].pUnk->Release();
    connected = nullptr;

    EXPECT_EQ(events()->Unadvise(first), S_OK);
    EXPECT_EQ(events()->Unadvise(first), CONNECT_E_NOCONNECTION);
    EXPECT_EQ(listener->heldByOthers(), 1u);
    EXPECT_EQ(control.finish(), 0u);
    EXPECT_EQ(listener->heldByOthers(), 0u) << "the control lets go of who has not left";
}

TEST_F(Connections, WhoCannotListenIsRefused) {
    ComPtr<IStream> noListener;
    CreateStreamOnHGlobal(nullptr, TRUE, noListener.put());
    DWORD cookie = 5;
    EXPECT_EQ(events()->Advise(noListener.get(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(cookie, 0u);
}

TEST_F(Connections, EveryInterfaceLeadsBackToTheOneControl) {
    const auto identity = control.as<IUnknown>();
    for (const IID& id :
         {IID_IOleObject, IID_IOleWindow, IID_IOleInPlaceObject, IID_IOleInPlaceActiveObject, IID_IOleControl,
          IID_IViewObject, IID_IViewObject2, IID_IPersist, IID_IPersistStreamInit, IID_IPersistPropertyBag,
          IID_IQuickActivate, IID_IConnectionPointContainer, IID_IProvideClassInfo2, IID_IDispatch}) {
        wchar_t name[39];
        StringFromGUID2(id, name, 39);
        SCOPED_TRACE(testing::PrintToString(std::wstring(name)));
        ComPtr<IUnknown> asked, back;
        ASSERT_EQ(identity->QueryInterface(id, asked.putVoid()), S_OK);
        ASSERT_EQ(asked->QueryInterface(IID_IUnknown, back.putVoid()), S_OK);
        EXPECT_EQ(back.get(), identity.get());
        ComPtr<_Filter> filter;
        EXPECT_EQ(asked.as(filter), S_OK);
    }
    ComPtr<IUnknown> none;
    EXPECT_EQ(identity->QueryInterface(IID_IDropTarget, none.putVoid()), E_NOINTERFACE);
}

TEST_F(Connections, QuickActivationSetsAllAtOnce) {
    const auto quick = control.as<IQuickActivate>();
    QACONTAINER given{};
    given.cbSize = sizeof given;
    given.pClientSite = control.client();
    given.pUnkEventSink = control.client();
    QACONTROL told{};
    told.cbSize = sizeof told;
    ASSERT_EQ(quick->QuickActivate(&given, &told), S_OK);
    EXPECT_EQ(told.dwMiscStatus, 131473u);
    EXPECT_NE(told.dwEventCookie, 0u);
    EXPECT_EQ(events()->Unadvise(told.dwEventCookie), S_OK);
    ComPtr<IOleClientSite> site;
    control.as<IOleObject>()->GetClientSite(site.put());
    EXPECT_EQ(site.get(), control.client());
    SIZEL extent{3000, 2000}, read{};
    EXPECT_EQ(quick->SetContentExtent(&extent), S_OK);
    EXPECT_EQ(quick->GetContentExtent(&read), S_OK);
    EXPECT_EQ(read.cx, 3000);
    told.cbSize = 4;
    EXPECT_EQ(quick->QuickActivate(&given, &told), E_INVALIDARG);
}

} // namespace

} // namespace orv::windows::test
