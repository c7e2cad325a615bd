#pragma once

#include "erp/windows/list/BillListView.h"
#include "erp/windows/list/Bills.h"
#include "erp/windows/list/FilterDialog.h"
#include "erp/windows/list/Options.h"
#include "erp/windows/list/Texts.h"
#include "erp/windows/list/TopBar.h"
#include "erp/windows/ui/Metrics.h"

#include <windows.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace orv::erp {

/// The list window. Class names, ids and keys: WindowNames.h.
class MainWindow {
  public:
    /// Logs the user on at the host and makes the window; raises ole::Failure when a component is missing or refuses.
    explicit MainWindow(const ListOptions& options);
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;
    ~MainWindow();

    /// Shows the window with the bills of the first class type, and handles messages until it is closed.
    int run();

  private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void onCommand(int id, int code);
    void build();
    void layOut();
    void openFilter();
    void chooseClassType();
    void show(FilterResult filter);
    void refresh();
    void showClassType();
    void showStatus();
    std::wstring shownSql() const;
    void copyRows();
    void copySql();
    void foldSql();
    template <class Body>
    void guarded(Body&& body);
    FilterDialog& filterDialog();
    std::wstring nameOf(long classType) const;

    ListOptions options_;
    Metrics metrics_;
    ole::Object host_;
    std::wstring user_;
    Texts texts_;
    std::vector<std::pair<long, std::wstring>> classTypes_;
    HWND window_ = nullptr;
    HWND focused_ = nullptr; ///< the child that gets the focus with the window
    TopBar bar_;
    BillListView list_;
    std::unique_ptr<FilterDialog> filter_;
    FilterResult shown_; ///< what the list shows
    Bills bills_;
};

} // namespace orv::erp
