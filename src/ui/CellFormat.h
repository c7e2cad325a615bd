#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orv::ui {

enum class CellType : std::uint8_t {
    edit,        ///< text, limited to `maxLength` characters
    comboBox,    ///< one of the items of the cell's list
    checkBox,    ///< text "1" or "0"; "" is unchecked, too
    staticText,  ///< shown, not edited
    wholeNumber, ///< a whole number within `minimum`..`maximum`
    decimal,     ///< a number with at most `decimals` places within `minimum`..`maximum`
    date,        ///< yyyy-mm-dd shown; the text is MMDDYYYY as stored
    time,        ///< HH:MM:SS shown; the text is HHMMSS as stored
};

/// How a cell is edited and shown. Value type: assign a whole format to a cell.
struct CellFormat {
    CellType type = CellType::edit;
    int maxLength = 0; ///< UTF-16 units; 0 is no limit
    double minimum = -999999999999.99;
    double maximum = 999999999999.99;
    int decimals = 0;
    std::u16string earliestDate{}; ///< MMDDYYYY, as date cells store it; "" is no limit
    bool centred = false;
    bool freeText = false; ///< a combo cell that takes typed texts beyond its list, too
    bool looksUp = false;  ///< shown with a button that does what F7 does
    friend bool operator==(const CellFormat&, const CellFormat&) = default;
};

/// The format of a cell of that type with the usual limits; a check box stands in the middle of its cell.
inline CellFormat plainFormat(CellType type) {
    CellFormat format;
    format.type = type;
    format.centred = type == CellType::checkBox;
    return format;
}

/// What a cell of that format stores when a user confirms `typed`, or nothing when the format refuses it.
///
/// - edit, comboBox: the text, cut to `maxLength` units but never inside a surrogate pair (a combo cell's list is not
///   looked at here).
/// - wholeNumber, decimal: what the locale's rules read as a number within the limits and with no more decimal places
///   than allowed; stored with "." as decimal sign, without grouping, exponent and trailing zeros.
/// - date: what the locale's rules read as a date (a time of day in it is dropped; a time alone is refused), not
///   before `earliestDate`; stored as MMDDYYYY.
/// - time: what the locale's rules read as a time of day alone; stored as HHMMSS, seconds rounded.
/// - Blank numbers, dates and times empty the cell; checkBox and staticText take nothing.
std::optional<std::u16string> storedFromTyped(const CellFormat& format, std::u16string_view typed);

/// The text to show for a stored one: dates as yyyy-mm-dd, times as HH:MM:SS; any other text, and one that is not in
/// the stored form, as it stands.
std::u16string shownFromStored(const CellFormat& format, std::u16string_view stored);

} // namespace orv::ui
