#include "windows/views/Window.h"

#include "automation/AutomationError.h"
#include "windows/com/Handles.h"
#include "windows/views/VisualStyles.h"

#include <commctrl.h>

#include <exception>

namespace orv::windows {

namespace {

constexpr const wchar_t* className = L"ORVFilterWindow";
constexpr const wchar_t* objectProperty = L"ORVFilterWindowObject";

/// Our window class goes with the module: a host that unloads and loads it again must not find the old procedure.
struct WindowClass {
    explicit WindowClass(WNDPROC procedure) noexcept {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.style = CS_DBLCLKS;
        description.lpfnWndProc = procedure;
        description.hInstance = thisModule();
        description.hCursor = LoadCursorW(nullptr, reinterpret_cast<const wchar_t*>(IDC_ARROW));
        description.lpszClassName = className;
        RegisterClassExW(&description);
    }
    WindowClass(const WindowClass&) = delete;
    WindowClass& operator=(const WindowClass&) = delete;
    ~WindowClass() { UnregisterClassW(className, thisModule()); }
};

/// To be called in a catch block.
void tellDebugger() noexcept {
    try {
        throw;
    } catch (const automation::AutomationError& error) {
        OutputDebugStringW(asWide(error.description().c_str()));
    } catch (const std::exception& error) {
        OutputDebugStringA(error.what());
    } catch (...) {
        OutputDebugStringA("unknown exception in a window procedure");
    }
}

Window* objectOf(HWND hwnd) noexcept {
    return static_cast<Window*>(GetPropW(hwnd, objectProperty));
}

} // namespace

HINSTANCE thisModule() noexcept {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&thisModule), &module);
    return module;
}

Window::~Window() {
    destroy();
}

void Window::destroy() noexcept {
    if (hwnd_)
        DestroyWindow(hwnd_);
}

Window::Use::Use(const Window& window) noexcept : root_(window.root_.lock()), window_(window.weak_from_this().lock()) {
    if (root_)
        object_ = ComPtr<IUnknown>::copyFrom(root_->kept_);
}

std::shared_ptr<Window> Window::of(HWND hwnd) noexcept {
    DWORD process = 0;
    if (!hwnd || !GetWindowThreadProcessId(hwnd, &process) || process != GetCurrentProcessId())
        return nullptr;
    Window* window = objectOf(hwnd);
    return window ? window->weak_from_this().lock() : nullptr;
}

void Window::create(const Creation& how) {
    static const WindowClass ownClass(&Window::procedure);
    const VisualStyles styles;
    const auto parent = of(how.parent);
    root_ = parent ? parent->root_ : weak_from_this();
    if ((how.style & WS_POPUP) != 0)
        opener_ = how.parent;
    const HWND created =
        CreateWindowExW(how.exStyle, how.controlClass ? how.controlClass : className, L"", how.style, how.bounds.left,
                        how.bounds.top, how.bounds.right - how.bounds.left, how.bounds.bottom - how.bounds.top,
                        how.parent, nullptr, thisModule(), how.controlClass ? nullptr : this);
    if (!created)
        throw automation::AutomationError::runtime(automation::errorNumber::outOfMemory);
    if (how.controlClass) {
        hwnd_ = created;
        SetPropW(created, objectProperty, this);
        control_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(created, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Window::procedure)));
    }
}

LRESULT Window::pass(UINT message, WPARAM wParam, LPARAM lParam) {
    if (!hwnd_)
        return 0;
    return control_ ? CallWindowProcW(control_, hwnd_, message, wParam, lParam)
                    : DefWindowProcW(hwnd_, message, wParam, lParam);
}

void Window::onFocus(bool, HWND) {}

HWND Window::parentOf(HWND hwnd) noexcept {
    const auto window = of(hwnd);
    return window && window->opener_ ? window->opener_ : GetParent(hwnd);
}

void Window::tellAncestors(HWND hwnd, bool has, HWND other) {
    for (HWND at = hwnd; at;) {
        const HWND next = parentOf(at);
        if (const auto window = Window::of(at))
            window->onFocus(has, other);
        at = next;
    }
}

bool isWithin(HWND ancestor, HWND window) noexcept {
    while (window && window != ancestor)
        window = Window::parentOf(window);
    return window != nullptr && ancestor != nullptr;
}

LRESULT CALLBACK Window::procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    if (message == WM_NCCREATE) {
        if (auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam); creation->lpCreateParams) {
            auto* window = static_cast<Window*>(creation->lpCreateParams);
            window->hwnd_ = hwnd;
            SetPropW(hwnd, objectProperty, window);
        }
    }
    Window* window = objectOf(hwnd);
    if (!window)
        return DefWindowProcW(hwnd, message, wParam, lParam);
    const Use inUse(*window);
    if (message == WM_NCDESTROY) {
        RemovePropW(hwnd, objectProperty);
        const LRESULT result = window->pass(message, wParam, lParam);
        window->hwnd_ = nullptr;
        return result;
    }
    // An object that nobody holds is going: its virtual functions are those of a base class by now.
    if (!inUse)
        return window->pass(message, wParam, lParam);
    try {
        const LRESULT result = window->onMessage(message, wParam, lParam);
        if (message == WM_SETFOCUS || message == WM_KILLFOCUS)
            tellAncestors(hwnd, message == WM_SETFOCUS, reinterpret_cast<HWND>(wParam));
        return result;
    } catch (...) {
        tellDebugger();
        return 0;
    }
}

LRESULT ContainerWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    HWND child = nullptr;
    switch (message) {
    case WM_COMMAND:
    case WM_VSCROLL:
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
        child = reinterpret_cast<HWND>(lParam);
        break;
    case WM_NOTIFY:
        child = reinterpret_cast<const NMHDR*>(lParam)->hwndFrom;
        break;
    default:
        break;
    }
    if (child && Window::of(child))
        return SendMessageW(child, message + reflected, wParam, lParam);
    return pass(message, wParam, lParam);
}

} // namespace orv::windows
