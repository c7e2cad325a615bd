#include "tour/Scenario.h"

#include "tour/Text.h"
#include "tour/Wait.h"

#include <fstream>

namespace orv::tour {

using nlohmann::json;

namespace {

std::ifstream open(const std::string& file) {
    std::ifstream in(file);
    if (!in)
        throw TourError("cannot read " + file);
    return in;
}

/// "日期 <2>" reads as "日期".
std::wstring withoutKey(const std::string& shown) {
    const bool hasKey = shown.ends_with('>');
    return wide(hasKey ? shown.substr(0, shown.rfind(" <")) : shown);
}

} // namespace

Scenario::Scenario(const std::string& file, const std::string& results) {
    auto in = open(file);
    steps_ = json::parse(in).at("steps").get<std::vector<json>>();
    auto lines = open(results);
    for (std::string line; std::getline(lines, line);)
        results_.push_back(json::parse(line));
    if (results_.size() != steps_.size())
        throw TourError(results + " is not what " + file + " gives when it is played without a window");
}

json Scenario::resultOf(const std::string& verb, const std::string& name) const {
    for (std::size_t i = steps_.size(); i-- > 0;)
        if (steps_[i].contains(verb) && (name.empty() || steps_[i][verb] == name))
            return results_[i];
    throw TourError("the scenario has no step \"" + verb + "\" for " + name);
}

std::wstring Scenario::filterSql() const {
    return wide(resultOf("call", "GetFilterSql").at("args").at(0).get<std::string>());
}

std::wstring Scenario::headSort() const {
    return wide(resultOf("call", "GetSortString").at("args").at(0).get<std::string>());
}

std::wstring Scenario::entrySort() const {
    return wide(resultOf("call", "GetSortString").at("args").at(1).get<std::string>());
}

long Scenario::bills() const {
    return resultOf("rows", {}).at("result").at("count").get<long>();
}

std::vector<std::vector<std::wstring>> Scenario::rowsOf(const std::string& grid) const {
    std::vector<std::vector<std::wstring>> rows;
    const json shown = resultOf("show", grid);
    for (const json& row : shown.at("result").at("rows")) {
        rows.emplace_back();
        for (const json& cell : row)
            rows.back().push_back(withoutKey(cell.get<std::string>()));
    }
    return rows;
}

} // namespace orv::tour
