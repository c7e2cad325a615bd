#pragma once

#include "support/Localisation.h"
#include "ui/Dialog.h"
#include "ui/Messages.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orv::schemes {

/// What the save dialog leaves when the user confirms.
struct SaveSchemeResult {
    std::u16string FSchemeName;
    std::int32_t FIsShare = 0;
    friend bool operator==(const SaveSchemeResult&, const SaveSchemeResult&) = default;
};

/// The dialog `frmSaveschame`: asks for a scheme's name and whether other users may see it.
class SaveSchemeForm final : public ui::Dialog {
  public:
    SaveSchemeForm(ui::Messages& messages, const support::Localisation& texts);

    ui::Label lblSchemeName{u"lblSchemeName"};
    ui::TextBox txtSchemeName{u"txtSchemeName"};
    ui::CheckBox chkShare{u"chkShare"};
    ui::Button cmdOk{u"cmdOk"};
    ui::Button cmdCancel{u"cmdCancel"};

    std::vector<ui::Control*> controls() override;
    ui::Button& defaultButton() override { return cmdOk; }
    ui::Button& cancelButton() override { return cmdCancel; }

    /// Nothing until the user has confirmed.
    const std::optional<SaveSchemeResult>& result() const noexcept { return result_; }

  private:
    void confirm();

    ui::Messages& messages_;
    std::optional<SaveSchemeResult> result_;
    ui::Subscription onOk_;
    ui::Subscription onCancel_;
};

} // namespace orv::schemes
