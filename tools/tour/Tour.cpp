#include "tour/Tour.h"

#include "erp/windows/ui/WindowNames.h"
#include "tour/FilterScreen.h"
#include "tour/Input.h"
#include "tour/KeyboardHand.h"
#include "tour/MouseHand.h"
#include "tour/Resolution.h"
#include "tour/ScenarioPlayer.h"
#include "tour/Screen.h"
#include "tour/Text.h"
#include "tour/Wait.h"

namespace orv::tour {

namespace {

constexpr const wchar_t* schemeName = L"食品客户本月收款";
/// Columns of the condition grid: bracket, field, comparison, value, bracket, logic. The value covers three.
const std::vector<int> conditionColumns{1, 2, 3, 4, 7, 8};
constexpr int fieldColumn = 2;

/// The same columns of rows that have all of them.
std::vector<std::vector<std::wstring>> picked(const std::vector<std::vector<std::wstring>>& rows,
                                              const std::vector<int>& columns) {
    std::vector<std::vector<std::wstring>> result;
    for (const auto& row : rows) {
        result.emplace_back();
        for (const int column : columns)
            result.back().push_back(row[static_cast<std::size_t>(column - 1)]);
    }
    return result;
}

std::wstring joined(const std::vector<std::vector<std::wstring>>& rows) {
    std::wstring text;
    for (const auto& row : rows)
        for (const std::wstring& cell : row)
            text += cell + (&cell == &row.back() ? L"\n" : L"|");
    return text;
}

} // namespace

bool Tour::run() {
    showList();
    composeByKeyboard();
    composeByMouse();
    keepSchemeOverRestart();
    refuseLetters();
    showOtherClassTypes();
    close();
    showEnglish();
    showHighResolution();
    report_.check("the tour has come to its end", true);
    return report_.failed() == 0;
}

void Tour::stopped(const std::string& why) {
    report_.check("the tour has come to its end", false, wide(why));
    report_.shot("stopped", GetDesktopWindow());
}

void Tour::start(const std::wstring& more) {
    program_ = std::make_unique<Program>(L"\"" + options_.program + L"\" --db \"" + options_.database +
                                             L"\" --now \"2024-02-29 10:00:00\" --size 1100x700 " + more,
                                         options_.desktop);
    list_ = std::make_unique<ListScreen>(program_->window());
    awaitFocus(list_->list(), "the list");
}

void Tour::close() {
    awaitFocus(list_->window(), "the list window");
    const DWORD code = program_->close();
    report_.check("the list window's program ends with 0", code == 0, std::to_wstring(code));
    list_ = nullptr;
    program_ = nullptr;
}

Scenario Tour::scenario(const std::string& name) const {
    return Scenario(options_.scenarios + "/" + name + ".json", options_.results + "/" + name + ".jsonl");
}

void Tour::tellConditions(const FilterScreen& screen) {
    for (const auto& row : shownRows(screen.grid(), conditionColumns, fieldColumn)) {
        std::wstring line;
        for (const std::wstring& cell : row)
            line += cell.empty() ? L"" : cell + L"  ";
        report_.say(line);
    }
}

/// What the list window got from the control, against what the same scenario gives without a window.
void Tour::checkResult(const std::string& who, const Scenario& played) {
    const std::wstring expected = played.filterSql();
    comesTrue([&] { return list_->sql(L"GetFilterSql") == expected; }, 10'000);
    report_.say(L"GetFilterSql: " + wide(escaped(list_->sql(L"GetFilterSql"))));
    report_.say(list_->counts());
    report_.checkEqual(who + ": the SQL on the screen is that of the scenario played without a window",
                       list_->sql(L"GetFilterSql"), expected);
    report_.checkEqual(who + ": the sort text is the same", list_->sql(L"GetSortString (HeadSort)"), played.headSort());
    report_.checkEqual(who + ": as many bills are found", std::to_wstring(list_->bills()),
                       std::to_wstring(played.bills()));
    report_.check(who + ": the keyboard is back in the list",
                  comesTrue([this] { return focusIn(list_->window()) == list_->list(); }, 3000));
}

void Tour::showList() {
    report_.chapter("The list window");
    start();
    report_.say(textOf(list_->window()));
    report_.say(list_->counts());
    report_.shot("01-list", list_->window());
    press(VK_F4);
    awaited("F4 to show the SQL", [this] { return isShown(GetDlgItem(list_->window(), erp::window::sql)); });
}

void Tour::composeByKeyboard() {
    report_.chapter("A filter by the keyboard alone");
    const Scenario played = scenario("keyboard");
    press(VK_F3);
    const FilterScreen screen;
    report_.check("the filter dialog belongs to the list window",
                  GetWindow(screen.dialog(), GW_OWNER) == list_->window() && !IsWindowEnabled(list_->window()));
    report_.check("the control's window stands in the dialog", IsChild(screen.dialog(), screen.gridWindow()));
    report_.shot("02-filter", screen.dialog());
    KeyboardHand keys(screen, report_);
    ScenarioPlayer(keys).play(played);
    tellConditions(screen);
    const auto wanted = joined(picked(played.rowsOf("vsFilter"), conditionColumns));
    const auto shown = [&] { return joined(shownRows(screen.grid(), conditionColumns, fieldColumn)); };
    report_.checkEqual("keyboard: the grid shows what the scenario shows without a window", shown(), wanted);
    report_.shot("02-conditions", screen.dialog());

    report_.chapter("Saved as a scheme, cleared and opened again by the keyboard");
    keys.pressTool(1);
    const HWND form = awaitTop(L"#32770", L"保存方案");
    awaitFocus(form, "the scheme dialog");
    report_.check("the scheme dialog belongs to the filter dialog", GetWindow(form, GW_OWNER) == screen.dialog());
    const HWND name = awaitWithin(form, L"Edit");
    press('A', {VK_CONTROL});
    type(schemeName);
    awaited("the scheme's name", [name] { return textOf(name) == schemeName; });
    report_.shot("04-save-scheme", form);
    press(VK_RETURN);
    awaitGone(form, "the scheme dialog");
    report_.check("the scheme stands in the list", comesTrue([&] { return screen.findScheme(schemeName) >= 0; }, 5000));
    keys.pressTool(3);
    awaited("the conditions to be cleared", [&] { return screen.grid().text(fieldColumn, 1).empty(); });
    keys.openScheme(schemeName);
    report_.check("the scheme brings the conditions back", comesTrue([&] { return shown() == wanted; }, 5000), shown());
    report_.shot("04-scheme-opened", screen.dialog());
    keys.accept();
    checkResult("keyboard", played);
    report_.shot("11-list-found", list_->window());
}

void Tour::composeByMouse() {
    report_.chapter("A filter by the mouse alone");
    const Scenario played = scenario("mouse");
    click(placeOf(list_->filterButton()));
    const FilterScreen screen;
    MouseHand mouse(screen, report_);
    mouse.pressTool(3);
    awaited("the conditions to be cleared", [&] { return screen.grid().text(fieldColumn, 1).empty(); });
    ScenarioPlayer(mouse).play(played);
    const auto rows = [&](const std::vector<int>& columns, int key) {
        return joined(shownRows(screen.grid(), columns, key));
    };
    report_.checkEqual("mouse: the columns are those of the scenario", rows({1, 2, 3, 4}, 1),
                       joined(picked(played.rowsOf("vsHideColumn"), {1, 2, 3, 4})));
    report_.shot("07-columns", screen.dialog());
    mouse.openPage(2);
    report_.checkEqual("mouse: the sort order is that of the scenario", rows({1, 2, 3}, 1),
                       joined(picked(played.rowsOf("vsOrder"), {1, 2, 3})));
    report_.shot("06-sort", screen.dialog());
    mouse.openPage(1);
    tellConditions(screen);
    report_.shot("05-conditions-mouse", screen.dialog());
    mouse.accept();
    checkResult("mouse", played);
    const std::wstring captions = list_->copiedCaptions();
    report_.say(captions);
    report_.check("mouse: the hidden column has left the list", captions.find(L"收款类型") == std::wstring::npos,
                  captions);
    report_.check("mouse: the column that was moved up stands first", captions.starts_with(L"单据编号\t日期"),
                  captions);
    report_.shot("11-list-columns", list_->window());
}

void Tour::keepSchemeOverRestart() {
    report_.chapter("The scheme after a new start");
    close();
    start();
    press(VK_F3);
    const FilterScreen screen;
    report_.check("the scheme is still there", screen.findScheme(schemeName) >= 0);
    press(VK_ESCAPE);
    awaitGone(screen.dialog(), "the filter dialog");
}

void Tour::refuseLetters() {
    report_.chapter("A message box");
    const Scenario played = scenario("message");
    press(VK_F3);
    const FilterScreen screen;
    KeyboardHand keys(screen, report_);
    keys.pressTool(3);
    awaited("the conditions to be cleared", [&] { return screen.grid().text(fieldColumn, 1).empty(); });
    ScenarioPlayer(keys).play(played);
    tellConditions(screen);
    const std::wstring before = list_->sql(L"GetFilterSql");
    press(VK_RETURN);
    const HWND box = awaitTop(L"#32770");
    std::wstring told;
    for (const HWND part : shownWithin(box, L"Static"))
        told += textOf(part);
    report_.say(L"the box says: " + told);
    report_.checkEqual("the box says what the scenario says without a window", told,
                       wide(played.resultOf("call", "GetFilterSql")["messages"][0]["text"].get<std::string>()));
    report_.check("the box belongs to the filter dialog", GetWindow(box, GW_OWNER) == screen.dialog());
    report_.shot("08-message", screen.dialog());
    press(VK_RETURN);
    awaitGone(box, "the message box");
    report_.check("the dialog stays open", isShown(screen.dialog()));
    report_.check("the keyboard is back in the control",
                  comesTrue([&] { return IsChild(screen.control(), focusIn(screen.dialog())); }, 3000));
    press(VK_ESCAPE);
    awaitGone(screen.dialog(), "the filter dialog");
    report_.checkEqual("a cancelled dialog changes no list", list_->sql(L"GetFilterSql"), before);
}

void Tour::showOtherClassTypes() {
    report_.chapter("Other class types");
    for (const auto& [number, name, picture] :
         {std::tuple{1000301, L"销售出库单", "12-deliveries"}, std::tuple{1000801, L"凭证", "12-vouchers"}}) {
        close();
        start(L"--class-type " + std::to_wstring(number));
        report_.say(textOf(list_->window()) + L": " + list_->counts());
        report_.check("the list window shows " + utf8(name), textOf(list_->window()).starts_with(name));
        report_.check("there are bills of " + utf8(name), list_->bills() > 0);
        report_.shot(picture, list_->window());
        press(VK_F3);
        const FilterScreen screen;
        report_.shot(std::string(picture) + "-filter", screen.dialog());
        press(VK_ESCAPE);
        awaitGone(screen.dialog(), "the filter dialog");
    }
}

void Tour::showEnglish() {
    report_.chapter("English");
    start(L"--lang EN");
    report_.say(textOf(list_->window()) + L": " + list_->counts());
    press(VK_F3);
    const FilterScreen screen;
    report_.checkEqual("the filter dialog is English", textOf(screen.dialog()), L"Filter");
    report_.checkEqual("the control is English", screen.grid().name(), L"Conditions");
    report_.shot("09-english", list_->window());
    KeyboardHand keys(screen, report_);
    keys.openPage(2);
    report_.shot("09-english-sort", screen.dialog());
    keys.openPage(3);
    report_.shot("09-english-columns", screen.dialog());
    press(VK_ESCAPE);
    awaitGone(screen.dialog(), "the filter dialog");
    close();
}

void Tour::showHighResolution() {
    report_.chapter("150 % of the usual resolution");
    const Resolution resolution(144);
    start();
    report_.shot("10-list-150", list_->window());
    press(VK_F3);
    const FilterScreen screen;
    const RECT place = placeOf(screen.dialog());
    report_.check("the filter dialog has grown with the resolution", place.right - place.left > 1200,
                  std::to_wstring(place.right - place.left));
    report_.shot("10-filter-150", screen.dialog());
    press(VK_ESCAPE);
    awaitGone(screen.dialog(), "the filter dialog");
    close();
}

} // namespace orv::tour
