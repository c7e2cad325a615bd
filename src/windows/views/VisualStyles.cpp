#include "windows/views/VisualStyles.h"

#include "windows/views/Window.h"

namespace orv::windows {

namespace {

/// Resource number of a DLL's manifest.
constexpr WORD manifestId = 2;

/// What the module's manifest describes; made once.
class Context {
  public:
    Context() noexcept {
        ACTCTXW source{};
        source.cbSize = sizeof source;
        source.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
        source.hModule = thisModule();
        source.lpResourceName = MAKEINTRESOURCEW(manifestId);
        if (FindResourceW(source.hModule, source.lpResourceName, reinterpret_cast<const wchar_t*>(RT_MANIFEST)))
            handle_ = CreateActCtxW(&source);
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context() {
        if (handle_ != INVALID_HANDLE_VALUE)
            ReleaseActCtx(handle_);
    }
    ULONG_PTR activate() const noexcept {
        ULONG_PTR cookie = 0;
        return handle_ != INVALID_HANDLE_VALUE && ActivateActCtx(handle_, &cookie) ? cookie : 0;
    }

  private:
    HANDLE handle_ = INVALID_HANDLE_VALUE;
};

} // namespace

VisualStyles::VisualStyles() noexcept {
    static const Context context;
    cookie_ = context.activate();
}

VisualStyles::~VisualStyles() {
    if (cookie_ != 0)
        DeactivateActCtx(0, cookie_);
}

} // namespace orv::windows
