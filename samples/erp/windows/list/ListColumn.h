#pragma once

#include <map>
#include <string>
#include <vector>

namespace orv::erp {

/// A column of the list, as the record of `m_Header` describes it.
struct ListColumn {
    std::wstring key;
    std::wstring first;  ///< caption as the header has it: "日期$", "金额+|", or "" in a group that goes on
    std::wstring second; ///< second-level caption
    double widthMm = 0;
    bool isShown = true;
    bool isSummed = false;
    long type = 1; ///< FColType
    long page = 1;
    std::wstring decimalKey;                         ///< key of the column that holds the decimals of an amount, or ""
    std::map<std::wstring, std::wstring> valueTexts; ///< of a value list: caption by key
};

/// Whether the column's values stand to the right.
bool isNumeric(const ListColumn& column);

/// One caption of the list's heading.
struct HeadingCell {
    std::wstring text;
    std::size_t from = 0;  ///< first column
    std::size_t count = 1; ///< columns below it
    int level = 0;         ///< 0: upper row, 1: lower row
    int levels = 1;        ///< 2: it takes both rows

    friend bool operator==(const HeadingCell&, const HeadingCell&) = default;
};

/// The captions over the shown columns, by their places among these: a caption of two levels stands over all columns of
/// its group, with theirs below it; a plain caption takes both rows. When there are no groups everything is on level 0.
std::vector<HeadingCell> headingOf(const std::vector<ListColumn>& shown);

/// The captions of the shown columns in one line, tabs between; both levels of a group with a "-" between.
std::wstring headingText(const std::vector<ListColumn>& shown);

} // namespace orv::erp
