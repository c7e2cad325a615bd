// Padded items, delimited pieces, blanks, letters and conversions of texts, held against plain models.
#include "support/Pieces.h"
#include "Input.h"
#include "Models.h"
#include "automation/Text.h"
#include "support/Letters.h"
#include "support/PaddedItem.h"

using namespace orv;

namespace {

void checkPadding(const std::u16string& caption, const std::u16string& key) {
    const std::u16string item = support::PadItem(caption, key);
    std::u16string padded = caption + std::u16string(255, u' ');
    padded.resize(255);
    fuzz::requireSame(item, padded + key, "an item is the caption, padded or cut to 255 units, and the key");
    fuzz::requireSame(support::SplitLookupText(item, true), key, "the key of a padded item");
    fuzz::requireSame(support::SplitLookupText(item, false), fuzz::model::trim(padded), "the caption of a padded item");
}

void checkPieces(const std::u16string& text, const std::u16string& delimiter) {
    const auto pieces = fuzz::model::split(text, delimiter);
    fuzz::require(support::countPieces(text, delimiter) == pieces.size(), "the number of pieces");
    support::PieceReader reader(text, delimiter);
    std::u16string_view piece;
    std::size_t n = 0;
    for (; reader.next(piece); ++n) {
        fuzz::require(n < pieces.size(), "the reader stops");
        fuzz::requireSame(piece, pieces[n], "a piece that is read");
        if (n < 20)
            fuzz::requireSame(support::GetPiece(text, static_cast<std::ptrdiff_t>(n) + 1, delimiter), pieces[n],
                              "a piece that is asked for");
    }
    fuzz::require(n == pieces.size(), "all pieces are read");
    for (const std::ptrdiff_t beyond : {std::ptrdiff_t{-1}, std::ptrdiff_t{0}, static_cast<std::ptrdiff_t>(n) + 1})
        fuzz::require(support::GetPiece(text, beyond, delimiter).empty(), "beyond the pieces there is nothing");
}

std::u16string replacedByModel(const std::u16string& text, const std::u16string& what, const std::u16string& with) {
    if (what.empty())
        return text;
    std::u16string out;
    std::size_t from = 0;
    for (std::size_t at = 0; (at = text.find(what, from)) != std::u16string::npos; from = at + what.size())
        out += text.substr(from, at - from) + with;
    return out + text.substr(from);
}

void checkLetters(const std::u16string& text, const std::u16string& what) {
    fuzz::requireSame(support::Trim(text), fuzz::model::trim(text), "blanks are trimmed");
    const std::u16string upper = support::toUpper(text);
    fuzz::require(upper.size() == text.size(), "a capital takes one unit");
    fuzz::requireSame(support::toUpper(upper), upper, "capitals stay");
    fuzz::require(support::equalIgnoringCase(text, upper), "a text equals its capitals");
    fuzz::require(support::findIgnoringCase(text, what) == upper.find(support::toUpper(what)),
                  "searching without case is searching capitals");
    fuzz::requireSame(support::replaceAll(text, what, u"''"), replacedByModel(text, what, u"''"), "a replaced text");
    fuzz::requireSame(support::toUpper(support::replaceAllIgnoringCase(text, what, u"_")),
                      replacedByModel(upper, support::toUpper(what), u"_"), "a text replaced without case");
}

void checkUtf8(const std::u16string& text, const std::string& bytes) {
    std::u16string whole = text;
    for (std::size_t i = 0; i < whole.size(); ++i) {
        const bool high = (whole[i] & 0xFC00) == 0xD800;
        if (high && i + 1 < whole.size() && (whole[i + 1] & 0xFC00) == 0xDC00)
            ++i;
        else if ((whole[i] & 0xF800) == 0xD800)
            whole[i] = u'\uFFFD';
    }
    fuzz::requireSame(automation::fromUtf8(automation::toUtf8(text)), whole, "all but lone surrogates comes back");
    const std::u16string read = automation::fromUtf8(bytes);
    fuzz::requireSame(automation::fromUtf8(automation::toUtf8(read)), read, "what was read of bytes comes back");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::u16string what = input.line();
    const std::u16string text = input.rest();
    checkPadding(text, what);
    checkPadding(what, text);
    checkPieces(text, what);
    checkLetters(text, what);
    checkUtf8(text, std::string(data, data + size));
    return 0;
}
