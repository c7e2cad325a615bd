#include "support/Pieces.h"

namespace orv::support {

PieceReader::PieceReader(std::u16string_view text, std::u16string_view delimiter) noexcept
    : rest_(text), delimiter_(delimiter), atEnd_(text.empty()) {}

bool PieceReader::next(std::u16string_view& piece) noexcept {
    if (atEnd_)
        return false;
    const std::size_t end = delimiter_.empty() ? std::u16string_view::npos : rest_.find(delimiter_);
    piece = rest_.substr(0, end);
    atEnd_ = end == std::u16string_view::npos;
    if (!atEnd_)
        rest_.remove_prefix(end + delimiter_.size());
    return true;
}

std::u16string_view GetPiece(std::u16string_view text, std::ptrdiff_t n, std::u16string_view delimiter) noexcept {
    PieceReader reader(text, delimiter);
    std::u16string_view piece;
    for (; n >= 1 && reader.next(piece); --n)
        if (n == 1)
            return piece;
    return {};
}

std::size_t countPieces(std::u16string_view text, std::u16string_view delimiter) noexcept {
    PieceReader reader(text, delimiter);
    std::u16string_view piece;
    std::size_t count = 0;
    while (reader.next(piece))
        ++count;
    return count;
}

} // namespace orv::support
