#include "control/FilterControls.h"

#include "automation/Object.h"

namespace orv::control {

namespace {

void addItems(ui::ComboBox& box, std::initializer_list<const char16_t*> items) {
    for (const char16_t* item : items)
        box.addItem(item);
    box.setListIndex(box.count() - 1);
}

} // namespace

FilterControls::FilterControls() {
    lblClassType.setCaption(u"单据类型");
    lblProject.setCaption(u"方案");
    tlbProject.addButton({u"TLBSAVE", u"保存", u"保存", true, {}});
    tlbProject.addButton({u"TLBDEL", u"删除", u"删除", true, {}});
    tlbProject.addButton({u"TLBCLEAR", u"清除", u"清除", true, {}});
    tlbProject.addButton({u"TLBVIEW", u"视图", u"视图", true, {}});
    lvwProject.setColumnHeaders({u"方案名称"});
    tbFilter.addTab(u"Filter", u"条件");
    tbFilter.addTab(u"Sort", u"排序");
    tbFilter.addTab(u"HideSet", u"显示隐藏列");
    cmdInsert.setCaption(u"插入");
    cmdDel.setCaption(u"删除");
    cmdDelAll.setCaption(u"全删");
    for (const char16_t* caption : {u"上移", u"下移", u"全选", u"全清", u"恢复默认"})
        cmdHide.load().setCaption(caption);
    chkPage.load();
    lblTime.setCaption(u"时间");
    lblCheck.setCaption(u"审核");
    lblPost.setCaption(u"凭证");
    addItems(cboTime, {u"当天", u"本周", u"本期", u"全部"});
    addItems(cboCheck, {u"已审核", u"未审核", u"全部"});
    addItems(cboPost, {u"已生成凭证", u"未生成凭证", u"全部"});
    chkIsShowAll.setCaption(u"显示全部单据头");
}

void FilterControls::forEach(const std::function<void(ui::Control&)>& visit) {
    const auto visitAll = [&visit](const auto& array) {
        for (const auto& element : array)
            visit(*element);
    };
    visit(UserControl);
    visit(lblClassType);
    visit(cboClassType);
    visit(lblProject);
    visit(tlbProject);
    visit(lvwProject);
    visit(tbFilter);
    visit(PicPan);
    visit(vsFilter);
    visit(cmdInsert);
    visit(cmdDel);
    visit(cmdDelAll);
    visit(lblTime);
    visit(cboTime);
    visit(lblCheck);
    visit(cboCheck);
    visit(lblPost);
    visit(cboPost);
    visitAll(lblFilter);
    visitAll(cmbFilter);
    visit(picPageBase);
    visit(picPage);
    visitAll(chkPage);
    visit(vsPage);
    visit(picOrder);
    visit(vsOrder);
    visit(vsHideColumn);
    visitAll(cmdHide);
    visit(chkIsShowAll);
}

ui::Control* FilterControls::find(std::u16string_view fullName) {
    ui::Control* found = nullptr;
    forEach([&](ui::Control& control) {
        if (automation::sameMember(control.fullName(), fullName))
            found = &control;
    });
    return found;
}

} // namespace orv::control
