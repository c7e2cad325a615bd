#include "automation/Ascii.h"
#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/NumberLiteral.h"

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace orv::automation {

namespace {

/// The units of a text with blanks, tabs and line ends left out, one after another.
class Scanner {
  public:
    explicit Scanner(std::u16string_view text) : rest_(text) { skip(); }

    /// The unit in front; 0 at the end.
    char16_t front() const noexcept { return rest_.empty() ? u'\0' : rest_.front(); }
    void next() noexcept {
        rest_.remove_prefix(1);
        skip();
    }
    bool take(char16_t unit) noexcept {
        if (rest_.empty() || rest_.front() != unit)
            return false;
        next();
        return true;
    }

  private:
    void skip() noexcept {
        while (!rest_.empty() && (rest_[0] == u' ' || rest_[0] == u'\t' || rest_[0] == u'\n' || rest_[0] == u'\r' ||
                                  rest_[0] == u'\u3000'))
            rest_.remove_prefix(1);
    }
    std::u16string_view rest_;
};

/// What follows "&": a base mark and digits. Up to 16 bits read as a 16-bit number unless a closing "&" makes it long.
double radixNumber(Scanner scan) {
    const unsigned bits = foldAscii(scan.front()) == u'h' ? 4 : foldAscii(scan.front()) == u'o' ? 3 : 0;
    if (bits != 0)
        scan.next();
    const unsigned width = bits != 0 ? bits : 3; // a bare "&" begins an octal number
    std::uint64_t number = 0;
    for (; asciiDigitValue(scan.front()) < (1U << width); scan.next()) {
        number = (number << width) | asciiDigitValue(scan.front());
        if (number > UINT32_MAX)
            throw AutomationError::runtime(errorNumber::overflow);
    }
    if (number <= UINT16_MAX && scan.front() != u'&')
        return static_cast<std::int16_t>(static_cast<std::uint16_t>(number));
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

void takeDigits(Scanner& scan, std::string& literal) {
    for (; isAsciiDigit(scan.front()); scan.next())
        literal += static_cast<char>(scan.front());
}

/// An exponent counts only with a digit behind its mark.
void takeExponent(Scanner& scan, std::string& literal) {
    Scanner ahead = scan;
    if (!(ahead.take(u'e') || ahead.take(u'E') || ahead.take(u'd') || ahead.take(u'D')))
        return;
    const bool negative = ahead.front() == u'-';
    if (negative || ahead.front() == u'+')
        ahead.next();
    if (!isAsciiDigit(ahead.front()))
        return;
    literal += negative ? "e-" : "e";
    takeDigits(ahead, literal);
    scan = ahead;
}

} // namespace

double Val(std::u16string_view text) {
    while (!text.empty() && text.front() == u' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == u' ')
        text.remove_suffix(1);
    if (const std::optional<double> plain = readPlainNumber(text))
        return *plain;
    Scanner scan(text);
    if (scan.take(u'&'))
        return radixNumber(scan);
    const bool negative = scan.front() == u'-';
    if (negative || scan.front() == u'+')
        scan.next();

    std::string literal;
    takeDigits(scan, literal);
    if (scan.take(u'.')) {
        literal += '.';
        takeDigits(scan, literal);
    }
    if (literal.find_first_of("0123456789") == std::string::npos)
        return 0;
    takeExponent(scan, literal);

    const double magnitude = parseLiteral(literal);
    if (std::isinf(magnitude))
        throw AutomationError::runtime(errorNumber::overflow);
    return negative && magnitude != 0 ? -magnitude : magnitude;
}

} // namespace orv::automation
