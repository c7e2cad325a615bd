#include "windows/views/Pictures.h"

#include "windows/views/Gdi.h"
#include "windows/views/SurfaceColor.h"

#include <commctrl.h>

#include <initializer_list>
#include <vector>

namespace orv::windows {

namespace {

/// The colours of the pictures: lighter on dark windows, and those of the system alone where the user asks for high
/// contrast.
struct Palette {
    COLORREF ink = RGB(64, 74, 92);
    COLORREF paper = RGB(255, 255, 255);
    COLORREF blue = RGB(46, 110, 190);
    COLORREF red = RGB(200, 56, 48);
    COLORREF sand = RGB(236, 190, 96);

    static Palette ofUser() noexcept {
        Palette colors;
        if (darkWindows()) {
            colors.ink = RGB(200, 208, 220);
            colors.blue = RGB(86, 150, 230);
            colors.red = RGB(236, 92, 84);
        }
        if (highContrast()) {
            colors.ink = colors.blue = colors.red = GetSysColor(COLOR_WINDOWTEXT);
            colors.paper = colors.sand = GetSysColor(COLOR_WINDOW);
        }
        return colors;
    }
};

/// Drawing on a grid of 16 x 16 units, whatever the size of the square.
class Sketch {
  public:
    Sketch(HDC dc, const RECT& square) : dc_(dc), square_(square) {}

    const Palette colors = Palette::ofUser();

    void box(int left, int top, int right, int bottom, COLORREF fill, COLORREF line) const {
        const UniqueBrush brush(CreateSolidBrush(fill));
        const UniquePen pen(CreatePen(PS_SOLID, thickness(1), line));
        const Selected selectedBrush(dc_, brush.get());
        const Selected selectedPen(dc_, pen.get());
        Rectangle(dc_, x(left), y(top), x(right), y(bottom));
    }
    void line(std::initializer_list<POINT> points, COLORREF color, int width) const {
        const UniquePen pen(CreatePen(PS_SOLID, thickness(width), color));
        const Selected selectedPen(dc_, pen.get());
        std::vector<POINT> scaled;
        for (const POINT& p : points)
            scaled.push_back({x(p.x), y(p.y)});
        Polyline(dc_, scaled.data(), static_cast<int>(scaled.size()));
    }

  private:
    int size() const { return static_cast<int>(square_.right - square_.left); }
    int x(LONG units) const { return static_cast<int>(square_.left) + MulDiv(static_cast<int>(units), size(), 16); }
    int y(LONG units) const { return static_cast<int>(square_.top) + MulDiv(static_cast<int>(units), size(), 16); }
    int thickness(int units) const { return size() * units / 16 > 1 ? size() * units / 16 : 1; }

    HDC dc_;
    RECT square_;
};

void drawDisk(const Sketch& sketch) {
    sketch.box(1, 1, 15, 15, sketch.colors.blue, sketch.colors.ink);
    sketch.box(4, 1, 12, 7, sketch.colors.paper, sketch.colors.ink);
    sketch.box(9, 2, 11, 6, sketch.colors.ink, sketch.colors.ink);
    sketch.box(3, 9, 13, 15, sketch.colors.paper, sketch.colors.ink);
}
void drawCross(const Sketch& sketch) {
    sketch.line({{3, 3}, {13, 13}}, sketch.colors.red, 2);
    sketch.line({{13, 3}, {3, 13}}, sketch.colors.red, 2);
}
void drawBroom(const Sketch& sketch) {
    sketch.line({{13, 1}, {8, 8}}, sketch.colors.ink, 2);
    sketch.box(3, 8, 12, 11, sketch.colors.sand, sketch.colors.ink);
    for (int i = 0; i < 4; ++i)
        sketch.line({{4 + 2 * i, 11}, {3 + 2 * i, 15}}, sketch.colors.ink, 1);
}
void drawTiles(const Sketch& sketch) {
    for (int i = 0; i < 4; ++i) {
        const int left = i % 2 * 7 + 1;
        const int top = i / 2 * 7 + 1;
        sketch.box(left, top, left + 6, top + 6, i % 2 == 0 ? sketch.colors.blue : sketch.colors.sand,
                   sketch.colors.ink);
    }
}
void drawSheet(const Sketch& sketch) {
    sketch.box(3, 1, 13, 15, sketch.colors.paper, sketch.colors.ink);
    for (int i = 0; i < 4; ++i)
        sketch.line({{5, 4 + 3 * i}, {11, 4 + 3 * i}}, sketch.colors.blue, 1);
}
void drawScheme(const Sketch& sketch) {
    drawSheet(sketch);
    sketch.line({{7, 9}, {15, 9}, {12, 12}, {12, 15}, {10, 14}, {10, 12}, {7, 9}}, sketch.colors.red, 1);
}

} // namespace

void drawPicture(HDC dc, const RECT& square, std::u16string_view key) {
    const Sketch sketch(dc, square);
    if (key == u"TLBSAVE")
        drawDisk(sketch);
    else if (key == u"TLBDEL")
        drawCross(sketch);
    else if (key == u"TLBCLEAR")
        drawBroom(sketch);
    else if (key == u"TLBVIEW")
        drawTiles(sketch);
    else if (key == u"SCHEME")
        drawScheme(sketch);
    else
        drawSheet(sketch);
}

HANDLE makeImageList(const PictureList& pictures, int sizePx) {
    const HIMAGELIST list = ImageList_Create(sizePx, sizePx, ILC_COLOR24 | ILC_MASK, pictures.count, 1);
    if (!list)
        return nullptr;
    const WindowDc screen(nullptr);
    const HDC dc = CreateCompatibleDC(screen.get());
    for (int i = 0; i < pictures.count; ++i) {
        const UniqueBitmap bitmap(CreateCompatibleBitmap(screen.get(), sizePx, sizePx));
        {
            const Selected selected(dc, bitmap.get());
            const RECT square{0, 0, sizePx, sizePx};
            fillRect(dc, square, pictureMask);
            drawPicture(dc, square, pictures.keys[i]);
        }
        ImageList_AddMasked(list, bitmap.get(), pictureMask);
    }
    DeleteDC(dc);
    return list;
}

} // namespace orv::windows
