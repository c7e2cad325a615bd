#pragma once

#include <string_view>

namespace orv::automation {

/// The Double nearest to an unsigned decimal literal such as "12", ".5", "12." or "1.5e-7"; infinite beyond the
/// range of a Double, 0 below it. The literal holds a digit at least; its exponent, when there is one, as well.
double parseLiteral(std::string_view literal);

} // namespace orv::automation
