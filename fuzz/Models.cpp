#include "Models.h"

namespace orv::fuzz::model {

std::vector<std::u16string> split(const std::u16string& text, const std::u16string& delimiter) {
    std::vector<std::u16string> pieces;
    if (text.empty())
        return pieces;
    std::size_t from = 0;
    for (std::size_t at = 0; !delimiter.empty() && (at = text.find(delimiter, from)) != std::u16string::npos;
         from = at + delimiter.size())
        pieces.push_back(text.substr(from, at - from));
    pieces.push_back(text.substr(from));
    return pieces;
}

std::u16string piece(const std::u16string& text, std::size_t n, const std::u16string& delimiter) {
    const auto pieces = split(text, delimiter);
    return n >= 1 && n <= pieces.size() ? pieces[n - 1] : std::u16string();
}

std::u16string trim(const std::u16string& text) {
    const std::size_t first = text.find_first_not_of(u' ');
    if (first == std::u16string::npos)
        return {};
    return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

std::u16string pairValue(std::u16string list, const std::u16string& key, const std::u16string& separator) {
    if (list.size() < separator.size() || list.substr(list.size() - separator.size()) != separator)
        list += separator;
    const std::size_t at = list.find(key + u"=");
    if (at == std::u16string::npos)
        return {};
    const std::u16string tail = list.substr(at);
    const std::u16string item = tail.substr(0, tail.find(separator));
    return item.size() > key.size() ? item.substr(key.size() + 1) : std::u16string();
}

std::u16string asciiUpper(std::u16string text) {
    for (char16_t& unit : text)
        if (unit >= u'a' && unit <= u'z')
            unit = static_cast<char16_t>(unit - u'a' + u'A');
    return text;
}

} // namespace orv::fuzz::model
