#include "editor/ValueLookUp.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "support/PaddedItem.h"

namespace orv::editor {

namespace {

/// What the look-up services raise for a user without rights.
constexpr std::int32_t noRights = static_cast<std::int32_t>(0x80044010U);

/// Whether the comparison reads the hidden key of the value cell.
bool comparesKey(const conditions::CompareEntryRef& entry) {
    return entry && automation::Val(entry->FDataFieldIndex) == 2;
}

} // namespace

void ValueLookUp::keyDown(int keyCode) {
    const ui::CellRef cell = grid_.activeCell();
    if (keyCode != ui::key::f7 || cell.column != column::value)
        return;
    try {
        lookUp(cell.row);
    } catch (const automation::AutomationError& error) {
        host_.messages().warnAround(error.number() == noRights ? u"没有权限：" : u"数据读取错误。", error.description(),
                                    u"");
    }
}

void ValueLookUp::lookUp(int row) {
    const auto rows = conditions_.rows();
    const auto index = static_cast<std::size_t>(row - 1);
    if (row < 1 || index >= rows->size() || !(*rows)[index].HDict)
        return;
    // Held here: the dialog pumps messages, and the line may change under it.
    const metadata::FieldRef field = (*rows)[index].HDict;
    const auto choice = LookUp(host_).choose(*field);
    if (!choice || index >= rows->size() || (*rows)[index].HDict != field)
        return;
    grid_.setText(column::value, row,
                  comparesKey((*rows)[index].FCompareDct) ? support::PadItem(choice->display, choice->key)
                                                          : choice->display);
}

} // namespace orv::editor
