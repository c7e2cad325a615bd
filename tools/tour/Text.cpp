#include "tour/Text.h"

#include <windows.h>

#include <nlohmann/json.hpp>

namespace orv::tour {

std::wstring wide(std::string_view utf8) {
    const auto size = static_cast<int>(utf8.size());
    std::wstring text(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), static_cast<int>(text.size()));
    return text;
}

std::string utf8(std::wstring_view text) {
    const auto size = static_cast<int>(text.size());
    std::string bytes(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr)),
        '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr);
    return bytes;
}

std::string escaped(std::wstring_view text) {
    const std::string quoted = nlohmann::json(utf8(text)).dump();
    return quoted.substr(1, quoted.size() - 2);
}

} // namespace orv::tour
