#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace orv::tour {

/// A scenario file that the screen tour plays as well, with what came out when it was played without a window.
class Scenario {
  public:
    /// `file`: the scenario; `results`: the lines that filterplay printed for it. Raises TourError.
    Scenario(const std::string& file, const std::string& results);

    const std::vector<nlohmann::json>& steps() const noexcept { return steps_; }

    /// What came of the last step `{"call": member}`.
    nlohmann::json resultOf(const std::string& verb, const std::string& name) const;
    std::wstring filterSql() const;
    std::wstring headSort() const;
    std::wstring entrySort() const;
    long bills() const;
    /// The used lines of a grid as the step `{"show": grid}` gave them, hidden keys removed.
    std::vector<std::vector<std::wstring>> rowsOf(const std::string& grid) const;

  private:
    std::vector<nlohmann::json> steps_;
    std::vector<nlohmann::json> results_;
};

} // namespace orv::tour
