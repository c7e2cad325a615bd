#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace orv::fuzz {

/// Reads the bytes of a fuzz input as texts and numbers. An input is a text file of lines, so that seeds can be read
/// and written by hand; behind the last line every read gives "" or 0.
///
/// A byte below 0x80 is that character (line ends apart). The others stand for UTF-16 units that rules of the control
/// treat in some way of their own (surrogates, full-width digits, date marks, control characters), and for repetitions
/// of the unit before them up to lengths around 255 and beyond: see Input.cpp.
class Input {
  public:
    Input(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

    bool atEnd() const noexcept { return rest_.empty(); }
    /// The next line.
    std::u16string line();
    /// All that is left, line ends included.
    std::u16string rest();
    /// A number from 0 to `limit` - 1, from one byte: its distance from '0', so that digits stand for themselves.
    int below(int limit);
    bool flag() { return below(2) == 1; }
    /// A number of any size, from eight bytes.
    std::uint64_t bits();
    double number();

  private:
    std::basic_string_view<std::uint8_t> rest_;
};

/// Ends the program with the name of a broken property: libFuzzer then keeps the input.
void require(bool holds, const char* property);
/// The same, showing the two texts that differ.
void requireSame(std::u16string_view actual, std::u16string_view expected, const char* property);

} // namespace orv::fuzz
