#include "erp/windows/lookup/LookUpWindow.h"

#include "erp/windows/lookup/LookUpForm.h"

namespace orv::erp {

namespace {

HWND ownerWindow() {
    if (const HWND active = GetActiveWindow())
        return active;
    const HWND foreground = GetForegroundWindow();
    DWORD process = 0;
    GetWindowThreadProcessId(foreground, &process);
    return process == GetCurrentProcessId() ? foreground : nullptr;
}

class LookUpWindow final : public LookUpDialog {
  public:
    std::vector<std::size_t> choose(const LookUpOffer& offer) override { return LookUpForm(offer).run(ownerWindow()); }
};

} // namespace

std::shared_ptr<LookUpDialog> makeLookUpWindow() {
    return std::make_shared<LookUpWindow>();
}

} // namespace orv::erp
