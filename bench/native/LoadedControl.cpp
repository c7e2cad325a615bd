#include "bench/native/LoadedControl.h"

#include "automation/Records.h"
#include "automation/Text.h"
#include "conditions/GridRows.h"

#include <stdexcept>
#include <string_view>
#include <utility>

namespace orv::bench {

namespace column = conditions::gridColumn;

namespace {

/// Chooses the item of a combo cell whose caption is `caption`.
void choose(ui::Spread& grid, int col, int row, std::u16string_view caption) {
    const auto& items = grid.comboItems(col, row);
    for (std::size_t i = 0; i < items.size(); ++i) {
        const bool same = items[i].starts_with(caption) && items[i].substr(caption.size(), 1) == u" ";
        if (same && grid.userChoose(col, row, static_cast<int>(i)))
            return;
    }
    throw std::runtime_error("no item " + automation::toUtf8(caption));
}

} // namespace

LoadedControl::LoadedControl(std::int32_t fields) : LoadedControl(std::make_shared<LargeHost>(fields)) {}

LoadedControl::LoadedControl(std::shared_ptr<LargeHost> usedHost) : sharedHost(std::move(usedHost)) {
    filter.put_dctControl(automation::makeDictionary());
    filter.put_DataSrv(host.dataService(firstLargeClassType));
    filter.put_SetSelectPageList(u",1*,2,");
    if (!filter.Initialize(largeClassTypes))
        throw std::runtime_error("Initialize failed");
}

void LoadedControl::enter(const std::vector<PlainCondition>& conditions) {
    ui::Spread& grid = filter.controls().vsFilter;
    constexpr std::u16string_view prefix = u"t_Large.F";
    for (std::size_t i = 0; i < conditions.size(); ++i) {
        const PlainCondition& condition = conditions[i];
        const int row = static_cast<int>(i) + 1;
        choose(grid, column::field, row, u"字段" + condition.column.substr(prefix.size()));
        choose(grid, column::comparison, row, condition.comparison);
        const bool lookUp = condition.control == u"1"; // its cell is filled by a dialog, not typed
        if (lookUp)
            grid.setText(column::value, row, condition.value);
        else if (!condition.value.empty() && !grid.userType(column::value, row, condition.value))
            throw std::runtime_error("the cell refuses " + automation::toUtf8(condition.value));
        grid.setText(column::left, row, condition.left);
        grid.setText(column::right, row, condition.right);
        if (!condition.logic.empty())
            grid.setComboSelection(column::logic, row, condition.logic == u" AND " ? 0 : 1);
    }
}

} // namespace orv::bench
