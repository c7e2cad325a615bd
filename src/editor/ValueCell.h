#pragma once

#include "conditions/ConditionRow.h"
#include "metadata/FieldRecord.h"
#include "ui/Spread.h"

#include <cstdint>
#include <string>

namespace orv::editor {

/// Decimal places of the host's settings, by field kind.
struct DecimalPlaces {
    int quantity = 2;
    int price = 2;
    int amount = 2;
};

/// How the value area of a condition line (columns 4 to 6) is to be shaped.
struct ValueCellShape {
    enum class Area : std::uint8_t {
        wide,     ///< one cell over three columns
        dateTime, ///< date in column 4, time in columns 5 and 6
    };
    enum class List : std::uint8_t {
        none,
        items,    ///< drop-down of padded items; the value is the whole item
        captions, ///< drop-down that fills an edit cell with a caption
    };
    Area area = Area::wide;
    List list = List::none;
    ui::CellFormat format; ///< of column 4 when there is no list, or the list turns out empty

    friend bool operator==(const ValueCellShape&, const ValueCellShape&) = default;
};

/// The shape for a comparison of a field. A comparison of several values ("BETWEEN", "IN", "NOT IN") always takes
/// free text of no limit.
ValueCellShape shapeValueCell(const conditions::CompareEntry& entry, const metadata::FieldRecord& field,
                              const DecimalPlaces& places);

/// The plain edit cell of a field, with the edit length that the field states.
ui::CellFormat textCellFormat(const metadata::FieldRecord& field);

/// Background of a value cell that is ready for input (0x00BBGGRR).
inline constexpr std::uint32_t valueCellColor = 0xE8FDFD;
/// The earliest date of a date cell, as the grid stores dates.
inline constexpr const char16_t* earliestDate = u"01011900";
/// The greatest day count of the comparisons relative to today.
inline constexpr int maximumDayCount = 366;

} // namespace orv::editor
