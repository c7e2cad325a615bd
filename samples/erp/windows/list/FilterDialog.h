#pragma once

#include "erp/windows/list/Bills.h"
#include "erp/windows/list/Texts.h"
#include "erp/windows/ui/Metrics.h"
#include "ole/ControlWindow.h"
#include "ole/ModalDialog.h"

#include <memory>
#include <optional>
#include <string>

namespace orv::erp {

/// The filter dialog: the control, 确定 and 取消. It is made once and hidden between two openings, so that it shows
/// again what was entered last, in the size that it had.
class FilterDialog {
  public:
    /// Makes dialog and control; raises ole::Failure. `host` is "OrvSample.Host", `classTypes` the identifiers that the
    /// control offers, with commas between.
    FilterDialog(HWND owner, const Metrics& metrics, const Texts& texts, ole::Object host, std::wstring classTypes);
    FilterDialog(const FilterDialog&) = delete;
    FilterDialog& operator=(const FilterDialog&) = delete;
    ~FilterDialog();

    /// Has the control load a class type, with the scheme that the user used last, unless it serves that one already.
    void load(long classType);
    /// What the control says now. Raises ole::Failure for conditions that make no filter.
    FilterResult result() const;
    /// Shows the dialog; nothing when the user cancels it.
    std::optional<FilterResult> ask();

  private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    INT_PTR onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void accept();
    void place() const;
    void layOut() const;
    const ole::Object& filter() const { return control_->control(); }

    const Metrics& metrics_;
    const Texts& texts_;
    ole::Object host_;
    std::wstring classTypes_;
    HWND window_ = nullptr;
    Microsoft::WRL::ComPtr<ole::Frame> frame_;
    std::unique_ptr<ole::ControlWindow> control_;
    std::unique_ptr<ole::ModalDialog> modal_;
    std::optional<FilterResult> accepted_;
};

} // namespace orv::erp
