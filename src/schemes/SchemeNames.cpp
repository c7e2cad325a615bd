#include "schemes/SchemeNames.h"

#include "support/Pieces.h"

namespace orv::schemes {

namespace {
constexpr std::u16string_view simplified = u"默认方案";
constexpr std::u16string_view traditional = u"默認方案";
} // namespace

bool isDefaultSchemeName(std::u16string_view name) noexcept {
    return name == defaultSchemeName || name == simplified || name == traditional;
}

std::u16string storedSchemeName(std::u16string_view shown) {
    return std::u16string(isDefaultSchemeName(shown) ? defaultSchemeName : shown);
}

std::u16string shownSchemeName(std::u16string_view stored, std::u16string_view language) {
    if (stored != defaultSchemeName)
        return std::u16string(stored);
    if (language == u"CHT")
        return std::u16string(traditional);
    return std::u16string(language == u"EN" ? defaultSchemeName : simplified);
}

SchemeTag SchemeTag::parse(std::u16string_view tag) {
    const auto field = [tag](std::ptrdiff_t n) { return std::u16string(support::GetPiece(tag, n, u"|")); };
    return {field(1), field(2), field(3)};
}

} // namespace orv::schemes
