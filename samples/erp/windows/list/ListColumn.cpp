#include "erp/windows/list/ListColumn.h"

#include <algorithm>
#include <array>

namespace orv::erp {

namespace {

/// The caption without the header's marks: "$" ends a plain one, "+|" stands for each further column of a group.
std::wstring plainCaption(const std::wstring& first) {
    std::wstring text = first.substr(0, first.find(L'+'));
    if (text.ends_with(L'$'))
        text.pop_back();
    return text;
}

/// How many columns a group's first caption says that it has.
std::size_t columnsOf(const std::wstring& first) {
    std::size_t count = 1;
    for (std::size_t at = first.find(L"+|"); at != std::wstring::npos; at = first.find(L"+|", at + 2))
        ++count;
    return count;
}

} // namespace

bool isNumeric(const ListColumn& column) {
    // Whole numbers, amounts, years, rates, discounts, expressions; negative codes are flags and the like.
    constexpr std::array numericTypes{4L, 6L, 8L, 9L, 10L, 501L};
    return column.valueTexts.empty() && std::ranges::find(numericTypes, column.type) != numericTypes.end();
}

std::vector<HeadingCell> headingOf(const std::vector<ListColumn>& shown) {
    const bool hasGroups = std::ranges::any_of(shown, [](const ListColumn& column) { return !column.second.empty(); });
    std::vector<HeadingCell> cells;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const ListColumn& column = shown[i];
        if (!hasGroups) {
            cells.push_back({plainCaption(column.first), i, 1, 0, 1});
        } else if (column.second.empty()) {
            cells.push_back({plainCaption(column.first), i, 1, 0, 2});
        } else {
            if (!column.first.empty())
                cells.push_back(
                    {plainCaption(column.first), i, std::min(columnsOf(column.first), shown.size() - i), 0, 1});
            cells.push_back({column.second, i, 1, 1, 1});
        }
    }
    return cells;
}

std::wstring headingText(const std::vector<ListColumn>& shown) {
    std::wstring text, group;
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const ListColumn& column = shown[i];
        if (!column.first.empty())
            group = plainCaption(column.first);
        text += i == 0 ? L"" : L"\t";
        text += column.second.empty() ? group : group + L"-" + column.second;
    }
    return text;
}

} // namespace orv::erp
