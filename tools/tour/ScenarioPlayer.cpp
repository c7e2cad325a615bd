#include "tour/ScenarioPlayer.h"

#include "tour/Screen.h"
#include "tour/Text.h"
#include "tour/Wait.h"

#include <array>
#include <map>
#include <utility>

namespace orv::tour {

using nlohmann::json;

namespace {

std::wstring valueText(const json& value) {
    return wide(value.is_string() ? value.get<std::string>() : value.dump());
}

/// The pages of the tab strip by the grid that they hold.
int pageOf(const std::string& grid) {
    static const std::map<std::string, int> pages{{"vsFilter", 1}, {"vsOrder", 2}, {"vsHideColumn", 3}};
    return pages.at(grid);
}

/// What stands on the screen for a control of the scenario.
std::wstring screenText(const std::string& control) {
    static const std::map<std::string, std::wstring> captions{
        {"cboTime", L"时间"},       {"cboCheck", L"审核"},   {"cboPost", L"凭证"},      {"cmdInsert", L"插入"},
        {"cmdDel", L"删除"},        {"cmdDelAll", L"全删"},  {"cmdHide(0)", L"上移"},   {"cmdHide(1)", L"下移"},
        {"cmdHide(2)", L"全选"},    {"cmdHide(3)", L"全清"}, {"chkPage(0)", L"单据头"}, {"chkPage(1)", L"收款明细"},
        {"chkPage(2)", L"核销明细"}};
    return captions.at(control);
}

} // namespace

void ScenarioPlayer::play(const Scenario& scenario) {
    for (const json& step : scenario.steps())
        play(step);
}

void ScenarioPlayer::play(const json& step) {
    if (step.contains("row")) {
        fillRow(step);
    } else if (step.contains("cell")) {
        useCell(step);
    } else if (step.contains("answer")) {
        lookUp_ = valueText(step.at("answer").at("lookUp"));
    } else if (step.contains("key")) {
        hand_.lookUp(column_, row_, lookUp_);
    } else if (step.contains("select") && step.at("select") == "tbFilter") {
        hand_.openPage(step.at("index").get<int>());
    } else if (step.contains("select")) {
        openPageOf("vsFilter");
        hand_.select(hand_.screen().combo(screenText(step.at("select"))), valueText(step.at("item")));
    } else if (step.contains("check")) {
        openPageOf("vsFilter");
        const HWND box = hand_.screen().button(screenText(step.at("check")));
        const auto wanted = step.at("value").get<bool>() ? BST_CHECKED : BST_UNCHECKED;
        hand_.pressButton(box);
        awaited("a page box to be switched",
                [&] { return SendMessageW(box, BM_GETCHECK, 0, 0) == static_cast<LRESULT>(wanted); });
    } else if (step.contains("click")) {
        hand_.pressButton(hand_.screen().button(screenText(step.at("click"))));
    } else if (!step.contains("set") && !step.contains("call") && !step.contains("show") && !step.contains("rows")) {
        throw TourError("the tour cannot play the step " + step.dump());
    }
}

void ScenarioPlayer::openPageOf(const std::string& grid) {
    if (hand_.screen().page() != pageOf(grid))
        hand_.openPage(pageOf(grid));
}

void ScenarioPlayer::fillRow(const json& step) {
    constexpr int value = 4;
    static constexpr std::array<std::pair<const char*, int>, 3> before{{{"left", 1}, {"field", 2}, {"compare", 3}}};
    static constexpr std::array<std::pair<const char*, int>, 2> after{{{"right", 7}, {"logic", 8}}};
    openPageOf("vsFilter");
    const int row = step.at("row").get<int>();
    for (const auto& [key, column] : before)
        if (step.contains(key))
            hand_.choose(column, row, valueText(step.at(key)));
    if (step.contains("value")) {
        if (hand_.screen().grid().hasList(value, row))
            hand_.choose(value, row, valueText(step.at("value")));
        else
            hand_.enter(value, row, valueText(step.at("value")));
    }
    for (const auto& [key, column] : after)
        if (step.contains(key))
            hand_.choose(column, row, valueText(step.at(key)));
}

void ScenarioPlayer::useCell(const json& step) {
    const json& cell = step.at("cell");
    openPageOf(cell.at("grid"));
    column_ = cell.at("col").get<int>();
    row_ = cell.at("row").get<int>();
    if (step.contains("choose"))
        hand_.choose(column_, row_, valueText(step.at("choose")));
    else if (step.contains("text"))
        hand_.enter(column_, row_, valueText(step.at("text")));
    else if (step.contains("checked") && hand_.screen().grid().isChecked(column_, row_) != step.at("checked"))
        hand_.toggle(column_, row_);
    else
        hand_.go(column_, row_);
}

std::vector<std::vector<std::wstring>> shownRows(const Grid& grid, const std::vector<int>& columns, int keyColumn) {
    std::vector<std::vector<std::wstring>> rows;
    for (int row = 1, last = grid.rows(); row <= last && !grid.text(keyColumn, row).empty(); ++row) {
        rows.emplace_back();
        for (const int column : columns)
            rows.back().push_back(grid.text(column, row));
    }
    return rows;
}

} // namespace orv::tour
