#include "automation/Text.h"
#include "play/Captions.h"
#include "play/ScenarioError.h"
#include "play/Session.h"
#include "play/StepOutcome.h"
#include "play/StepReader.h"
#include "play/Steps.h"

#include <algorithm>

namespace orv::play {

namespace {

// Columns of the condition grid.
constexpr int leftColumn = 1;
constexpr int fieldColumn = 2;
constexpr int compareColumn = 3;
constexpr int valueColumn = 4;
constexpr int timeColumn = 5;
constexpr int rightColumn = 7;
constexpr int logicColumn = 8;

std::string cellName(const ui::Spread& grid, int column, int row) {
    return automation::toUtf8(grid.name()) + " column " + std::to_string(column) + ", row " + std::to_string(row);
}

void checkCell(const ui::Spread& grid, int column, int row) {
    if (column < 0 || column > grid.maxCols() || row < 0 || row > grid.maxRows())
        throw ScenarioError(cellName(grid, column, row) + " is outside of the grid: it has " +
                            std::to_string(grid.maxCols()) + " columns and " + std::to_string(grid.maxRows()) +
                            " rows");
}

/// A user in a grid: the first thing that he is refused ends what he does there, and is told in the outcome.
class GridUser {
  public:
    GridUser(ui::Spread& grid, int row, StepOutcome& outcome) : grid_(grid), row_(row), outcome_(outcome) {}

    bool refused() const { return !outcome_.refused.empty(); }

    void enter(int column) {
        if (!refused() && !grid_.userMoveTo(column, row_))
            outcome_.refused = cellName(grid_, column, row_) + " could not be entered";
    }

    void click(int column) {
        const ui::CellSpan target = grid_.spanAt(column, row_);
        grid_.userClick(column, row_);
        if (column > 0 && row_ > 0 && grid_.activeCell() != ui::CellRef{target.column, target.row})
            outcome_.refused = cellName(grid_, column, row_) + " could not be entered";
    }

    void choose(int column, const Json& choice) {
        if (refused())
            return;
        const std::string what = cellName(grid_, column, row_);
        if (grid_.cellType(column, row_) != ui::CellType::comboBox)
            throw ScenarioError(what + " has no list to choose from");
        const auto& items = grid_.comboItems(column, row_);
        const bool empties = choice == "" && std::ranges::find(items, std::u16string()) == items.end();
        const int position = empties ? -1 : findItem(items, choice, what);
        if (!grid_.userChoose(column, row_, position))
            outcome_.refused = what + " could not be changed";
    }

    void type(int column, const std::u16string& text) {
        if (!refused() && !grid_.userType(column, row_, text))
            outcome_.refused = cellName(grid_, column, row_) + " does not take \"" + automation::toUtf8(text) + "\"";
    }

    void tick(int column, bool checked) {
        if (refused())
            return;
        if (grid_.cellType(column, row_) != ui::CellType::checkBox)
            throw ScenarioError(cellName(grid_, column, row_) + " is no check box");
        if (grid_.isChecked(column, row_) != checked && !grid_.userToggle(column, row_))
            outcome_.refused = cellName(grid_, column, row_) + " could not be changed";
    }

    /// The value of a condition: from the list where there is one that has it, into two cells where date and time
    /// are apart, typed else.
    void fillValue(const std::u16string& value) {
        if (refused())
            return;
        const ui::CellFormat& format = grid_.format(valueColumn, row_);
        if (format.type == ui::CellType::comboBox && !(format.freeText && !listHas(value))) {
            choose(valueColumn, Json(automation::toUtf8(value)));
            return;
        }
        const bool timeApart = grid_.spanAt(timeColumn, row_).column == timeColumn &&
                               grid_.cellType(timeColumn, row_) == ui::CellType::time;
        const std::size_t blank = timeApart ? value.find(u' ') : std::u16string::npos;
        type(valueColumn, value.substr(0, blank));
        if (blank != std::u16string::npos) {
            enter(timeColumn);
            type(timeColumn, value.substr(blank + 1));
        }
    }

  private:
    bool listHas(const std::u16string& caption) const {
        return std::ranges::any_of(grid_.comboItems(valueColumn, row_),
                                   [&](const std::u16string& item) { return captionOf(item) == captionOf(caption); });
    }

    ui::Spread& grid_;
    int row_;
    StepOutcome& outcome_;
};

/// The first line of the condition grid that holds nothing.
int freeLine(const ui::Spread& grid) {
    for (int row = 1; row <= grid.maxRows(); ++row) {
        bool empty = true;
        for (int column = 1; column <= grid.maxCols(); ++column)
            empty = empty && grid.text(column, row).empty();
        if (empty)
            return row;
    }
    throw ScenarioError("every line of the condition grid is in use");
}

/// A text or a number, as the user would type it.
std::u16string typedValue(const Json& value) {
    if (value.is_string())
        return automation::fromUtf8(value.get_ref<const std::string&>());
    if (!value.is_number())
        throw ScenarioError("\"value\" must be a text or a number");
    return automation::fromUtf8(value.dump());
}

int keyCode(const std::string& name) {
    constexpr int f1 = 112;
    struct NamedKey {
        std::string_view name;
        int code;
    };
    constexpr NamedKey named[] = {{"Tab", 9},    {"Enter", 13}, {"Escape", 27}, {"Left", 37},  {"Up", 38},
                                  {"Right", 39}, {"Down", 40},  {"Insert", 45}, {"Delete", 46}};
    for (const NamedKey& key : named) {
        if (key.name == name)
            return key.code;
    }
    for (int i = 1; i <= 12; ++i) {
        if (name == "F" + std::to_string(i))
            return f1 + i - 1;
    }
    throw ScenarioError("no key \"" + name +
                        "\" (there are F1 to F12, Tab, Enter, Escape, Left, Up, Right, Down, Insert, Delete)");
}

} // namespace

void rowStep(Session& session, const Json& step, StepOutcome& outcome) {
    ui::Spread& grid = session.filter().controls().vsFilter;
    const bool numbered = step["row"].is_number_integer();
    if (!numbered && step["row"] != true)
        throw ScenarioError("\"row\" must be true or the number of a line");
    const int row = numbered ? numberOf(step, "row") : freeLine(grid);
    if (row < 1 || row > grid.maxRows())
        throw ScenarioError("the condition grid has no line " + std::to_string(row));
    GridUser user(grid, row, outcome);
    const auto chooseIfNamed = [&](const char* key, int column) {
        if (!has(step, key))
            return;
        user.enter(column);
        user.choose(column, step[key]);
    };
    chooseIfNamed("left", leftColumn);
    chooseIfNamed("field", fieldColumn);
    chooseIfNamed("compare", compareColumn);
    if (has(step, "value")) {
        user.enter(valueColumn);
        user.fillValue(typedValue(step["value"]));
    }
    chooseIfNamed("right", rightColumn);
    chooseIfNamed("logic", logicColumn);
}

void cellStep(Session& session, const Json& step, StepOutcome& outcome) {
    const Json& cell = objectOf(step, "cell");
    ui::Spread& grid = session.grid(utf8Of(cell, "grid"));
    const int column = numberOf(cell, "col");
    const int row = numberOf(cell, "row");
    if (cell.size() != 3)
        throw ScenarioError("\"cell\" has the keys \"grid\", \"col\" and \"row\"");
    checkCell(grid, column, row);
    if (has(step, "text") + has(step, "choose") + has(step, "checked") > 1)
        throw ScenarioError("only one of \"text\", \"choose\" and \"checked\" can be done in one step");
    GridUser user(grid, row, outcome);
    user.click(column);
    if (has(step, "text"))
        user.type(column, textOf(step, "text"));
    if (has(step, "choose"))
        user.choose(column, step["choose"]);
    if (has(step, "checked"))
        user.tick(column, flagOf(step, "checked"));
}

void keyStep(Session& session, const Json& step, StepOutcome&) {
    const int code = keyCode(utf8Of(step, "key"));
    const std::string grid = has(step, "grid") ? utf8Of(step, "grid") : "vsFilter";
    session.grid(grid).userKeyDown(code, has(step, "shift") && flagOf(step, "shift") ? 1 : 0);
}

} // namespace orv::play
