#pragma once

#include "erp/windows/list/Texts.h"
#include "erp/windows/ui/Metrics.h"
#include "erp/windows/ui/WindowNames.h"

#include <windows.h>

#include <string>
#include <utility>
#include <vector>

namespace orv::erp {

/// What stands around the list: class types and commands above it, the pane of the statement below these, the status
/// bar at the bottom.
class TopBar {
  public:
    explicit TopBar(const Metrics& metrics) : metrics_(metrics) {}

    void create(HWND parent, const Texts& texts, const std::vector<std::pair<long, std::wstring>>& classTypes);
    /// Lays everything out in the parent's client area; what is left for the list.
    RECT layOut() const;

    void selectClassType(std::size_t index) const;
    std::size_t selectedClassType() const;
    bool showsSql() const;
    void setShowsSql(bool shows) const;
    void setSql(const std::wstring& sql) const;
    HWND sql() const noexcept { return child(window::sql); }
    void setStatus(const std::wstring& counts, const std::wstring& time, const std::wstring& user) const;

  private:
    HWND child(int id) const noexcept { return GetDlgItem(parent_, id); }
    void add(const wchar_t* windowClass, const std::wstring& text, DWORD style, DWORD exStyle, int id) const;
    int textWidth(int id) const;

    const Metrics& metrics_;
    HWND parent_ = nullptr;
};

} // namespace orv::erp
