#include "play/Show.h"

#include "automation/Text.h"
#include "play/Captions.h"
#include "ui/ComboBox.h"
#include "ui/ListView.h"
#include "ui/TabStrip.h"
#include "ui/Toolbar.h"

namespace orv::play {

namespace {

using automation::toUtf8;

Json items(const std::vector<std::u16string>& texts) {
    Json list = Json::array();
    for (const std::u16string& text : texts)
        list.push_back(itemText(text));
    return list;
}

Json gridRow(const ui::Spread& grid, int row) {
    Json cells = Json::array();
    for (int column = 1; column <= grid.maxCols(); ++column)
        cells.push_back(itemText(grid.shownText(column, row)));
    return cells;
}

Json content(const ui::Spread& grid) {
    Json rows = Json::array();
    const int last = grid.dataRowCount();
    for (int row = 1; row <= last; ++row)
        rows.push_back(gridRow(grid, row));
    const ui::CellRef active = grid.activeCell();
    return {{"titles", gridRow(grid, 0)},
            {"rows", rows},
            {"rowCount", grid.maxRows()},
            {"active", {{"col", active.column}, {"row", active.row}}}};
}

Json content(const ui::ComboBox& box) {
    return {{"items", items(box.items())}, {"index", box.listIndex()}, {"text", itemText(box.text())}};
}

Json content(const ui::ListView& list) {
    Json all = Json::array();
    for (const ui::ListView::Item& item : list.items())
        all.push_back({{"key", toUtf8(item.key)}, {"text", toUtf8(item.text)}, {"tag", toUtf8(item.tag)}});
    return {{"items", all}, {"selected", list.selected()}, {"view", static_cast<int>(list.view())}};
}

Json content(const ui::TabStrip& tabs) {
    Json all = Json::array();
    for (const ui::TabStrip::Tab& tab : tabs.tabs())
        all.push_back({{"key", toUtf8(tab.key)}, {"caption", toUtf8(tab.caption)}});
    return {{"tabs", all}, {"selected", toUtf8(tabs.selectedKey())}};
}

Json content(const ui::Toolbar& bar) {
    Json all = Json::array();
    for (const ui::Toolbar::ToolButton& button : bar.buttons())
        all.push_back({{"key", toUtf8(button.key)},
                       {"caption", toUtf8(button.caption)},
                       {"toolTip", toUtf8(button.toolTip)},
                       {"enabled", button.enabled}});
    return {{"buttons", all}};
}

std::string_view typeName(ui::CellType type) {
    switch (type) {
    case ui::CellType::edit:
        return "edit";
    case ui::CellType::comboBox:
        return "comboBox";
    case ui::CellType::checkBox:
        return "checkBox";
    case ui::CellType::staticText:
        return "staticText";
    case ui::CellType::wholeNumber:
        return "wholeNumber";
    case ui::CellType::decimal:
        return "decimal";
    case ui::CellType::date:
        return "date";
    case ui::CellType::time:
        return "time";
    }
    return "";
}

} // namespace

Json shown(const ui::Control& control) {
    Json result = Json::object();
    if (const auto* grid = dynamic_cast<const ui::Spread*>(&control))
        result = content(*grid);
    else if (const auto* box = dynamic_cast<const ui::ComboBox*>(&control))
        result = content(*box);
    else if (const auto* list = dynamic_cast<const ui::ListView*>(&control))
        result = content(*list);
    else if (const auto* tabs = dynamic_cast<const ui::TabStrip*>(&control))
        result = content(*tabs);
    else if (const auto* bar = dynamic_cast<const ui::Toolbar*>(&control))
        result = content(*bar);
    else if (const auto* picture = dynamic_cast<const ui::PictureBox*>(&control))
        result["top"] = picture->topTwips();
    else if (const auto* scroll = dynamic_cast<const ui::ScrollBar*>(&control))
        result = {{"value", scroll->value()}, {"maximum", scroll->maximum()}};
    if (const auto* captioned = dynamic_cast<const ui::CaptionControl*>(&control))
        result["caption"] = toUtf8(captioned->caption());
    if (const auto* check = dynamic_cast<const ui::CheckBox*>(&control))
        result["value"] = static_cast<int>(check->value());
    result["tag"] = toUtf8(control.tag());
    result["visible"] = control.visible();
    result["enabled"] = control.enabled();
    return result;
}

Json shownCell(const ui::Spread& grid, int column, int row) {
    const ui::CellFormat& format = grid.format(column, row);
    Json result = {{"text", itemText(grid.shownText(column, row))}, {"type", typeName(format.type)}};
    if (format.type == ui::CellType::comboBox) {
        result["items"] = items(grid.comboItems(column, row));
        result["selection"] = grid.comboSelection(column, row);
    }
    if (format.type == ui::CellType::edit)
        result["maxLength"] = format.maxLength;
    if (format.type == ui::CellType::wholeNumber || format.type == ui::CellType::decimal) {
        result["minimum"] = format.minimum;
        result["maximum"] = format.maximum;
        result["decimals"] = format.decimals;
    }
    if (format.type == ui::CellType::date)
        result["earliest"] = toUtf8(format.earliestDate);
    const ui::CellSpan span = grid.spanAt(column, row);
    result["span"] = {{"col", span.column}, {"columns", span.columns}};
    result["locked"] = grid.locked(column, row);
    return result;
}

} // namespace orv::play
