#include "sqlproof/FilterText.h"

#include "automation/Records.h"
#include "conditions/GridRows.h"

#include <stdexcept>

namespace orv::sqlproof {

using namespace conditions;

namespace {

/// Answers for today alone: without panel and quick filters nothing else may be asked.
class OnlyToday final : public FilterSqlSource {
  public:
    explicit OnlyToday(int today) : today_(today) {}
    double date() override { return today_; }
    CurrentPeriod currentPeriod() override { unexpected(); }
    std::int32_t wageClassId() override { unexpected(); }
    bool typeList() override { unexpected(); }
    metadata::FieldRef fieldAt(std::int32_t) override { unexpected(); }

  private:
    [[noreturn]] static void unexpected() { throw std::logic_error("the filter text asked for more than the date"); }
    int today_;
};

metadata::FieldRef fieldNamed(const std::u16string& column) {
    const automation::Dictionary record = automation::makeDictionary();
    record.set(metadata::fieldKey::caption, column);
    return std::make_shared<metadata::FieldRecord>(record);
}

ConditionRow rowOf(const Line& line) {
    ConditionRow row = NewConditionRow();
    row.FFieldKey = line.column;
    row.FFieldName = line.column;
    row.FColType = line.question.colType;
    row.FCompareDct = std::make_shared<CompareEntry>(line.question.entry);
    row.FCompareIndex = 1;
    row.HDict = fieldNamed(line.column);
    return row;
}

} // namespace

std::u16string filterText(const std::vector<Line>& lines) {
    ui::Spread grid(u"vsFilter");
    grid.setMaxCols(gridColumn::logic);
    grid.setMaxRows(static_cast<int>(lines.size()) + 1);
    std::vector<ConditionRow> rows;
    for (const Line& line : lines) {
        rows.push_back(rowOf(line));
        const int number = static_cast<int>(rows.size());
        grid.setText(gridColumn::left, number, line.left);
        grid.setText(gridColumn::field, number, line.column);
        grid.setText(gridColumn::value, number, line.question.value);
        grid.setText(gridColumn::right, number, line.right);
        ui::CellFormat logic;
        logic.type = ui::CellType::comboBox;
        grid.setFormat(gridColumn::logic, number, logic);
        grid.setComboList(gridColumn::logic, number, u"AND\tOR");
        grid.setComboSelection(gridColumn::logic, number, line.orNext ? 1 : 0);
    }
    const ui::ControlArray<ui::Label> noLabels{u"lblFilter", 1};
    const ui::ControlArray<ui::ComboBox> noLists{u"cmbFilter", 1};
    OnlyToday source(lines.front().question.today);
    std::u16string context;
    std::u16string text;
    appendFilterSql({grid, noLabels, noLists, u"", {}}, rows, source, context, text);
    return text;
}

} // namespace orv::sqlproof
