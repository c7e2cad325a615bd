#pragma once

#include <string>
#include <string_view>

namespace orv::tour {

std::wstring wide(std::string_view utf8);
std::string utf8(std::wstring_view text);
/// As JSON writes it between its quotes: one line, whatever is in it.
std::string escaped(std::wstring_view text);

} // namespace orv::tour
