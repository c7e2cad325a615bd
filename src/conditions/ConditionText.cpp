#include "conditions/ConditionText.h"

#include "support/Pieces.h"

#include <utility>

namespace orv::conditions {

namespace {
constexpr std::u16string_view itemEnd = u"##<&";
constexpr std::u16string_view recordEnd = u"||";
} // namespace

std::u16string formatConditionText(const std::vector<ConditionRecord>& records) {
    std::u16string text;
    for (const ConditionRecord& record : records) {
        for (const std::u16string* item :
             {&record.left, &record.fieldName, &record.comparison, &record.value, &record.right, &record.logic}) {
            text += *item;
            text += itemEnd;
        }
        text += recordEnd;
    }
    return text;
}

std::vector<ConditionRecord> parseConditionText(std::u16string_view text) {
    std::vector<ConditionRecord> records;
    support::PieceReader reader(text, recordEnd);
    std::u16string_view piece;
    while (reader.next(piece)) {
        ConditionRecord record;
        support::PieceReader items(piece, itemEnd);
        for (std::u16string* item :
             {&record.left, &record.fieldName, &record.comparison, &record.value, &record.right, &record.logic})
            if (std::u16string_view content; items.next(content))
                *item = content;
        records.push_back(std::move(record));
    }
    // A terminator closes the last record: what follows it is none.
    if (!records.empty() && piece.empty())
        records.pop_back();
    return records;
}

} // namespace orv::conditions
