#pragma once

#include "tour/Hand.h"
#include "tour/Report.h"
#include "tour/Scenario.h"

#include <functional>

namespace orv::tour {

/// Plays on the screen what a scenario's user does: the steps `row`, `cell`, `answer` with `key`, `select`, `check` and
/// `click`. Steps of the host and those that only show are passed over. Raises TourError for others.
class ScenarioPlayer {
  public:
    explicit ScenarioPlayer(Hand& hand) : hand_(hand) {}

    void play(const Scenario& scenario);

  private:
    void play(const nlohmann::json& step);
    void fillRow(const nlohmann::json& step);
    void useCell(const nlohmann::json& step);
    void openPageOf(const std::string& grid);

    Hand& hand_;
    std::wstring lookUp_;
    int column_ = 0;
    int row_ = 0;
};

/// The used lines of the grid that is on the screen: those with a text in a column.
std::vector<std::vector<std::wstring>> shownRows(const Grid& grid, const std::vector<int>& columns, int keyColumn);

} // namespace orv::tour
