#pragma once

#include <optional>
#include <string_view>

namespace orv::automation {

/// The number of a text of nothing but an optional minus, up to 15 digits and at most one point among or behind them:
/// such a text means the same to everything that reads numbers with "." as decimal sign. Nothing for any other text.
std::optional<double> readPlainNumber(std::u16string_view text) noexcept;

/// The Double nearest to an unsigned decimal literal such as "12", ".5", "12." or "1.5e-7"; infinite beyond the
/// range of a Double, 0 below it. The literal holds a digit at least; its exponent, when there is one, as well.
double parseLiteral(std::string_view literal);

} // namespace orv::automation
