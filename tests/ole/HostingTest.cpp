#include "ole/Container.h"
#include "ole/GuiObjects.h"

#include <gtest/gtest.h>

#include <array>

namespace orv::windows::test {

namespace {

/// The platform's stock container: a window class that hosts one control.
class StockContainer {
  public:
    StockContainer() : library_(LoadLibraryW(L"atl.dll")) {
        if (!library_)
            throw std::runtime_error("the stock container is missing");
        reinterpret_cast<BOOL(WINAPI*)()>(GetProcAddress(library_, "AtlAxWinInit"))();
        attach_ = reinterpret_cast<Attach>(GetProcAddress(library_, "AtlAxAttachControl"));
    }
    StockContainer(const StockContainer&) = delete;
    StockContainer& operator=(const StockContainer&) = delete;
    ~StockContainer() { FreeLibrary(library_); }

    HWND host(HWND form, IUnknown* control) const {
        const HWND host = CreateWindowExW(0, L"AtlAxWin", L"", WS_CHILD | WS_VISIBLE, 5, 6, 500, 350, form, nullptr,
                                          nullptr, nullptr);
        ComPtr<IUnknown> container;
        EXPECT_EQ(attach_(control, host, container.put()), S_OK);
        return host;
    }

  private:
    using Attach = HRESULT(WINAPI*)(IUnknown*, HWND, IUnknown**);
    HMODULE library_;
    Attach attach_ = nullptr;
};

SIZE sizeOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return {place.right - place.left, place.bottom - place.top};
}

ULONG references(_Filter& filter) {
    filter.AddRef();
    return filter.Release();
}

TEST(Hosting, TheStockContainerShowsResizesAndLetsGo) {
    const StockContainer stock;
    const LoadedFilter loaded;
    const HWND host = stock.host(sharedForm().hwnd(), loaded.filter.get());
    const HWND window = GetWindow(host, GW_CHILD);
    ASSERT_NE(window, nullptr);
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(sizeOf(window).cx, 500);
    EXPECT_EQ(sizeOf(window).cy, 350);

    SetWindowPos(host, nullptr, 0, 0, 700, 420, SWP_NOZORDER | SWP_NOMOVE);
    pumpMessages();
    EXPECT_EQ(sizeOf(window).cx, 700);
    EXPECT_EQ(sizeOf(window).cy, 420);

    VARIANT_BOOL done = VARIANT_FALSE;
    EXPECT_EQ(loaded.filter->InitHideColumns(&done), S_OK) << "members work while hosted";
    DestroyWindow(host);
    pumpMessages();
    EXPECT_EQ(references(*loaded.filter), 1u);
    EXPECT_FALSE(IsWindow(window));
}

TEST(Hosting, TheStockContainerKnowsWhoHasTheFocus) {
    const StockContainer stock;
    const LoadedFilter loaded;
    const HWND form = sharedForm().hwnd();
    const HWND host = stock.host(form, loaded.filter.get());
    const HWND window = GetWindow(host, GW_CHILD);
    ComPtr<IOleObject> object;
    loaded.filter.as(object);
    ComPtr<IOleClientSite> site;
    object->GetClientSite(site.put());
    for (int turn = 0; turn < 2; ++turn) {
        ASSERT_EQ(object->DoVerb(OLEIVERB_UIACTIVATE, nullptr, site.get(), 0, nullptr, nullptr), S_OK);
        EXPECT_TRUE(IsChild(window, GetFocus()));
        SetFocus(form);
        pumpMessages();
        EXPECT_EQ(GetFocus(), form) << "the focus does not come back by itself";
        ComPtr<IOleInPlaceObject> inPlace;
        object.as(inPlace);
        EXPECT_EQ(inPlace->UIDeactivate(), S_OK);
    }
    site = nullptr;
    DestroyWindow(host);
    pumpMessages();
    EXPECT_EQ(references(*loaded.filter), 2u) << "the test's own two";
}

TEST(Hosting, TheToolboxFindsThePicture) {
    const LoadedFilter loaded;
    const HANDLE picture = LoadImageW(loaded.dll.handle(), MAKEINTRESOURCEW(101), IMAGE_BITMAP, 0, 0, 0);
    BITMAP shape{};
    ASSERT_NE(GetObjectW(picture, sizeof shape, &shape), 0);
    EXPECT_EQ(shape.bmWidth, 16);
    EXPECT_EQ(shape.bmHeight, 16);
    DeleteObject(picture);
}

TEST(Hosting, TheGdiCounterCounts) {
    const std::size_t before = gdiCount();
    ASSERT_GT(before, 0u);
    std::array<HBRUSH, 10> brushes{};
    for (HBRUSH& brush : brushes)
        brush = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_EQ(gdiCount(), before + brushes.size());
    for (const HBRUSH brush : brushes)
        DeleteObject(brush);
    EXPECT_EQ(gdiCount(), before);
}

void liveOnce(HWND form, int page) {
    Embedded control(form);
    control.start();
    control.verb(OLEIVERB_UIACTIVATE);
    pumpMessages();
    const RECT place{0, 0, 500, 300};
    control.as<IOleInPlaceObject>()->SetObjectRects(&place, &place);
    UniqueVariant none;
    control.loaded.filter->SetPagetoTop(page, none.put());
    pumpMessages();
    const HDC dc = CreateCompatibleDC(nullptr);
    const RECTL bounds{0, 0, 100, 100};
    control.as<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr, nullptr, 0);
    DeleteDC(dc);
    SetFocus(form);
    ASSERT_EQ(control.finish(), 0u);
    pumpMessages();
}

TEST(Hosting, TwoHundredLivesLeaveNoWindowAndNoGdiObjectBehind) {
    const HWND form = sharedForm().hwnd();
    const Dll kept(u"ORVFilter.ocx"); // what the module makes once is not made again
    for (int page = 1; page <= 3; ++page)
        liveOnce(form, page);
    const std::size_t windows = windowCount();
    const std::size_t objects = gdiCount();
    for (int cycle = 0; cycle < 200; ++cycle)
        liveOnce(form, cycle % 3 + 1);
    EXPECT_EQ(windowCount(), windows);
    EXPECT_EQ(gdiCount(), objects);
    EXPECT_TRUE(kept.canUnload());
}

} // namespace

} // namespace orv::windows::test
