#pragma once

#include <windows.h>

#include <string>
#include <string_view>
#include <vector>

namespace orv::windows {

/// The text on the clipboard, "" when there is none.
std::u16string textFromClipboard(HWND owner);
/// Leaves the clipboard as it is when another program keeps it locked.
void putOnClipboard(HWND owner, const std::u16string& text);

/// The texts of a block of cells, row by row.
using TextBlock = std::vector<std::vector<std::u16string>>;

/// Rows of cells as spreadsheet programs put them on the clipboard: cells separated by tabs, rows by line ends; a cell
/// with either of them, or with a quotation mark, stands in quotation marks and doubles its own.
TextBlock parseBlock(std::u16string_view text);
/// The text that `parseBlock` reads back; one row stands without a line end, so that one cell is its plain text.
std::u16string formatBlock(const TextBlock& rows);

} // namespace orv::windows
