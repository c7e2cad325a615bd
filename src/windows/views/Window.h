#pragma once

#include "windows/com/ComPtr.h"

#include <windows.h>

#include <memory>

namespace orv::windows {

/// A window of our own class, or a common control with our procedure in front of its own. Owned by shared pointers: a
/// message keeps alive, until it is handled, its window object, the outermost one of our windows that it was made in,
/// and the object that this one names. So a handler may do away with any of them.
///
/// No exception leaves a window procedure: what a handler throws goes to the debugger, the message counts as handled.
class Window : public std::enable_shared_from_this<Window> {
  public:
    Window() = default;
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;
    virtual ~Window();

    /// Null before it is created and once it is destroyed.
    HWND hwnd() const noexcept { return hwnd_; }
    void destroy() noexcept;

    /// The object of a window of ours that is held by a shared pointer; null for any other window.
    static std::shared_ptr<Window> of(HWND hwnd) noexcept;

    /// Keeps alive, for a scope, what a message to the window keeps alive: for those who come to it in another way.
    class Use {
      public:
        explicit Use(const Window& window) noexcept;
        /// False while the window object is made or destroyed.
        explicit operator bool() const noexcept { return window_ != nullptr; }

      private:
        // Let go of from the last one to the first: the windows show what belongs to the object.
        ComPtr<IUnknown> object_;
        std::shared_ptr<const Window> root_;
        std::shared_ptr<const Window> window_;
    };

  protected:
    /// Has the messages of this outermost window, and of all that are made in it, keep an object alive; null for none.
    /// Between messages it is not counted: whoever named it takes it back before it goes.
    void keepDuringMessages(IUnknown* object) noexcept { kept_ = object; }

    struct Creation {
        const wchar_t* controlClass = nullptr; ///< a common control; null for a window of our own class
        DWORD style = WS_CHILD;
        DWORD exStyle = 0;
        HWND parent = nullptr;
        RECT bounds{};
    };
    /// AutomationError 7 (out of memory) when the system refuses.
    void create(const Creation& how);
    virtual LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) { return pass(message, wParam, lParam); }
    /// The focus has come to this window or one within it, or has left it for the window `to` (null for none).
    virtual void onFocus(bool has, HWND to);
    /// What the control's own procedure, or the system's usual one, does with a message.
    LRESULT pass(UINT message, WPARAM wParam, LPARAM lParam);

  private:
    static void tellAncestors(HWND hwnd, bool has, HWND other);
    static LRESULT CALLBACK procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    friend bool isWithin(HWND ancestor, HWND window) noexcept;
    /// The parent; of a popup the window that has opened it, which may be a child: the system knows its frame only.
    static HWND parentOf(HWND hwnd) noexcept;

    HWND hwnd_ = nullptr;
    HWND opener_ = nullptr;
    std::weak_ptr<Window> root_; ///< the outermost window of ours that this one was made in, or itself
    IUnknown* kept_ = nullptr;
    WNDPROC control_ = nullptr;
};

/// Messages that a control sends to its parent come back to the control itself with this added.
inline constexpr UINT reflected = WM_USER + 0x1C00;

/// A window that reflects the notifications of its child controls.
class ContainerWindow : public Window {
  protected:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

/// Whether a window is `ancestor`, a child of it at any depth or a popup that one of these has opened.
bool isWithin(HWND ancestor, HWND window) noexcept;

/// The module that this code is in.
HINSTANCE thisModule() noexcept;

} // namespace orv::windows
