#pragma once

#include "erp/host/LookUpDialog.h"
#include "erp/windows/ui/Metrics.h"

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <optional>
#include <set>
#include <vector>

namespace orv::erp {

/// The list of a look-up dialog: a virtual list view over the rows that the search leaves. Where several rows may be
/// taken each has a check box; checks stay while the search changes.
class RecordList {
  public:
    RecordList(const LookUpOffer& offer, const Metrics& metrics) : offer_(offer), metrics_(metrics) {}

    void attach(HWND list);
    HWND hwnd() const noexcept { return list_; }
    /// Shows these rows; the first one has the focus.
    void show(std::vector<std::size_t> rows);
    std::size_t count() const noexcept { return shown_.size(); }
    /// The last column takes the space that is left.
    void fitColumns() const;

    /// Answers LVN_GETDISPINFO. Texts stay valid as long as the offer.
    void fill(LVITEMW& item) const;
    /// Answers NM_CUSTOMDRAW: the selected row is to be seen while the search box has the focus, too.
    LRESULT dress(NMLVCUSTOMDRAW& draw) const;
    /// Toggles the check box at a point of the list; false when there is none.
    bool clickedBox(POINT at);
    bool toggleFocused();

    /// The row with the focus, and the checked ones, as positions in the offer.
    std::optional<std::size_t> focused() const;
    std::vector<std::size_t> checked() const { return {checked_.begin(), checked_.end()}; }

  private:
    bool toggle(int item);
    int widthOf(std::size_t column) const;
    bool isAmount(std::size_t column) const;

    const LookUpOffer& offer_;
    const Metrics& metrics_;
    HWND list_ = nullptr;
    std::vector<std::size_t> shown_;
    std::set<std::size_t> checked_;
};

} // namespace orv::erp
