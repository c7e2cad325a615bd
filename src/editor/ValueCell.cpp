#include "editor/ValueCell.h"

#include "automation/LocaleRules.h"
#include "conditions/DateKeywords.h"
#include "conditions/TypeClasses.h"
#include "editor/LookUp.h"
#include "support/Letters.h"

namespace orv::editor {

using conditions::CompareEntry;
using metadata::FieldRecord;
using ui::CellFormat;
using ui::CellType;
namespace fieldKey = metadata::fieldKey;

namespace {

/// Places of a numeric cell whose field kind names none: enough for any stored number.
constexpr int freePlaces = 10;

/// Edit length of text fields that state none.
constexpr int defaultEditLength = 60;

bool takesSeveralValues(const CompareEntry& entry) {
    const std::u16string operation = support::toUpper(support::Trim(entry.FOperate));
    return operation == u"BETWEEN" || operation == u"IN" || operation == u"NOT IN";
}

bool takesPattern(const CompareEntry& entry) {
    const std::u16string operation = support::toUpper(support::Trim(entry.FOperate));
    return operation == u"LIKE" || operation == u"NOT LIKE";
}

CellFormat dayCountFormat() {
    CellFormat format;
    format.type = CellType::wholeNumber;
    format.minimum = 0;
    format.maximum = maximumDayCount;
    return format;
}

CellFormat dateFormat() {
    CellFormat format;
    format.type = CellType::date;
    format.earliestDate = earliestDate;
    return format;
}

CellFormat numberFormat(const FieldRecord& field, const DecimalPlaces& places) {
    const std::u16string kind = field.text(fieldKey::keyWord);
    CellFormat format;
    format.decimals = kind == u"QTY"            ? places.quantity
                      : kind == u"PRICE"        ? places.price
                      : kind == u"AMOUNT"       ? places.amount
                      : kind == u"DISCOUNTRATE" ? field.number(fieldKey::scale)
                                                : freePlaces;
    format.type = format.decimals > 0 ? CellType::decimal : CellType::wholeNumber;
    return format;
}

/// The button only shortens the way to a look-up: a type that is no number shows none, and the look-up says so itself.
bool looksUp(const FieldRecord& field) {
    const std::optional<double> kind = automation::localeRules().parseNumber(field.text(u"FLookUpType"));
    return kind && opensDialog(*kind);
}

} // namespace

CellFormat textCellFormat(const FieldRecord& field) {
    CellFormat format;
    const std::int32_t control = field.number(fieldKey::ctlType);
    if (control == 1 || control == 999) {
        const std::int32_t length = field.number(fieldKey::editLen);
        format.maxLength = length > 0 ? length : defaultEditLength;
    }
    return format;
}

ValueCellShape shapeValueCell(const CompareEntry& entry, const FieldRecord& field, const DecimalPlaces& places) {
    ValueCellShape shape;
    if (conditions::takesDayCount(conditions::dateKeyword(entry.FValue))) {
        shape.format = dayCountFormat();
        return shape;
    }
    if (entry.FInput && takesSeveralValues(entry))
        return shape;
    shape.format = textCellFormat(field);
    if (!entry.FInput)
        return shape;
    shape.format.looksUp = looksUp(field);
    if (entry.FInputCtlType == u"1") {
        shape.list = ValueCellShape::List::items;
        return shape;
    }
    if (entry.FInputCtlType == u"2") {
        if (!entry.FDataSource.empty())
            shape.list = ValueCellShape::List::captions;
        return shape;
    }
    if (takesPattern(entry))
        return shape;

    const std::int32_t type = field.number(fieldKey::colType);
    if (field.number(fieldKey::sourceType) == metadata::sourceTypeDateTime) {
        shape.area = ValueCellShape::Area::dateTime;
        shape.format = dateFormat();
    } else if (type == metadata::colType::date) {
        shape.format = dateFormat();
    } else if (conditions::isNumericValue(type)) {
        shape.format = numberFormat(field, places);
    }
    return shape;
}

} // namespace orv::editor
