#include "sqlproof/Candidates.h"

#include "sqlproof/Values.h"
#include "support/PaddedItem.h"

#include <algorithm>

namespace orv::sqlproof {

namespace {

using Texts = std::vector<std::u16string>;

template <class Table>
void add(Texts& out, const Table& table) {
    for (const auto& entry : table)
        out.push_back(entry.text);
}

/// A short, an upper-case and a usual text of those that the column holds.
Texts held(const std::vector<std::vector<Cell>>& rows) {
    Texts found;
    for (const std::size_t at : {rows.size() / 7, rows.size() / 2, rows.size() - 1}) {
        const auto* text = at < rows.size() ? std::get_if<std::u16string>(&rows[at][0]) : nullptr;
        if (text && std::ranges::find(found, *text) == found.end())
            found.push_back(*text);
    }
    return found;
}

Texts lookUpItems(const Texts& captions) {
    Texts items{u"", u"...", u"货款", u"2024"};
    for (const char16_t* key : {u"0", u"1", u"2", u"100", u""})
        items.push_back(support::PadItem(u"销售回款", key));
    items.push_back(support::PadItem(u"...", u"1"));
    items.push_back(support::PadItem(u"O'Brien", u"3"));
    for (const std::u16string& caption : captions)
        items.push_back(support::PadItem(caption, caption));
    return items;
}

bool hasWord(const std::u16string& text, std::u16string_view word) {
    const auto same = [](char16_t a, char16_t b) { return (a | 32) == (b | 32); };
    return std::search(text.begin(), text.end(), word.begin(), word.end(), same) != text.end();
}

} // namespace

Texts valuesFor(const Question& question, const std::vector<std::vector<Cell>>& rows) {
    const conditions::CompareEntry& entry = question.entry;
    const bool countsDays = entry.FValue == u"TODAYBEFORE" || entry.FValue == u"TODAYAFTER";
    Texts values;
    if (countsDays)
        add(values, dayCounts());
    else if (!entry.FInput)
        values = {u"", u"ignored"};
    else if (entry.FInputCtlType == u"1")
        values = lookUpItems(held(rows));
    else if (entry.FInputCtlType == u"3")
        values = {u"2024"}; // an input type that does not exist
    if (!values.empty())
        return values;

    const bool isList = hasWord(entry.FOperate, u"IN");
    const bool isRange = hasWord(entry.FOperate, u"BETWEEN");
    const bool isText = question.storage == Storage::text || question.storage == Storage::unknown;
    if (question.colType == 0 || question.storage == Storage::moment) {
        isList ? add(values, dateLists()) : isRange ? add(values, dateRanges()) : add(values, dateTexts());
        if (!isList && !isRange)
            values.emplace_back();
    } else if (isText && question.colType > 0 && question.colType != 501) {
        values = held(rows);
        if (isList)
            add(values, textLists());
        else
            values.insert(values.end(), plainTexts().begin(), plainTexts().end());
    } else {
        isList ? add(values, numberLists()) : isRange ? add(values, numberRanges()) : add(values, numberTexts());
    }
    return values;
}

} // namespace orv::sqlproof
