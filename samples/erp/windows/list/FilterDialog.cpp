#include "erp/windows/list/FilterDialog.h"

#include "erp/windows/list/Messages.h"
#include "erp/windows/ui/EmptyDialog.h"
#include "erp/windows/ui/WindowNames.h"

#include <algorithm>
#include <utility>

namespace orv::erp {

using ole::Object;

namespace {

constexpr const wchar_t* controlProgId = L"ORVFilter.Filter";

// Pixels at 96 dots an inch.
constexpr int usualWidth = 900;
constexpr int usualHeight = 580;
constexpr int leastWidth = 640;
constexpr int leastHeight = 400;

void addButton(HWND dialog, const std::wstring& text, DWORD style, int id, HFONT font) {
    const HWND button =
        CreateWindowExW(0, L"BUTTON", text.c_str(), WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 0, 0, dialog,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
    SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
}

} // namespace

FilterDialog::FilterDialog(HWND owner, const Metrics& metrics, const Texts& texts, Object host, std::wstring classTypes)
    : metrics_(metrics), texts_(texts), host_(std::move(host)), classTypes_(std::move(classTypes)) {
    const EmptyDialog form(window::filterClass);
    window_ = CreateDialogIndirectParamW(GetModuleHandleW(nullptr), form.get(), owner, procedure,
                                         reinterpret_cast<LPARAM>(this));
    if (!window_)
        throw ole::Failure(HRESULT_FROM_WIN32(GetLastError()), window::filterClass, {});
    try {
        SetWindowTextW(window_, texts_(L"过滤").c_str());
        place();
        frame_ = ole::makeCounted<ole::Frame>(window_);
        control_ = std::make_unique<ole::ControlWindow>(window_, window::control, Object::create(controlProgId),
                                                        *frame_.Get());
        addButton(window_, texts_(L"确定"), BS_DEFPUSHBUTTON, IDOK, metrics_.font());
        addButton(window_, texts_(L"取消"), BS_PUSHBUTTON, IDCANCEL, metrics_.font());
        modal_ = std::make_unique<ole::ModalDialog>(window_);
        layOut();
        filter().write(L"dctControl", Object(host_.call(L"Settings")));
        filter().write(L"ConditionExtHide", Object::create(L"QDX.Dictionary"));
        filter().write(L"ShowScheme", true);
    } catch (...) {
        control_ = nullptr;
        DestroyWindow(window_);
        throw;
    }
}

FilterDialog::~FilterDialog() {
    try {
        filter().call(L"ClearMem"); // the control lets go of the host's objects
    } catch (const ole::Failure& failure) {
        OutputDebugStringW(failure.description().c_str());
    }
    control_ = nullptr;
    frame_->detach();
    DestroyWindow(window_);
}

void FilterDialog::load(long classType) {
    const _variant_t served = filter().read(L"DataSrv");
    if (served.vt == VT_DISPATCH && served.pdispVal && Object(served).readNumber(L"ClassTypeID") == classType)
        return;
    filter().write(L"DataSrv", Object(host_.call(L"DataService", classType)));
    const _variant_t loaded = filter().call(L"Initialize", ole::toBstr(classTypes_));
    if (loaded.vt == VT_BOOL && !loaded.boolVal)
        throw ole::Failure(E_FAIL, controlProgId, texts_(L"无法载入单据类型 %1", {std::to_wstring(classType)}));
}

FilterResult FilterDialog::result() const {
    FilterResult result;
    _variant_t where(L""), headSort(L""), entrySort(L"");
    filter().call(L"GetFilterSql", ole::byReference(where), true);
    filter().call(L"GetSortString", ole::byReference(headSort), ole::byReference(entrySort));
    result.where = ole::textOf(where);
    result.headSort = ole::textOf(headSort);
    result.entrySort = ole::textOf(entrySort);
    result.header = Object(filter().read(L"m_Header"));
    const Object entry(filter().read(L"dctProFileEntry"));
    const _variant_t showsAll = entry.read(L"GetValue", _bstr_t(L"IsShowAllHead"), 0L);
    result.showsAllHeaders = ole::textOf(showsAll) != L"0";
    // The user may have chosen another class type in the control.
    result.classType = Object(filter().read(L"DataSrv")).readNumber(L"ClassTypeID");
    return result;
}

std::optional<FilterResult> FilterDialog::ask() {
    accepted_ = std::nullopt;
    if (modal_->run(*control_) != IDOK)
        return std::nullopt;
    return std::exchange(accepted_, std::nullopt);
}

void FilterDialog::accept() {
    try {
        accepted_ = result();
        filter().call(L"SaveLastUseScheme");
        modal_->end(IDOK);
    } catch (const ole::Failure& failure) {
        accepted_ = std::nullopt;
        showFailure(window_, texts_, failure);
        control_->activate(); // to what is to be mended
    }
}

INT_PTR CALLBACK FilterDialog::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_INITDIALOG)
        SetWindowLongPtrW(window, DWLP_USER, lParam);
    auto* self = reinterpret_cast<FilterDialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!self || !self->modal_)
        return FALSE; // still being made
    try {
        return self->onMessage(message, wParam, lParam);
    } catch (const std::exception& failure) {
        MessageBoxA(window, failure.what(), nullptr, MB_ICONERROR);
        return FALSE;
    }
}

INT_PTR FilterDialog::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        layOut();
        return TRUE;
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {metrics_.px(leastWidth), metrics_.px(leastHeight)};
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDOK)
            accept();
        else if (LOWORD(wParam) == IDCANCEL)
            modal_->end(IDCANCEL);
        return TRUE;
    default:
        return FALSE;
    }
}

/// Over the middle of the owner, within the work area.
void FilterDialog::place() const {
    RECT area{}, around{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    GetWindowRect(GetWindow(window_, GW_OWNER), &around);
    const LONG width = std::min<LONG>(metrics_.px(usualWidth), area.right - area.left);
    const LONG height = std::min<LONG>(metrics_.px(usualHeight), area.bottom - area.top);
    const LONG left = std::clamp((around.left + around.right - width) / 2, area.left, area.right - width);
    const LONG top = std::clamp((around.top + around.bottom - height) / 2, area.top, area.bottom - height);
    SetWindowPos(window_, nullptr, static_cast<int>(left), static_cast<int>(top), static_cast<int>(width),
                 static_cast<int>(height), SWP_NOZORDER | SWP_NOACTIVATE);
}

void FilterDialog::layOut() const {
    RECT client{};
    GetClientRect(window_, &client);
    const int margin = metrics_.margin();
    const int line = metrics_.control();
    const int bottom = client.bottom - margin - line;
    int left = client.right - margin;
    for (const auto& [id, text] : {std::pair{IDCANCEL, texts_(L"取消")}, std::pair{IDOK, texts_(L"确定")}}) {
        const int width = metrics_.buttonWidth(text.c_str());
        left -= width;
        MoveWindow(GetDlgItem(window_, id), left, bottom, width, line, TRUE);
        left -= metrics_.gap();
    }
    // The control has margins of its own.
    MoveWindow(control_->hwnd(), 0, 0, client.right, bottom - metrics_.gap(), TRUE);
}

} // namespace orv::erp
