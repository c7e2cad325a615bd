#include "automation/LocaleRules.h"

#include "automation/AutomationError.h"
#include "automation/Calendar.h"
#include "automation/NumberLiteral.h"

#include <limits>
#include <memory>

#include <windows.h>

#include <oleauto.h>

namespace orv::automation {

namespace {

struct FreeBstr {
    void operator()(OLECHAR* text) const noexcept { SysFreeString(text); }
};
using UniqueBstr = std::unique_ptr<OLECHAR, FreeBstr>;

std::u16string fromBstr(const UniqueBstr& text) {
    const OLECHAR* first = text.get();
    return std::u16string(first, first + SysStringLen(text.get()));
}

/// The text for a conversion routine, which takes it writable though it only reads, and up to a NUL: nothing when the
/// text holds one itself.
std::optional<std::wstring> conversionText(std::u16string_view text) {
    if (text.find(u'\0') != std::u16string_view::npos)
        return std::nullopt;
    return std::wstring(text.begin(), text.end());
}

class PlatformRules final : public LocaleRules {
  public:
    explicit PlatformRules(LCID locale) : locale_(locale) {}

    std::optional<double> parseNumber(std::u16string_view text) const override {
        // Digits alone mean the same in every locale; flags and positions are nothing else.
        if (text.find_first_not_of(u"0123456789") == std::u16string_view::npos)
            if (const std::optional<double> plain = readPlainNumber(text))
                return plain;
        std::optional<std::wstring> source = conversionText(text);
        double number = 0;
        switch (source ? VarR8FromStr(source->data(), locale_, 0, &number) : DISP_E_TYPEMISMATCH) {
        case S_OK:
            return number;
        case DISP_E_OVERFLOW:
            return std::numeric_limits<double>::infinity();
        default:
            return std::nullopt;
        }
    }

    std::optional<double> parseDate(std::u16string_view text) const override {
        std::optional<std::wstring> source = conversionText(text);
        double days = 0;
        if (!source || FAILED(VarDateFromStr(source->data(), locale_, 0, &days)))
            return std::nullopt;
        return days;
    }

    std::u16string dateText(double days) const override {
        BSTR text = nullptr;
        if (!isDateInRange(days) || FAILED(VarBstrFromDate(days, locale_, 0, &text)))
            throw AutomationError::runtime(errorNumber::overflow);
        return fromBstr(UniqueBstr(text));
    }

  private:
    LCID locale_;
};

/// Chinese, simplified, People's Republic of China.
constexpr LCID chinese = 0x0804;

} // namespace

const LocaleRules& localeRules() {
    static const PlatformRules rules(LOCALE_USER_DEFAULT);
    return rules;
}

const LocaleRules& chineseRules() {
    static const PlatformRules rules(chinese);
    return rules;
}

} // namespace orv::automation
