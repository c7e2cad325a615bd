#include "erp/windows/list/MainWindow.h"

#include "erp/windows/list/CellText.h"
#include "erp/windows/list/Clipboard.h"
#include "erp/windows/list/Messages.h"
#include "erp/windows/list/Placement.h"
#include "erp/windows/list/SqlText.h"
#include "erp/windows/ui/WindowNames.h"

#include <algorithm>

namespace orv::erp {

using ole::Object;

namespace {

// Pixels at 96 dots an inch.
constexpr int usualWidth = 1100;
constexpr int usualHeight = 700;

/// The host with the database, clock and user that the options name.
Object openHost(const ListOptions& options) {
    const Object host = Object::create(L"OrvSample.Host");
    if (!options.database.empty())
        host.call(L"Open", ole::toBstr(options.database));
    if (!options.now.empty()) {
        try {
            host.write(L"Now", ole::toBstr(options.now));
        } catch (const ole::Failure& failure) {
            throw ole::Failure(failure.code(), L"--now", L"--now \"" + options.now + L"\": " + failure.description());
        }
    }
    return host;
}

std::vector<std::pair<long, std::wstring>> readClassTypes(const Object& host) {
    std::vector<std::pair<long, std::wstring>> types;
    const Object list(host.call(L"ClassTypes"));
    const long count = list.readNumber(L"Count");
    for (long i = 1; i <= count; ++i) {
        const Object type(list.read(L"Item", i));
        types.emplace_back(std::stol(ole::textOf(type.read(L"Value", _bstr_t(L"FID")))),
                           ole::textOf(type.read(L"Value", _bstr_t(L"FName"))));
    }
    return types;
}

HACCEL makeKeys() {
    ACCEL keys[] = {
        {FVIRTKEY, VK_F3, static_cast<WORD>(window::filter)},
        {FVIRTKEY, VK_F5, static_cast<WORD>(window::refresh)},
        {FVIRTKEY, VK_F4, static_cast<WORD>(window::showSql)},
        {FVIRTKEY | FCONTROL, 'C', static_cast<WORD>(window::copyRows)},
        {FVIRTKEY | FCONTROL | FSHIFT, 'C', static_cast<WORD>(window::copySql)},
        {FVIRTKEY | FCONTROL, 'A', static_cast<WORD>(window::selectAll)},
    };
    return CreateAcceleratorTableW(keys, static_cast<int>(std::size(keys)));
}

} // namespace

MainWindow::MainWindow(const ListOptions& options)
    : options_(options), host_(openHost(options)),
      user_(ole::textOf(host_.call(L"LogOn", ole::toBstr(options.user), ole::toBstr(options.language)))),
      texts_(options.language), classTypes_(readClassTypes(host_)), bar_(metrics_), list_(metrics_) {
    shown_.classType = options.classType;
    if (std::ranges::find(classTypes_, options.classType, &std::pair<long, std::wstring>::first) == classTypes_.end())
        throw ole::Failure(E_INVALIDARG, L"--class-type",
                           texts_(L"没有单据类型 %1", {std::to_wstring(options.classType)}));
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    description.lpszClassName = window::mainClass;
    RegisterClassW(&description);
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    const int width = std::min(options.width ? options.width : metrics_.px(usualWidth), static_cast<int>(area.right));
    const int height =
        std::min(options.height ? options.height : metrics_.px(usualHeight), static_cast<int>(area.bottom));
    window_ =
        CreateWindowExW(0, window::mainClass, L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, (area.right - width) / 2,
                        (area.bottom - height) / 2, width, height, nullptr, nullptr, description.hInstance, this);
    if (!window_)
        throw ole::Failure(HRESULT_FROM_WIN32(GetLastError()), window::mainClass, {});
    build();
}

MainWindow::~MainWindow() {
    filter_ = nullptr;
    if (window_)
        DestroyWindow(window_);
}

void MainWindow::build() {
    bar_.create(window_, texts_, classTypes_);
    list_.create(window_, texts_);
    focused_ = list_.list();
    showClassType();
    showStatus();
}

int MainWindow::run() {
    const bool isSized = options_.width != 0;
    if (isSized || !restorePlacement(window_))
        ShowWindow(window_, SW_SHOWNORMAL);
    layOut();
    UpdateWindow(window_);
    guarded([this] {
        filterDialog().load(shown_.classType);
        show(filterDialog().result());
    });
    const HACCEL keys = makeKeys();
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (TranslateAcceleratorW(window_, keys, &message) || IsDialogMessageW(window_, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    DestroyAcceleratorTable(keys);
    return static_cast<int>(message.wParam);
}

FilterDialog& MainWindow::filterDialog() {
    if (!filter_) {
        std::wstring ids;
        for (const auto& [id, name] : classTypes_)
            ids += (ids.empty() ? L"" : L",") + std::to_wstring(id);
        filter_ = std::make_unique<FilterDialog>(window_, metrics_, texts_, host_, ids);
    }
    return *filter_;
}

std::wstring MainWindow::nameOf(long classType) const {
    const auto found = std::ranges::find(classTypes_, classType, &std::pair<long, std::wstring>::first);
    return found == classTypes_.end() ? std::wstring() : found->second;
}

/// Runs a user's action; its failure is told in a message box.
template <class Body>
void MainWindow::guarded(Body&& body) {
    const HCURSOR before = SetCursor(LoadCursorW(nullptr, IDC_WAIT));
    try {
        body();
    } catch (const ole::Failure& failure) {
        showFailure(window_, texts_, failure);
    }
    SetCursor(before);
}

void MainWindow::openFilter() {
    guarded([this] {
        filterDialog().load(shown_.classType);
        if (auto accepted = filterDialog().ask())
            show(std::move(*accepted));
    });
    SetFocus(list_.list());
}

void MainWindow::chooseClassType() {
    const std::size_t index = bar_.selectedClassType();
    if (index >= classTypes_.size() || classTypes_[index].first == shown_.classType)
        return;
    guarded([&] {
        filterDialog().load(classTypes_[index].first);
        show(filterDialog().result());
    });
    showClassType(); // the one before, when it failed
}

void MainWindow::show(FilterResult filter) {
    // Texts first, so that a list that fails leaves what is shown as it was.
    Bills found(host_, filter);
    shown_ = std::move(filter);
    bills_ = std::move(found);
    list_.show(bills_, bills_.shown().empty() ? texts_(L"没有要显示的列，请在过滤窗口的“显示隐藏列”中选择。")
                                              : texts_(L"没有符合条件的单据。"));
    bar_.setSql(shownSql());
    showClassType();
    showStatus();
}

void MainWindow::refresh() {
    guarded([this] {
        if (shown_.header)
            show(FilterResult(shown_));
    });
}

void MainWindow::showClassType() {
    const auto found = std::ranges::find(classTypes_, shown_.classType, &std::pair<long, std::wstring>::first);
    bar_.selectClassType(static_cast<std::size_t>(found - classTypes_.begin()));
    SetWindowTextW(window_, (nameOf(shown_.classType) + L" - " + texts_(L"单据列表") + L" - " + user_).c_str());
}

/// The control's texts, and the statement that the host has made of them.
std::wstring MainWindow::shownSql() const {
    std::wstring text;
    const auto add = [&text](const wchar_t* title, const std::wstring& sql) {
        if (!sql.empty())
            text += L"-- " + std::wstring(title) + L"\r\n" + brokenLines(sql) + L"\r\n";
    };
    add(L"GetFilterSql", shown_.where);
    add(L"GetSortString (HeadSort)", shown_.headSort);
    add(L"GetSortString (EntrySort)", shown_.entrySort);
    add(L"SELECT", bills_.sql());
    return text;
}

void MainWindow::showStatus() {
    bar_.setStatus(texts_(L"共 %1 张单据，%2 行", {amountText(bills_.bills(), 0), amountText(bills_.rows(), 0)}),
                   texts_(L"用时 %1 毫秒", {std::to_wstring(bills_.milliseconds())}), texts_(L"用户：%1", {user_}));
}

void MainWindow::copyRows() {
    if (GetFocus() == bar_.sql()) {
        SendMessageW(bar_.sql(), WM_COPY, 0, 0);
        return;
    }
    if (const std::wstring rows = list_.selectedText(); !rows.empty())
        copyText(window_, rows);
}

void MainWindow::copySql() {
    copyText(window_, bills_.sql());
}

void MainWindow::foldSql() {
    if (!bar_.showsSql() && GetFocus() == bar_.sql())
        SetFocus(list_.list());
    layOut();
    // Windows that move over each other copy what is no longer there.
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void MainWindow::layOut() {
    list_.place(bar_.layOut());
}

void MainWindow::onCommand(int id, int code) {
    const bool isKey = code == 1;
    switch (id) {
    case window::filter:
        openFilter();
        break;
    case window::refresh:
        refresh();
        break;
    case window::showSql:
        if (isKey)
            bar_.setShowsSql(!bar_.showsSql());
        foldSql();
        break;
    case window::copyRows:
        copyRows();
        break;
    case window::copySql:
        copySql();
        break;
    case window::selectAll:
        if (GetFocus() == bar_.sql())
            SendMessageW(bar_.sql(), EM_SETSEL, 0, -1);
        else
            list_.selectAll();
        break;
    case window::classTypes:
        if (code == CBN_SELCHANGE)
            chooseClassType();
        break;
    default:
        break;
    }
}

LRESULT CALLBACK MainWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_NCCREATE)
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
    auto* self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self || !self->window_)
        return DefWindowProcW(window, message, wParam, lParam);
    try {
        return self->onMessage(message, wParam, lParam);
    } catch (const std::exception& failure) {
        MessageBoxA(window, failure.what(), nullptr, MB_ICONERROR);
        return 0;
    }
}

LRESULT MainWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_SIZE:
        if (wParam != SIZE_MINIMIZED)
            layOut();
        return 0;
    case WM_GETMINMAXINFO:
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {metrics_.px(640), metrics_.px(360)};
        return 0;
    case WM_COMMAND:
        onCommand(LOWORD(wParam), HIWORD(wParam));
        return 0;
    case WM_NOTIFY:
        return list_.notified(*reinterpret_cast<NMHDR*>(lParam));
    case WM_MEASUREITEM:
        list_.measure(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_DRAWITEM:
        list_.drawRow(*reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    case WM_CTLCOLORSTATIC:
        // The notice stands on the list's ground, and the statement is no less legible for being read-only.
        if (const HWND child = reinterpret_cast<HWND>(lParam);
            child == GetDlgItem(window_, window::notice) || child == bar_.sql()) {
            SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
            SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOWTEXT));
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
        }
        return DefWindowProcW(window_, message, wParam, lParam);
    case WM_ACTIVATE:
        // Back to where the user was.
        if (LOWORD(wParam) == WA_INACTIVE) {
            if (const HWND focus = GetFocus(); focus && IsChild(window_, focus))
                focused_ = focus;
        } else if (focused_) {
            SetFocus(focused_);
        }
        return 0;
    case WM_DESTROY:
        savePlacement(window_);
        filter_ = nullptr; // while its windows are there
        window_ = nullptr;
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(window_, message, wParam, lParam);
    }
}

} // namespace orv::erp
