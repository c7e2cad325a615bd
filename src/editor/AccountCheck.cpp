#include "editor/AccountCheck.h"

#include "automation/Coercion.h"
#include "support/PaddedItem.h"

namespace orv::editor {

using automation::Missing;
using automation::ObjectRef;

namespace {
/// The class type whose lists are open to everybody.
constexpr std::int32_t exemptClassType = 1007711;
} // namespace

void AccountCheck::cellChanged(int column, int row) {
    if (column != column::value || grid_.text(column::field, row).empty())
        return;
    const auto rows = conditions_.rows();
    const auto index = static_cast<std::size_t>(row - 1);
    if (row < 1 || index >= rows->size() || (*rows)[index].FColType != metadata::colType::none)
        return;
    if (host_.dataServiceClassTypeId() == exemptClassType)
        return;

    const std::u16string account(support::SplitLookupText(grid_.text(column::value, row), false));
    if (!service_)
        service_ = factory_.create(u"ORVEBSGLAccount.AccountInfo");
    const ObjectRef service = service_;
    const std::u16string props = host_.propsString();
    const std::int32_t id = automation::toInt32(
        automation::call(service, u"ExistenceCheck", account, Missing{}, Missing{}, Missing{}, props));
    if (id <= 0 || automation::toBoolean(automation::call(service, u"HaveRightCheck", id, props)))
        return;
    const std::u16string value = grid_.text(column::value, row); // as the cell has it now, hidden key included
    host_.messages().warnAround(u"您暂无", value, u"科目权限，请系统管理员授权后再进入！");
    grid_.setText(column::value, row, u"");
}

} // namespace orv::editor
