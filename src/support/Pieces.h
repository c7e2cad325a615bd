#pragma once

#include <cstddef>
#include <string_view>

// Delimited texts. A delimiter may be longer than one character; an empty one delimits nothing. The views returned
// point into the text that was given: it must outlive them.
namespace orv::support {

/// The n-th (1-based) piece of a text split at `delimiter`; "" beyond the last one and for n below 1.
std::u16string_view GetPiece(std::u16string_view text, std::ptrdiff_t n, std::u16string_view delimiter) noexcept;

/// How many pieces a text has: one more than its delimiters (a text that ends with a delimiter has an empty last
/// piece), none when it is empty.
std::size_t countPieces(std::u16string_view text, std::u16string_view delimiter) noexcept;

/// Reads the pieces of a text one after another: `while (reader.next(piece))`. Gives as many as `countPieces` counts.
class PieceReader {
  public:
    PieceReader(std::u16string_view text, std::u16string_view delimiter) noexcept;
    bool next(std::u16string_view& piece) noexcept;

  private:
    std::u16string_view rest_;
    std::u16string_view delimiter_;
    bool atEnd_;
};

} // namespace orv::support
