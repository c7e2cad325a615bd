#pragma once

#include "erp/host/LookUpDialog.h"
#include "erp/windows/lookup/RecordList.h"
#include "erp/windows/ui/Metrics.h"

#include <windows.h>

#include <string>
#include <vector>

namespace orv::erp {

/// One look-up dialog.
class LookUpForm {
  public:
    explicit LookUpForm(const LookUpOffer& offer);

    /// Shows it until the user takes rows or cancels. Empty when the window cannot be made.
    std::vector<std::size_t> run(HWND owner);

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT CALLBACK searchProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                            DWORD_PTR self) noexcept;
    INT_PTR onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR onCommand(int id, int code);
    INT_PTR onNotify(const NMHDR& header);
    void build();
    HWND add(const wchar_t* windowClass, const std::u16string& text, DWORD style, DWORD exStyle, int id);
    void layOut();
    void place();
    void search();
    void showCount();
    void take();
    std::u16string translated(const char16_t* text) const;

    const LookUpOffer& offer_;
    Metrics metrics_;
    RecordList records_;
    HWND window_ = nullptr;
    std::vector<std::size_t> taken_;
};

} // namespace orv::erp
