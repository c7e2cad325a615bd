#pragma once

#include "tour/Hand.h"
#include "tour/Report.h"

namespace orv::tour {

class MouseHand final : public Hand {
  public:
    MouseHand(const FilterScreen& screen, Report& report) : Hand(screen), report_(report) {}

    void go(int column, int row) override;
    void choose(int column, int row, const std::wstring& caption) override;
    void enter(int column, int row, const std::wstring& text) override;
    void toggle(int column, int row) override;
    void openPage(int page) override;
    void pressButton(HWND button) override;
    void pressTool(int tool) override;
    void select(HWND combo, const std::wstring& caption) override;
    void openScheme(const std::wstring& name) override;
    void lookUp(int column, int row, const std::wstring& number) override;
    void accept() override;

  private:
    Report& report_;
};

} // namespace orv::tour
