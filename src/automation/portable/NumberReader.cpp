#include "automation/portable/NumberReader.h"

#include "automation/Ascii.h"
#include "automation/NumberLiteral.h"
#include "automation/portable/WidthFolding.h"

#include <cstdint>
#include <limits>
#include <string>

namespace orv::automation {

namespace {

constexpr char16_t currencySign = u'\u00A5';
constexpr char16_t groupSign = u',';
constexpr char16_t decimalSign = u'.';

/// Reads one number off the front of a text with its signs, in the order in which they may stand.
class NumberReader {
  public:
    explicit NumberReader(std::u16string_view text) : rest_(text) {}

    std::optional<double> read() {
        takeLeadingSigns();
        const std::optional<double> magnitude = front() == u'&' ? readRadix() : readDecimal();
        if (!magnitude)
            return std::nullopt;
        takeTrailingSigns();
        if (!rest_.empty() || open_)
            return std::nullopt;
        return negative_ && *magnitude != 0 ? -*magnitude : *magnitude;
    }

  private:
    char16_t front() const noexcept { return rest_.empty() ? u'\0' : rest_.front(); }
    bool take(char16_t unit) noexcept {
        if (rest_.empty() || rest_.front() != unit)
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    /// One sign, one currency sign and one bracket at most, in any order, blanks between them.
    void takeLeadingSigns() {
        while (takeWhite() || takeSign() || takeCurrency() || takeOpening()) {
        }
    }
    void takeTrailingSigns() {
        while (takeWhite() || takeSign() || takeCurrency() || takeClosing()) {
        }
    }

    bool takeWhite() noexcept {
        if (rest_.empty() || !isWhite(rest_.front()))
            return false;
        rest_.remove_prefix(1);
        return true;
    }
    bool takeSign() noexcept {
        if (signed_ || (front() != u'+' && front() != u'-'))
            return false;
        signed_ = true;
        negative_ = negative_ || front() == u'-';
        rest_.remove_prefix(1);
        return true;
    }
    bool takeCurrency() noexcept {
        if (currency_ || !take(currencySign))
            return false;
        return currency_ = true;
    }
    bool takeOpening() noexcept {
        if (open_ || !take(u'('))
            return false;
        negative_ = true;
        return open_ = true;
    }
    bool takeClosing() noexcept {
        if (!open_ || !take(u')'))
            return false;
        open_ = false;
        return true;
    }

    /// "&H" and "&O" literals, read as whole numbers of up to 63 bits; infinite beyond.
    std::optional<double> readRadix() {
        rest_.remove_prefix(1);
        const char16_t mark = foldAscii(front());
        if (mark != u'h' && mark != u'o')
            return std::nullopt;
        rest_.remove_prefix(1);
        const unsigned width = mark == u'h' ? 4 : 3;
        const std::size_t before = rest_.size();
        std::uint64_t number = 0;
        bool fits = true;
        for (unsigned digit; (digit = asciiDigitValue(front())) < (1U << width); rest_.remove_prefix(1)) {
            fits = fits && number >> (63 - width) == 0;
            number = (number << width) | digit;
        }
        if (rest_.size() == before)
            return std::nullopt;
        return fits ? static_cast<double>(number) : std::numeric_limits<double>::infinity();
    }

    std::optional<double> readDecimal() {
        std::string literal;
        takeGrouped(literal);
        if (take(decimalSign)) {
            literal += '.';
            takeGrouped(literal);
        }
        if (literal.empty() || literal == ".")
            return std::nullopt;
        if (foldAscii(front()) == u'e' || foldAscii(front()) == u'd') {
            rest_.remove_prefix(1);
            literal += 'e';
            if (front() == u'-')
                literal += '-';
            if (front() == u'-' || front() == u'+')
                rest_.remove_prefix(1);
            if (!isAsciiDigit(front()))
                return std::nullopt;
            for (; isAsciiDigit(front()); rest_.remove_prefix(1))
                literal += static_cast<char>(front());
        }
        return parseLiteral(literal);
    }

    /// Digits; group signs are passed over behind the first of them.
    void takeGrouped(std::string& literal) {
        for (; isAsciiDigit(front()) || (!literal.empty() && front() == groupSign); rest_.remove_prefix(1))
            if (front() != groupSign)
                literal += static_cast<char>(front());
    }

    std::u16string_view rest_;
    bool signed_ = false;
    bool negative_ = false;
    bool currency_ = false;
    bool open_ = false;
};

} // namespace

std::optional<double> readNumber(std::u16string_view text) {
    if (const std::optional<double> plain = readPlainNumber(text))
        return plain;
    const std::u16string folded = foldWidth(text);
    return NumberReader(folded).read();
}

} // namespace orv::automation
