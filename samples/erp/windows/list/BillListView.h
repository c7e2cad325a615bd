#pragma once

#include "erp/windows/list/Bills.h"
#include "erp/windows/list/ListBands.h"
#include "erp/windows/list/Texts.h"
#include "erp/windows/ui/Metrics.h"

#include <windows.h>

#include <commctrl.h>

#include <string>

namespace orv::erp {

/// The list of bills: a virtual list view that draws its rows itself, the captions above it, the totals below it, and a
/// text in their place when there is nothing to show.
class BillListView {
  public:
    explicit BillListView(const Metrics& metrics) : metrics_(metrics), bands_(metrics) {}

    void create(HWND parent, const Texts& texts);
    /// Shows these bills; `notice` is said when there are none. The bills must stay until the next call.
    void show(const Bills& bills, const std::wstring& notice);
    void place(const RECT& area);
    HWND list() const noexcept { return list_; }

    // What the parent window gets of the list.
    void measure(MEASUREITEMSTRUCT& item) const;
    void drawRow(const DRAWITEMSTRUCT& item) const;
    LRESULT notified(NMHDR& header) const;

    void selectAll() const;
    /// The selected rows, columns with tabs between, under a line of captions; "" when none is.
    std::wstring selectedText() const;

  private:
    static LRESULT CALLBACK listProcedure(HWND list, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                          DWORD_PTR self) noexcept;
    ColumnPlaces columnPlaces() const;
    int usualWidth(std::size_t column) const;
    int contentWidth(std::size_t column) const;
    void setWidth(std::size_t column, int widthPx) const;

    const Metrics& metrics_;
    ListBands bands_;
    HWND list_ = nullptr;
    HWND notice_ = nullptr;
    const Bills* bills_ = nullptr;
    RECT area_{};
    int scrolledTo_ = 0;
};

} // namespace orv::erp
