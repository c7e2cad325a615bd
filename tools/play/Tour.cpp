#include "play/Tour.h"

#include "automation/Text.h"
#include "play/TextTable.h"

#include <ostream>
#include <sstream>

namespace orv::play {

namespace {

constexpr std::string_view indent = "    ";
constexpr std::size_t lineWidth = 100;

/// A paragraph, broken at blanks.
void tell(std::ostream& out, const std::string& text) {
    std::istringstream words(text);
    std::string word, line;
    while (words >> word) {
        if (!line.empty() && displayWidth(line) + 1 + displayWidth(word) > lineWidth) {
            out << line << '\n';
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
    }
    out << line << '\n';
}

std::string plain(const Json& value) {
    return value.is_string() ? value.get<std::string>() : value.is_null() ? "" : value.dump();
}

/// A text of several lines, each indented.
void quote(std::ostream& out, const std::string& text) {
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line)) {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        out << indent << line << '\n';
    }
}

void tellGrid(std::ostream& out, const Json& grid) {
    std::vector<std::vector<std::string>> rows;
    const auto add = [&rows](const Json& cells, const std::string& first) {
        rows.emplace_back(1, first);
        for (const Json& cell : cells)
            rows.back().push_back(plain(cell).substr(0, plain(cell).rfind(" <")));
    };
    add(grid["titles"], "");
    for (const Json& row : grid["rows"])
        add(row, std::to_string(rows.size()));
    out << textTable(rows, indent);
}

/// The items of a combo box, the selected one in brackets.
void tellItems(std::ostream& out, const Json& box) {
    std::string text;
    int position = 0;
    for (const Json& item : box["items"]) {
        const std::string caption = plain(item).substr(0, plain(item).rfind(" <"));
        text += (position == 0 ? "" : "  ") + (box["index"] == position ? "[" + caption + "]" : caption);
        ++position;
    }
    out << indent << text << '\n';
}

void tellBills(std::ostream& out, const Json& list) {
    out << indent << plain(list["count"]) << " found; the first ones: ";
    std::string keys;
    for (const Json& key : list["keys"])
        keys += (keys.empty() ? "" : ", ") + plain(key);
    out << keys << '\n';
}

void tellResult(std::ostream& out, const Step& step, const StepOutcome& outcome) {
    if (step.verb == "rows" && outcome.result)
        return tellBills(out, *outcome.result);
    if (step.verb == "show" && outcome.result && outcome.result->contains("titles"))
        return tellGrid(out, *outcome.result);
    if (step.verb == "show" && outcome.result && outcome.result->contains("index"))
        return tellItems(out, *outcome.result);
    if (step.verb == "call" && outcome.args) {
        // What a call leaves in its arguments when it fails is of no use to its caller.
        if (outcome.result == Json(false))
            return;
        for (const Json& arg : *outcome.args)
            quote(out, plain(arg));
        return;
    }
    if (outcome.result)
        quote(out, step.verb == "show" ? plain(outcome.result->value("text", Json(outcome.result->dump())))
                                       : plain(*outcome.result));
}

} // namespace

void Tour::begins(const Scenario& scenario) {
    const std::string& title = scenario.title.empty() ? scenario.name : scenario.title;
    out_ << title << '\n' << std::string(displayWidth(title), '=') << "\n\n";
    if (!scenario.note.empty()) {
        tell(out_, scenario.note);
        out_ << '\n';
    }
}

void Tour::played(const Step& step, const StepOutcome& outcome, const std::vector<std::string>& failures) {
    // Steps that are not worth a note only prepare what follows; but trouble is always told.
    if (step.note.empty() && failures.empty())
        return;
    if (!step.note.empty())
        tell(out_, step.note);
    tellResult(out_, step, outcome);
    for (const ShownMessage& message : outcome.messages)
        out_ << indent << "[" << automation::toUtf8(message.title) << "] " << automation::toUtf8(message.text) << '\n';
    if (outcome.error)
        out_ << indent << "error " << outcome.error->number << ": " << automation::toUtf8(outcome.error->description)
             << '\n';
    for (const std::string& failure : failures)
        out_ << indent << "NOT AS EXPECTED: " << failure << '\n';
    out_ << '\n';
}

} // namespace orv::play
