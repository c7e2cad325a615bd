#include "ui/Spread.h"

#include <utility>

// What a user does with a grid. Every event may have changed, resized or destroyed the grid: each step after one asks
// again whether its cell is still there.
namespace orv::ui {

namespace {

/// Raises a flag for as long as a call runs, unless the flag's owner goes first.
class Running {
  public:
    Running(bool& flag, std::weak_ptr<const void> owner) : flag_(flag), owner_(std::move(owner)) { flag_ = true; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running() {
        if (!owner_.expired())
            flag_ = false;
    }

  private:
    bool& flag_;
    std::weak_ptr<const void> owner_;
};

} // namespace

bool Spread::userMoveTo(int column, int row) {
    check(column, row);
    if (!enabled() || column == 0 || row == 0 || columnAt(column).hidden)
        return false;
    const CellRef target = spanOrigin(column, row);
    if (target == active_)
        return true;
    if (leaving_ || !askToLeave(target) || !inGrid(target.column, target.row))
        return false;
    activate(target);
    return true;
}

/// False when a handler cancels, or when the grid did not outlive it.
bool Spread::askToLeave(CellRef target) {
    const auto alive = lifetime();
    const Running leaving(leaving_, alive);
    const CellRef from = active_;
    bool cancel = false;
    leaveCell.raise(from.column, from.row, target.column, target.row, cancel);
    if (cancel || alive.expired())
        return false;
    if (from.row != target.row)
        leaveRow.raise(from.row, target.row, cancel);
    return !cancel && !alive.expired();
}

bool Spread::userLeave() {
    if (leaving_)
        return true;
    const auto alive = lifetime();
    if (editMode_) {
        bool refused = false;
        confirmEdit.raise(refused);
        if (alive.expired() || refused)
            return false;
        setEditMode(false);
        if (alive.expired())
            return false;
    }
    const Running leaving(leaving_, alive);
    bool cancel = false;
    leaveCell.raise(active_.column, active_.row, -1, -1, cancel);
    return !cancel && !alive.expired();
}

bool Spread::userType(int column, int row, std::u16string text) {
    check(column, row);
    const CellRef cell = spanOrigin(column, row);
    if (!editable(cell.column, cell.row))
        return false;
    const CellFormat& cellFormat = format(cell.column, cell.row);
    if (cellFormat.type == CellType::comboBox) {
        const auto& items = comboItems(cell.column, cell.row);
        for (std::size_t i = 0; i < items.size(); ++i) {
            if (items[i] == text)
                return userChoose(cell.column, cell.row, static_cast<int>(i));
        }
        if (text.empty())
            return userChoose(cell.column, cell.row, -1);
        if (!cellFormat.freeText)
            return false;
    }
    std::optional<std::u16string> stored = storedFromTyped(cellFormat, text);
    if (!stored)
        return false;
    const auto alive = lifetime();
    setText(cell.column, cell.row, *std::move(stored));
    if (!alive.expired() && inGrid(cell.column, cell.row))
        cellChanged.raise(cell.column, cell.row);
    return true;
}

bool Spread::userChoose(int column, int row, int position) {
    check(column, row);
    const CellRef cell = spanOrigin(column, row);
    if (!editable(cell.column, cell.row) || cellType(cell.column, cell.row) != CellType::comboBox)
        return false;
    if (position < -1 || position >= static_cast<int>(comboItems(cell.column, cell.row).size()))
        return false;
    const auto alive = lifetime();
    storeSelection(cell.column, cell.row, position);
    if (!alive.expired() && inGrid(cell.column, cell.row))
        comboSelectionChange.raise(cell.column, cell.row);
    if (!alive.expired() && inGrid(cell.column, cell.row))
        cellChanged.raise(cell.column, cell.row);
    return true;
}

bool Spread::userToggle(int column, int row) {
    check(column, row);
    const CellRef cell = spanOrigin(column, row);
    if (!editable(cell.column, cell.row) || cellType(cell.column, cell.row) != CellType::checkBox)
        return false;
    setChecked(cell.column, cell.row, !isChecked(cell.column, cell.row));
    return true;
}

void Spread::userClick(int column, int row) {
    check(column, row);
    if (!enabled())
        return;
    const CellRef cell = spanOrigin(column, row);
    const auto alive = lifetime();
    click.raise(cell.column, cell.row);
    if (!alive.expired() && inGrid(cell.column, cell.row))
        userMoveTo(cell.column, cell.row);
}

void Spread::userKeyDown(int keyCode, int shift) {
    if (enabled())
        keyDown.raise(keyCode, shift);
}

} // namespace orv::ui
