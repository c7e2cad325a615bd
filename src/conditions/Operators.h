#pragma once

#include <cstdint>
#include <string_view>

namespace orv::conditions {

/// How the value of an operator is written.
enum class ValueForm : std::uint8_t {
    none,    ///< an operator that takes no value known here
    scalar,  ///< = != <> < <= > >=
    list,    ///< IN, NOT IN
    range,   ///< BETWEEN
    pattern, ///< LIKE, NOT LIKE
};

/// The form that an operator text asks for; blanks around it and letter case do not count.
ValueForm valueForm(std::u16string_view operatorText) noexcept;

/// True for "<>" with any blanks around it.
bool isNotEqual(std::u16string_view operatorText) noexcept;

} // namespace orv::conditions
