#pragma once

#include "control/Filter.h"
#include "erp/host/ErpHost.h"
#include "ui/Prompts.h"
#include "windows/views/FilterWindow.h"

#include <memory>
#include <string>
#include <vector>

namespace orv::windows::testing {

/// Records what would have been shown and says yes.
class RecordedPrompts final : public ui::Prompts {
  public:
    ui::MessageAnswer message(const std::u16string& text, std::int32_t style, const std::u16string& title) override;
    void log(const std::u16string& text) override;

    std::vector<std::string> messages;
    std::vector<std::string> logged;
};

/// How the tests have the control look, at a resolution.
Appearance appearanceAt(int dpi);

/// A frame window with the control on the sample host in it.
class Stage {
  public:
    explicit Stage(int dpi = 96, int width = 800, int height = 560);
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage();

    void openClassType(std::int32_t classType);
    HWND frame() const { return frame_; }
    /// The window of a constituent control, found by where it stands; null without one.
    HWND windowOf(const ui::Control& model) const;

    std::shared_ptr<erp::ErpHost> host;
    RecordedPrompts prompts;
    std::unique_ptr<control::Filter> filter;
    std::unique_ptr<FilterWindow> window;

  private:
    HWND frame_ = nullptr;
};

/// Handles all waiting messages, offering keys to the control first as a container does.
void pump(Stage& stage);
/// The same for a time.
void pumpFor(Stage& stage, int milliseconds);

} // namespace orv::windows::testing
