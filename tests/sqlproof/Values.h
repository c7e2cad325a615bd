#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What users type into value cells, with what each text means. Meanings stand here as constants: no routine of the
// control reads them.
namespace orv::sqlproof {

/// A number as it is typed.
struct NumberText {
    std::u16string text;
    /// The leading number that the control takes where it writes a number of its own; nothing: it must refuse the text.
    std::optional<double> leading;
    /// What the server reads where the text goes into the SQL as it is; nothing: it must refuse it.
    std::optional<double> asIs;
};

/// A date as it is typed.
struct DateText {
    std::u16string text;
    std::optional<std::u16string> day;    ///< yyyy-mm-dd; nothing: no date
    std::optional<std::u16string> moment; ///< what the server reads from the text itself, yyyy-mm-dd hh:mm:ss
};

/// "a,b,c" or "a AND b" with what its parts mean; nothing: the control must refuse it.
template <class Part>
struct Parts {
    std::u16string text;
    std::optional<std::vector<Part>> parts;
};

const std::vector<NumberText>& numberTexts();
const std::vector<Parts<double>>& numberLists();
const std::vector<Parts<double>>& numberRanges();

const std::vector<DateText>& dateTexts();
const std::vector<Parts<std::u16string>>& dateLists();
const std::vector<Parts<std::u16string>>& dateRanges();

/// Texts of every kind that is awkward in SQL.
const std::vector<std::u16string>& plainTexts();
const std::vector<Parts<std::u16string>>& textLists();

/// Numbers of days for the keywords that take one, and what is taken for it.
struct DayCount {
    std::u16string text;
    int days;
};
const std::vector<DayCount>& dayCounts();

/// What a text is once the server has read it between quotes; nothing when a quote in it ends it early.
std::optional<std::u16string> insideQuotes(std::u16string_view text);

} // namespace orv::sqlproof
