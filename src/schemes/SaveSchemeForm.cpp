#include "schemes/SaveSchemeForm.h"

#include "schemes/SchemeNames.h"
#include "support/Letters.h"

namespace orv::schemes {

SaveSchemeForm::SaveSchemeForm(ui::Messages& messages, const support::Localisation& texts)
    : Dialog(u"frmSaveschame"), messages_(messages) {
    setCaption(texts.TranslateText(u"保存方案"));
    lblSchemeName.setCaption(u"方案名称");
    chkShare.setCaption(u"与其他用户共享");
    cmdOk.setCaption(u"确定");
    cmdCancel.setCaption(u"取消");
    onOk_ = cmdOk.click.subscribe([this] { confirm(); });
    onCancel_ = cmdCancel.click.subscribe([this] { close(); });
}

std::vector<ui::Control*> SaveSchemeForm::controls() {
    return {&lblSchemeName, &txtSchemeName, &chkShare, &cmdOk, &cmdCancel};
}

void SaveSchemeForm::confirm() {
    const std::u16string name(support::Trim(txtSchemeName.text()));
    if (name.empty()) {
        messages_.warn(u"请输入方案名称!");
        return;
    }
    // Only the typed name is upper-cased: the mixed-case "Default Schema" passes here and is refused when saving.
    if (isDefaultSchemeName(support::toUpper(name)) && chkShare.isChecked()) {
        messages_.warn(u"默认方案不能设置为共享!");
        return;
    }
    result_ = SaveSchemeResult{name, static_cast<std::int32_t>(chkShare.value())};
    close();
}

} // namespace orv::schemes
