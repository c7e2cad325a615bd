#include "ui/ListView.h"
#include "windows/views/Pictures.h"
#include "windows/views/StandardViews.h"

#include <commctrl.h>

#include <algorithm>

namespace orv::windows {

namespace {

constexpr const char16_t* schemePicture[] = {u"SCHEME"};

class ListViewView final : public NativeView<ui::ListView> {
  public:
    using NativeView::NativeView;
    ~ListViewView() override {
        destroy();
        dropImages();
    }
    void redress() override {
        if (handle() && modelLives()) {
            const HANDLE large = makeImageList({schemePicture, 1}, dressing().px(32));
            const HANDLE small = makeImageList({schemePicture, 1}, dressing().px(16));
            SendMessageW(hwnd(), LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(large));
            SendMessageW(hwnd(), LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(small));
            // Room for names of seven Chinese characters.
            SendMessageW(hwnd(), LVM_SETICONSPACING, 0, MAKELPARAM(dressing().px(88), dressing().px(76)));
            dropImages();
            images_[0] = large;
            images_[1] = small;
        }
        ControlView::redress();
    }

  protected:
    void open(HWND parent) override {
        createControl(parent, WC_LISTVIEWW,
                      LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS | LVS_AUTOARRANGE | WS_TABSTOP,
                      WS_EX_CLIENTEDGE);
        SendMessageW(hwnd(), LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_DOUBLEBUFFER | LVS_EX_FULLROWSELECT);
    }
    void showContent() override {
        showMode();
        showColumns();
        if (!sameItems())
            fill();
        showSelection();
    }
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (!ready())
            return pass(message, wParam, lParam);
        if (message == WM_LBUTTONDOWN)
            reported_ = 0;
        if (message == reflected + WM_NOTIFY &&
            reinterpret_cast<const NMHDR*>(lParam)->code == static_cast<UINT>(NM_CUSTOMDRAW))
            return onDraw(*reinterpret_cast<NMLVCUSTOMDRAW*>(lParam));
        // The scheme that is selected already is loaded again, as by a click.
        if (message == WM_KEYDOWN && wParam == VK_SPACE) {
            const int before = typed().selected();
            const LRESULT result = pass(message, wParam, lParam);
            if (ready() && before > 0 && typed().selected() == before)
                report(before);
            return result;
        }
        if (message == reflected + WM_NOTIFY && !refreshing())
            return onNotice(*reinterpret_cast<const NMHDR*>(lParam), lParam);
        return pass(message, wParam, lParam);
    }

  private:
    /// The scheme in use is to be seen, too, while the focus is elsewhere: the system's own colour for that is hardly
    /// another one than the list's.
    LRESULT onDraw(NMLVCUSTOMDRAW& item) const {
        if (item.nmcd.dwDrawStage == CDDS_PREPAINT)
            return CDRF_NOTIFYITEMDRAW;
        const bool selected = SendMessageW(hwnd(), LVM_GETITEMSTATE, item.nmcd.dwItemSpec, LVIS_SELECTED) != 0;
        if (item.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && selected && GetFocus() != hwnd()) {
            const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
            item.clrTextBk =
                highContrast() ? highlight : between(GetSysColor(COLOR_WINDOW), highlight, darkWindows() ? 5 : 3);
            item.clrText = highContrast() ? GetSysColor(COLOR_HIGHLIGHTTEXT) : readableOn(item.clrTextBk);
            item.nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED); // or the system's colours are taken
        }
        return CDRF_DODEFAULT;
    }
    LRESULT onNotice(const NMHDR& notice, LPARAM lParam) {
        if (notice.code == LVN_ITEMCHANGED) {
            const auto& change = *reinterpret_cast<const NMLISTVIEW*>(lParam);
            const bool selected = (change.uNewState & ~change.uOldState & LVIS_SELECTED) != 0;
            if (selected && change.iItem + 1 != typed().selected())
                report(change.iItem + 1);
        } else if (notice.code == static_cast<UINT>(NM_CLICK)) {
            // A click on the item that was selected before says so, too; one beside all items changes nothing.
            const int item = reinterpret_cast<const NMITEMACTIVATE*>(lParam)->iItem + 1;
            if (item >= 1 && item != reported_)
                report(item);
            else if (item < 1)
                refresh();
        }
        return 0;
    }
    void report(int position) {
        reported_ = position;
        if (position <= typed().count())
            typed().userSelect(position);
        refresh();
    }
    void showMode() {
        constexpr DWORD styles[] = {LVS_ICON, LVS_SMALLICON, LVS_LIST, LVS_REPORT};
        const DWORD wanted = styles[std::clamp(static_cast<int>(typed().view()), 0, 3)];
        const auto style = static_cast<DWORD>(GetWindowLongW(hwnd(), GWL_STYLE));
        if ((style & LVS_TYPEMASK) != wanted) {
            SetWindowLongW(hwnd(), GWL_STYLE, static_cast<LONG>((style & ~static_cast<DWORD>(LVS_TYPEMASK)) | wanted));
            SendMessageW(hwnd(), LVM_ARRANGE, LVA_DEFAULT, 0);
        }
    }
    void showColumns() {
        std::vector<std::u16string> headers = typed().columnHeaders();
        const bool untitled = headers.empty();
        if (untitled)
            headers.emplace_back();
        const auto style = static_cast<DWORD>(GetWindowLongW(hwnd(), GWL_STYLE));
        const DWORD wanted = untitled ? style | LVS_NOCOLUMNHEADER : style & ~static_cast<DWORD>(LVS_NOCOLUMNHEADER);
        if (wanted != style)
            SetWindowLongW(hwnd(), GWL_STYLE, static_cast<LONG>(wanted));
        RECT client;
        GetClientRect(hwnd(), &client);
        const int width = static_cast<int>(client.right) / static_cast<int>(headers.size());
        if (headers != headers_) {
            while (SendMessageW(hwnd(), LVM_DELETECOLUMN, 0, 0))
                continue;
            for (std::size_t i = 0; i < headers.size(); ++i) {
                LVCOLUMNW column{};
                column.mask = LVCF_TEXT | LVCF_WIDTH;
                column.cx = width;
                column.pszText = reinterpret_cast<wchar_t*>(headers[i].data());
                SendMessageW(hwnd(), LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
            }
            headers_ = std::move(headers);
        }
        for (std::size_t i = 0; i < headers_.size(); ++i)
            SendMessageW(hwnd(), LVM_SETCOLUMNWIDTH, i, MAKELPARAM(width, 0));
    }
    bool sameItems() const {
        return std::ranges::equal(items_, typed().items(), [](const auto& a, const auto& b) {
            return a.text == b.text && a.subItems == b.subItems;
        });
    }
    void fill() {
        items_ = typed().items();
        SendMessageW(hwnd(), LVM_DELETEALLITEMS, 0, 0);
        for (std::size_t i = 0; i < items_.size(); ++i) {
            LVITEMW item{};
            item.mask = LVIF_TEXT | LVIF_IMAGE;
            item.iItem = static_cast<int>(i);
            item.pszText = reinterpret_cast<wchar_t*>(items_[i].text.data());
            SendMessageW(hwnd(), LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
            for (std::size_t sub = 0; sub < items_[i].subItems.size(); ++sub) {
                LVITEMW part{};
                part.iSubItem = static_cast<int>(sub) + 1;
                part.pszText = reinterpret_cast<wchar_t*>(items_[i].subItems[sub].data());
                SendMessageW(hwnd(), LVM_SETITEMTEXTW, i, reinterpret_cast<LPARAM>(&part));
            }
        }
    }
    void showSelection() {
        LVITEMW state{};
        state.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
        const int current = static_cast<int>(
            SendMessageW(hwnd(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), MAKELPARAM(LVNI_SELECTED, 0)));
        if (current + 1 == typed().selected())
            return;
        SendMessageW(hwnd(), LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&state));
        if (typed().selected() > 0) {
            state.state = LVIS_SELECTED | LVIS_FOCUSED;
            const auto position = static_cast<WPARAM>(typed().selected() - 1);
            SendMessageW(hwnd(), LVM_SETITEMSTATE, position, reinterpret_cast<LPARAM>(&state));
            SendMessageW(hwnd(), LVM_ENSUREVISIBLE, position, FALSE);
        }
    }
    void dropImages() {
        for (HANDLE& list : images_) {
            if (list)
                ImageList_Destroy(static_cast<HIMAGELIST>(list));
            list = nullptr;
        }
    }

    std::vector<ui::ListView::Item> items_;
    std::vector<std::u16string> headers_;
    HANDLE images_[2] = {};
    int reported_ = 0;
};

} // namespace

std::shared_ptr<ControlView> makeListViewView(ui::Control& model, const std::shared_ptr<Dressing>& dressing) {
    auto* list = dynamic_cast<ui::ListView*>(&model);
    return list ? std::make_shared<ListViewView>(*list, dressing) : nullptr;
}

} // namespace orv::windows
