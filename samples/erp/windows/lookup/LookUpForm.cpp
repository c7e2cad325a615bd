#include "erp/windows/lookup/LookUpForm.h"

#include "automation/Coercion.h"
#include "erp/host/TextTable.h"
#include "erp/windows/ui/EmptyDialog.h"
#include "erp/windows/ui/WindowNames.h"
#include "support/Letters.h"
#include "windows/com/Errors.h"
#include "windows/com/Handles.h"
#include "windows/com/Module.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

namespace orv::erp {

using windows::asUtf16;
using windows::asWide;

namespace {

// Pixels at 96 dots an inch.
constexpr int usualWidth = 560;
constexpr int usualHeight = 420;
constexpr int leastWidth = 380;
constexpr int leastHeight = 260;

std::u16string textOf(HWND window) {
    std::u16string text(static_cast<std::size_t>(GetWindowTextLengthW(window)), u'\0');
    const int length =
        GetWindowTextW(window, reinterpret_cast<wchar_t*>(text.data()), static_cast<int>(text.size() + 1));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

} // namespace

LookUpForm::LookUpForm(const LookUpOffer& offer) : offer_(offer), records_(offer, metrics_) {}

std::vector<std::size_t> LookUpForm::run(HWND owner) {
    const EmptyDialog form(window::lookUpClass);
    DialogBoxIndirectParamW(windows::module::instance(), form.get(), owner, procedure, reinterpret_cast<LPARAM>(this));
    return taken_;
}

INT_PTR CALLBACK LookUpForm::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(window, DWLP_USER, lParam);
        reinterpret_cast<LookUpForm*>(lParam)->window_ = window;
    }
    auto* self = reinterpret_cast<LookUpForm*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!self)
        return FALSE;
    INT_PTR handled = FALSE;
    if (FAILED(windows::guarded([&] { handled = self->onMessage(message, wParam, lParam); })))
        EndDialog(window, IDCANCEL);
    return handled;
}

INT_PTR LookUpForm::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_INITDIALOG:
        build();
        return FALSE; // the focus is set
    case WM_SIZE:
        layOut();
        return TRUE;
    case WM_GETMINMAXINFO: {
        auto& limits = *reinterpret_cast<MINMAXINFO*>(lParam);
        limits.ptMinTrackSize = {metrics_.px(leastWidth), metrics_.px(leastHeight)};
        return TRUE;
    }
    case WM_COMMAND:
        return onCommand(LOWORD(wParam), HIWORD(wParam));
    case WM_NOTIFY:
        return onNotify(*reinterpret_cast<NMHDR*>(lParam));
    default:
        return FALSE;
    }
}

INT_PTR LookUpForm::onCommand(int id, int code) {
    switch (id) {
    case IDOK:
        take();
        return TRUE;
    case IDCANCEL:
        EndDialog(window_, IDCANCEL);
        return TRUE;
    case window::search:
        if (code == EN_CHANGE)
            search();
        return TRUE;
    default:
        return FALSE;
    }
}

INT_PTR LookUpForm::onNotify(const NMHDR& header) {
    if (header.idFrom != static_cast<UINT_PTR>(window::records))
        return FALSE;
    switch (header.code) {
    case LVN_GETDISPINFOW:
        records_.fill(reinterpret_cast<NMLVDISPINFOW&>(const_cast<NMHDR&>(header)).item);
        return TRUE;
    case NM_CUSTOMDRAW:
        SetWindowLongPtrW(window_, DWLP_MSGRESULT,
                          records_.dress(reinterpret_cast<NMLVCUSTOMDRAW&>(const_cast<NMHDR&>(header))));
        return TRUE;
    case NM_DBLCLK:
        if (reinterpret_cast<const NMITEMACTIVATE&>(header).iItem >= 0)
            take();
        return TRUE;
    case NM_CLICK:
        if (records_.clickedBox(reinterpret_cast<const NMITEMACTIVATE&>(header).ptAction))
            showCount();
        return TRUE;
    case LVN_KEYDOWN:
        if (reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == VK_SPACE && records_.toggleFocused())
            showCount();
        return TRUE;
    default:
        return FALSE;
    }
}

std::u16string LookUpForm::translated(const char16_t* text) const {
    return TextTable::list().translate(text, offer_.language);
}

HWND LookUpForm::add(const wchar_t* windowClass, const std::u16string& text, DWORD style, DWORD exStyle, int id) {
    const HWND made =
        CreateWindowExW(exStyle, windowClass, asWide(text), WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), windows::module::instance(), nullptr);
    if (!made)
        throw std::bad_alloc();
    SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(metrics_.font()), FALSE);
    return made;
}

void LookUpForm::build() {
    SetWindowTextW(window_, asWide(offer_.title));
    add(L"STATIC", translated(u"查找(&S)："), SS_LEFT | SS_CENTERIMAGE, 0, window::searchLabel);
    const HWND edit = add(L"EDIT", u"", WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, window::search);
    records_.attach(add(WC_LISTVIEWW, u"",
                        WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER,
                        WS_EX_CLIENTEDGE, window::records));
    add(L"STATIC", u"", SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS, 0, window::found);
    add(L"BUTTON", translated(u"确定"), WS_TABSTOP | BS_DEFPUSHBUTTON, 0, IDOK);
    add(L"BUTTON", translated(u"取消"), WS_TABSTOP | BS_PUSHBUTTON, 0, IDCANCEL);
    SetWindowSubclass(edit, searchProcedure, 0, reinterpret_cast<DWORD_PTR>(this));
    place();
    search();
    SetFocus(edit);
}

/// Over the middle of the owner, within the work area.
void LookUpForm::place() {
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    RECT around = area;
    if (const HWND owner = GetWindow(window_, GW_OWNER))
        GetWindowRect(owner, &around);
    const LONG width = metrics_.px(usualWidth);
    const LONG height = metrics_.px(usualHeight);
    const LONG left = std::max(area.left, std::min((around.left + around.right - width) / 2, area.right - width));
    const LONG top = std::max(area.top, std::min((around.top + around.bottom - height) / 2, area.bottom - height));
    SetWindowPos(window_, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    layOut();
}

void LookUpForm::layOut() {
    RECT client{};
    GetClientRect(window_, &client);
    const int margin = metrics_.margin();
    const int line = metrics_.control();
    const int right = client.right - margin;
    const std::u16string caption = translated(u"查找(&S)：");
    const int label = metrics_.widthOf(asWide(caption), static_cast<int>(caption.size()));
    const auto move = [this](int id, int left, int top, int width, int height) {
        MoveWindow(GetDlgItem(window_, id), left, top, width, height, TRUE);
    };
    move(window::searchLabel, margin, margin, label, line);
    move(window::search, margin + label, margin, right - margin - label, line);
    const int bottom = client.bottom - margin - line;
    int left = right;
    for (const int id : {IDCANCEL, IDOK}) {
        const std::u16string text = textOf(GetDlgItem(window_, id));
        const int width = metrics_.buttonWidth(asWide(text));
        left -= width;
        move(id, left, bottom, width, line);
        left -= metrics_.gap();
    }
    move(window::found, margin, bottom, left - margin, line);
    const int top = margin + line + metrics_.gap();
    move(window::records, margin, top, right - margin, bottom - metrics_.gap() - top);
    records_.fitColumns();
}

void LookUpForm::search() {
    records_.show(matchingRows(offer_, textOf(GetDlgItem(window_, window::search))));
    showCount();
}

void LookUpForm::showCount() {
    std::u16string text = translated(u"没有找到匹配的记录。");
    if (const std::size_t count = records_.count(); count > 0)
        text = support::replaceAll(translated(u"共 %1 条记录"), u"%1",
                                   automation::numberToText(static_cast<double>(count)));
    if (const std::size_t checked = records_.checked().size(); checked > 0)
        text += u"  " + support::replaceAll(translated(u"已选 %1 条"), u"%1",
                                            automation::numberToText(static_cast<double>(checked)));
    SetDlgItemTextW(window_, window::found, asWide(text));
    EnableWindow(GetDlgItem(window_, IDOK), records_.count() > 0 || !records_.checked().empty());
}

void LookUpForm::take() {
    taken_ = records_.checked();
    if (const auto focused = records_.focused(); taken_.empty() && focused)
        taken_ = {*focused};
    if (!taken_.empty())
        EndDialog(window_, IDOK);
}

/// The search box hands the keys that move in a list to the list.
LRESULT CALLBACK LookUpForm::searchProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                             DWORD_PTR self) noexcept {
    const bool isMove = wParam == VK_UP || wParam == VK_DOWN || wParam == VK_PRIOR || wParam == VK_NEXT;
    if (message == WM_KEYDOWN && isMove)
        return SendMessageW(reinterpret_cast<LookUpForm*>(self)->records_.hwnd(), message, wParam, lParam);
    return DefSubclassProc(edit, message, wParam, lParam);
}

} // namespace orv::erp
