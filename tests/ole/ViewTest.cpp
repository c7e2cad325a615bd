#include "ole/Container.h"

#include <gtest/gtest.h>

#include <set>

namespace orv::windows::test {

namespace {

/// A bitmap of 32-bit pixels, white at first.
class Canvas {
  public:
    Canvas(int width, int height) : width_(width), height_(height), dc_(CreateCompatibleDC(nullptr)) {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* bits = nullptr;
        bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        pixels_ = static_cast<const DWORD*>(bits);
        before_ = SelectObject(dc_, bitmap_);
        PatBlt(dc_, 0, 0, width, height, WHITENESS);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;
    ~Canvas() {
        SelectObject(dc_, before_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    HDC dc() const noexcept { return dc_; }
    DWORD at(int x, int y) const {
        GdiFlush();
        return pixels_[y * width_ + x] & 0xFFFFFF;
    }
    /// How many colours are seen within a rectangle.
    std::size_t colours(const RECT& where) const {
        std::set<DWORD> seen;
        for (LONG y = where.top; y < where.bottom; ++y) {
            for (LONG x = where.left; x < where.right; ++x)
                seen.insert(at(static_cast<int>(x), static_cast<int>(y)));
        }
        return seen.size();
    }
    RECT all() const noexcept { return {0, 0, width_, height_}; }

  private:
    int width_;
    int height_;
    HDC dc_;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
    const DWORD* pixels_ = nullptr;
};

constexpr DWORD white = 0xFFFFFF;

HRESULT draw(const Embedded& control, HDC dc, const RECTL& bounds) {
    return control.as<IViewObject2>()->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, dc, &bounds, nullptr,
                                            nullptr, 0);
}

class View : public testing::Test {
  protected:
    Embedded control{sharedForm().hwnd()};
};

TEST_F(View, DrawsIntoItsRectangleOfABitmapAndNowhereElse) {
    const Canvas canvas(400, 300);
    ASSERT_EQ(draw(control, canvas.dc(), {20, 30, 380, 280}), S_OK);
    EXPECT_GT(canvas.colours({20, 30, 380, 280}), 3u) << "a picture with frames and texts";
    for (const RECT& margin :
         {RECT{0, 0, 400, 30}, RECT{0, 280, 400, 300}, RECT{0, 0, 20, 300}, RECT{380, 0, 400, 300}})
        EXPECT_EQ(canvas.colours(margin), 1u) << "untouched around the picture";
    EXPECT_EQ(canvas.at(0, 0), white);
}

TEST_F(View, FollowsTheMappingOfTheDeviceContext) {
    const Canvas canvas(400, 300);
    // Two units a pixel, origin at (50, 40).
    SetMapMode(canvas.dc(), MM_ANISOTROPIC);
    SetWindowExtEx(canvas.dc(), 2, 2, nullptr);
    SetViewportExtEx(canvas.dc(), 1, 1, nullptr);
    SetViewportOrgEx(canvas.dc(), 50, 40, nullptr);
    ASSERT_EQ(draw(control, canvas.dc(), {0, 0, 600, 400}), S_OK);
    EXPECT_EQ(canvas.colours({0, 0, 400, 40}), 1u);
    EXPECT_EQ(canvas.colours({350, 0, 400, 300}), 1u);
    EXPECT_GT(canvas.colours({50, 40, 350, 240}), 3u);
    EXPECT_EQ(GetMapMode(canvas.dc()), MM_ANISOTROPIC) << "the context is as it was";
}

TEST_F(View, TheContainersBackgroundColourIsSeen) {
    control.site->backColour = RGB(1, 2, 3);
    control.as<IOleObject>()->SetClientSite(control.client());
    const Canvas canvas(640, 400);
    ASSERT_EQ(draw(control, canvas.dc(), {0, 0, 640, 400}), S_OK);
    EXPECT_EQ(canvas.at(1, 398), 0x010203u);
    control.site->backColour = RGB(4, 5, 6);
    control.as<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN);
    ASSERT_EQ(draw(control, canvas.dc(), {0, 0, 640, 400}), S_OK);
    EXPECT_EQ(canvas.at(1, 398), 0x040506u);
}

TEST_F(View, ARecordedMetafilePlaysThePicture) {
    for (const bool enhanced : {false, true}) {
        SCOPED_TRACE(enhanced ? "enhanced metafile" : "Windows metafile");
        const Canvas canvas(400, 300);
        if (enhanced) {
            const HDC recorder = CreateEnhMetaFileW(nullptr, nullptr, nullptr, nullptr);
            ASSERT_EQ(draw(control, recorder, {0, 0, 400, 300}), S_OK);
            const HENHMETAFILE file = CloseEnhMetaFile(recorder);
            const RECT all = canvas.all();
            EXPECT_TRUE(PlayEnhMetaFile(canvas.dc(), file, &all));
            DeleteEnhMetaFile(file);
        } else {
            const HDC recorder = CreateMetaFileW(nullptr);
            ASSERT_EQ(draw(control, recorder, {0, 0, 400, 300}), S_OK);
            const HMETAFILE file = CloseMetaFile(recorder);
            EXPECT_TRUE(PlayMetaFile(canvas.dc(), file));
            DeleteMetaFile(file);
        }
        EXPECT_GT(canvas.colours(canvas.all()), 3u);
    }
}

TEST_F(View, DrawingWhileActiveLeavesTheWindowAsItWas) {
    control.start();
    const auto childPlaces = [&] {
        std::vector<LONG> places;
        for (HWND child = GetWindow(control.window(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            RECT place{};
            GetWindowRect(child, &place);
            places.insert(places.end(), {place.left, place.top, place.right, place.bottom});
        }
        return places;
    };
    pumpMessages();
    const auto before = childPlaces();
    ASSERT_FALSE(before.empty());
    const Canvas canvas(400, 300);
    ASSERT_EQ(draw(control, canvas.dc(), {0, 0, 400, 300}), S_OK);
    pumpMessages();
    EXPECT_EQ(childPlaces(), before);
}

TEST_F(View, OtherAspectsAndMissingArgumentsAreRefused) {
    const Canvas canvas(10, 10);
    const auto view = control.as<IViewObject2>();
    const RECTL bounds{0, 0, 10, 10};
    SIZEL extent{};
    EXPECT_EQ(view->Draw(DVASPECT_ICON, -1, nullptr, nullptr, nullptr, canvas.dc(), &bounds, nullptr, nullptr, 0),
              DV_E_DVASPECT);
    EXPECT_EQ(view->Draw(DVASPECT_CONTENT, -1, nullptr, nullptr, nullptr, nullptr, &bounds, nullptr, nullptr, 0),
              E_INVALIDARG);
    EXPECT_EQ(view->GetExtent(DVASPECT_ICON, -1, nullptr, &extent), DV_E_DVASPECT);
    SIZEL negative{-1, 10};
    EXPECT_EQ(control.as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &negative), E_INVALIDARG);
    EXPECT_EQ(control.as<IOleObject>()->SetExtent(DVASPECT_ICON, &extent), DV_E_DVASPECT);
}

/// Counts the changes of the picture.
class Sink final : public ComObject<IAdviseSink> {
  public:
    int changes = 0;
    int closed = 0;
    void STDMETHODCALLTYPE OnDataChange(FORMATETC*, STGMEDIUM*) noexcept override {}
    void STDMETHODCALLTYPE OnViewChange(DWORD, LONG) noexcept override { ++changes; }
    void STDMETHODCALLTYPE OnRename(IMoniker*) noexcept override {}
    void STDMETHODCALLTYPE OnSave() noexcept override {}
    void STDMETHODCALLTYPE OnClose() noexcept override { ++closed; }
};

TEST_F(View, TheViewSinkHearsOfANewPicture) {
    const auto sink = makeComObject<Sink>();
    const auto view = control.as<IViewObject2>();
    EXPECT_EQ(view->SetAdvise(DVASPECT_CONTENT, ADVF_PRIMEFIRST, sink.get()), S_OK);
    EXPECT_EQ(sink->changes, 1) << "at once, when asked for";
    SIZEL extent{5000, 4000};
    control.as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent);
    EXPECT_EQ(sink->changes, 2);
    control.as<IOleObject>()->SetExtent(DVASPECT_CONTENT, &extent);
    EXPECT_EQ(sink->changes, 2) << "the same extent again";
    control.as<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN);
    EXPECT_EQ(sink->changes, 3);

    ComPtr<IAdviseSink> asked;
    DWORD aspects = 0;
    view->GetAdvise(&aspects, nullptr, asked.put());
    EXPECT_EQ(asked.get(), sink.get());
    EXPECT_EQ(aspects, static_cast<DWORD>(DVASPECT_CONTENT));

    view->SetAdvise(DVASPECT_CONTENT, ADVF_ONLYONCE, sink.get());
    control.as<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN);
    control.as<IOleControl>()->OnAmbientPropertyChange(DISPID_UNKNOWN);
    EXPECT_EQ(sink->changes, 4) << "once only";
}

TEST_F(View, AConnectionHearsOfTheEnd) {
    const auto sink = makeComObject<Sink>();
    const auto object = control.as<IOleObject>();
    DWORD connection = 0;
    EXPECT_EQ(object->Unadvise(1), OLE_E_NOCONNECTION);
    ASSERT_EQ(object->Advise(sink.get(), &connection), S_OK);
    object->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ(sink->closed, 1);
    EXPECT_EQ(object->Unadvise(connection), S_OK);
    object->Close(OLECLOSE_NOSAVE);
    EXPECT_EQ(sink->closed, 1);
}

TEST_F(View, ContainersLearnHowToTreatTheControl) {
    DWORD status = 0;
    EXPECT_EQ(control.as<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &status), S_OK);
    EXPECT_EQ(status, 131473u);
    CONTROLINFO keys{};
    keys.cb = sizeof keys;
    EXPECT_EQ(control.as<IOleControl>()->GetControlInfo(&keys), S_OK);
    EXPECT_EQ(keys.dwFlags, 0u) << "Enter and Esc are the dialog's";
}

} // namespace

} // namespace orv::windows::test
