#pragma once

#include "erp/windows/list/Bills.h"
#include "erp/windows/ui/Metrics.h"

#include <windows.h>

#include <functional>
#include <vector>

namespace orv::erp {

/// Where the columns of the list stand at the moment, in pixels of its client area. Column 0 is the row's number.
struct ColumnPlaces {
    std::vector<int> lefts; ///< and, last, the right end of the last column
    int left(std::size_t column) const { return lefts[column]; }
    int right(std::size_t column) const { return lefts[column + 1]; }
    std::size_t count() const { return lefts.empty() ? 0 : lefts.size() - 1; }
};

/// The captions above the list and the totals below it: windows that scroll with it. Columns are resized at the lines
/// between the captions; a double click there fits the column to its contents.
class ListBands {
  public:
    explicit ListBands(const Metrics& metrics) : metrics_(metrics) {}
    ListBands(const ListBands&) = delete;
    ListBands& operator=(const ListBands&) = delete;

    void create(HWND parent, const std::wstring& numberCaption, const std::wstring& totalsCaption);
    void show(const Bills& bills);
    void redraw() const;
    HWND heading() const noexcept { return heading_; }
    HWND totals() const noexcept { return totals_; }
    int headingHeight() const;
    int totalsHeight() const;

    std::function<ColumnPlaces()> places;
    std::function<void(std::size_t column, int widthPx)> resize;
    std::function<void(std::size_t column)> fit;

  private:
    static LRESULT CALLBACK headingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    static LRESULT CALLBACK totalsProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT onHeading(UINT message, WPARAM wParam, LPARAM lParam);
    void paintHeading() const;
    void paintTotals() const;
    void drawCaption(HDC dc, const std::wstring& text, const RECT& area) const;
    /// The column whose right end is at a point; -1 for none.
    int edgeAt(int x) const;

    const Metrics& metrics_;
    HWND heading_ = nullptr;
    HWND totals_ = nullptr;
    std::wstring numberCaption_;
    std::wstring totalsCaption_;
    std::vector<HeadingCell> cells_;
    std::vector<ListColumn> columns_;
    std::vector<std::wstring> totalTexts_;
    int dragged_ = -1;
};

} // namespace orv::erp
