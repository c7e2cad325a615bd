#include "erp/host/LookUpDialog.h"
#include "support/Letters.h"
#include "support/Pieces.h"

#include <algorithm>

namespace orv::erp {

namespace {

/// Full-width forms of Chinese input methods are found by plain ones, and the other way round.
std::u16string plain(std::u16string_view text) {
    std::u16string folded(text);
    for (char16_t& unit : folded) {
        if (unit >= u'！' && unit <= u'～')
            unit = static_cast<char16_t>(unit - u'！' + u'!');
        else if (unit == u'　')
            unit = u' ';
    }
    return support::toUpper(folded);
}

} // namespace

std::vector<std::size_t> matchingRows(const LookUpOffer& offer, std::u16string_view search) {
    const std::u16string wanted = plain(search);
    std::vector<std::u16string_view> words;
    support::PieceReader pieces(wanted, u" ");
    for (std::u16string_view word; pieces.next(word);)
        if (!word.empty())
            words.push_back(word);
    std::vector<std::size_t> matching;
    for (std::size_t row = 0; row < offer.rows.size(); ++row) {
        std::vector<std::u16string> cells;
        for (const std::u16string& cell : offer.rows[row])
            cells.push_back(plain(cell));
        const bool isMatch = std::ranges::all_of(words, [&](std::u16string_view word) {
            return std::ranges::any_of(
                cells, [&](const std::u16string& cell) { return cell.find(word) != std::u16string::npos; });
        });
        if (isMatch)
            matching.push_back(row);
    }
    return matching;
}

} // namespace orv::erp
