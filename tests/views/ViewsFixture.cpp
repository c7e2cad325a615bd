#include "ViewsFixture.h"

#include "automation/Text.h"

#include <cwchar>

namespace orv::windows::testing {

using automation::toUtf8;

namespace {

struct Search {
    const ui::Rect& bounds;
    HWND found;
};

BOOL CALLBACK standsThere(HWND child, LPARAM data) {
    auto& search = *reinterpret_cast<Search*>(data);
    RECT r;
    GetWindowRect(child, &r);
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&r), 2);
    const bool same = IsWindowVisible(child) && r.left == search.bounds.left && r.top == search.bounds.top &&
                      r.right - r.left == search.bounds.width;
    if (same)
        search.found = child;
    return !same;
}

} // namespace

ui::MessageAnswer RecordedPrompts::message(const std::u16string& text, std::int32_t, const std::u16string&) {
    messages.push_back(toUtf8(text));
    return ui::MessageAnswer::yes;
}

void RecordedPrompts::log(const std::u16string& text) {
    logged.push_back(toUtf8(text));
}

Appearance appearanceAt(int dpi) {
    Appearance look;
    look.dpi = dpi;
    look.back = GetSysColor(COLOR_BTNFACE);
    look.fore = GetSysColor(COLOR_BTNTEXT);
    look.font.lfHeight = -MulDiv(9, dpi, 72);
    look.font.lfCharSet = GB2312_CHARSET;
    std::wcscpy(look.font.lfFaceName, L"WenQuanYi Micro Hei");
    return look;
}

Stage::Stage(int dpi, int width, int height) {
    // One database for all: the tests change no data.
    static const std::shared_ptr<erp::ErpHost> shared = [] {
        erp::HostOptions options;
        options.now = 45351; // 29 February 2024
        return erp::ErpHost::open(options);
    }();
    host = shared;
    filter = std::make_unique<control::Filter>(*host, prompts);
    frame_ = CreateWindowExW(0, L"STATIC", L"frame", WS_POPUP | WS_CLIPCHILDREN, 0, 0, width, height, nullptr, nullptr,
                             GetModuleHandleW(nullptr), nullptr);
    // Shown without activation: where no window manager runs, waiting for it to activate a window takes seconds.
    ShowWindow(frame_, SW_SHOWNA);
    window = std::make_unique<FilterWindow>(frame_, RECT{0, 0, width, height}, *filter, nullptr, appearanceAt(dpi));
    SetForegroundWindow(frame_);
    // Clicks of a test follow each other faster than a user's.
    SetDoubleClickTime(1);
}

Stage::~Stage() {
    window.reset();
    DestroyWindow(frame_);
    SetDoubleClickTime(0); // the system's usual one
}

void Stage::openClassType(std::int32_t classType) {
    filter->put_dctControl(host->defaultSettings());
    filter->put_ShowScheme(true);
    filter->put_DataSrv(host->dataService(classType));
    filter->put_SetSelectPageList(u",1*,2,3,4,");
    filter->Initialize();
    RECT client;
    GetClientRect(frame_, &client);
    window->move(client);
}

HWND Stage::windowOf(const ui::Control& model) const {
    Search search{model.bounds(), nullptr};
    EnumChildWindows(window->hwnd(), standsThere, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

void pump(Stage& stage) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (stage.window && stage.window->translateKey(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void pumpFor(Stage& stage, int milliseconds) {
    const DWORD start = GetTickCount();
    do {
        pump(stage);
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    } while (GetTickCount() - start < static_cast<DWORD>(milliseconds));
}

} // namespace orv::windows::testing
