#include "automation/Coercion.h"

#include "automation/Ascii.h"
#include "automation/AutomationError.h"
#include "automation/Calendar.h"
#include "automation/FixedPoint.h"
#include "automation/LocaleRules.h"
#include "automation/Object.h"

#include <cmath>
#include <limits>
#include <optional>
#include <type_traits>
#include <variant>

namespace orv::automation {

namespace {

/// A default member that answers with another object is asked again, but not for ever.
constexpr int deepestDefault = 16;

[[noreturn]] void fail(std::int32_t number) {
    throw AutomationError::runtime(number);
}

/// The content of a value that is no object: an object's default member, asked until it is a plain value.
template <class Convert>
auto withPlainValue(const Value& value, Convert convert) {
    if (!value.isObject())
        return std::visit(convert, value.storage());
    Value plain = value;
    for (int depth = 0; const auto* object = plain.getIf<ObjectRef>(); ++depth) {
        if (depth == deepestDefault)
            fail(errorNumber::typeMismatch);
        plain = get(ObjectRef(*object), defaultMember);
    }
    return std::visit(convert, plain.storage());
}

double numberOfText(std::u16string_view text) {
    const std::optional<double> number = localeRules().parseNumber(text);
    if (!number)
        fail(errorNumber::typeMismatch);
    if (std::isinf(*number))
        fail(errorNumber::overflow);
    return *number;
}

/// The end of a content that has no such meaning (Null, Missing, an error code).
template <class Content>
[[noreturn]] void refuse(const Content&) {
    fail(std::is_same_v<Content, Null> ? errorNumber::invalidNull : errorNumber::typeMismatch);
}

struct ToText {
    std::u16string operator()(Empty) const { return {}; }
    std::u16string operator()(bool v) const { return v ? u"True" : u"False"; }
    std::u16string operator()(std::int16_t v) const { return numberToText(v); }
    std::u16string operator()(std::int32_t v) const { return numberToText(v); }
    std::u16string operator()(double v) const { return numberToText(v); }
    std::u16string operator()(Currency v) const { return currencyText(v); }
    std::u16string operator()(const Decimal& v) const { return decimalText(v); }
    std::u16string operator()(Date v) const { return localeRules().dateText(v.days); }
    std::u16string operator()(const std::u16string& v) const { return v; }
    template <class Other>
    std::u16string operator()(const Other& v) const {
        refuse(v);
    }
};

struct ToNumber {
    double operator()(Empty) const { return 0; }
    double operator()(bool v) const { return v ? -1 : 0; }
    double operator()(std::int16_t v) const { return v; }
    double operator()(std::int32_t v) const { return v; }
    double operator()(double v) const { return v; }
    double operator()(Currency v) const { return currencyNumber(v); }
    double operator()(const Decimal& v) const { return decimalNumber(v); }
    double operator()(Date v) const { return v.days; }
    double operator()(const std::u16string& v) const { return numberOfText(v); }
    template <class Other>
    double operator()(const Other& v) const {
        refuse(v);
    }
};

/// Truth words, as they are written by whatever converts a Boolean to text.
std::optional<bool> truthWord(std::u16string_view text) {
    for (const std::u16string_view word : {u"True", u"#TRUE#"})
        if (sameIgnoringAsciiCase(text, word))
            return true;
    for (const std::u16string_view word : {u"False", u"#FALSE#"})
        if (sameIgnoringAsciiCase(text, word))
            return false;
    return std::nullopt;
}

struct ToBoolean {
    bool operator()(bool v) const { return v; }
    bool operator()(const std::u16string& v) const {
        const std::optional<bool> truth = truthWord(v);
        return truth ? *truth : numberOfText(v) != 0;
    }
    template <class Other>
    bool operator()(const Other& v) const {
        return ToNumber()(v) != 0;
    }
};

Date dateOfNumber(double days) {
    if (!isDateInRange(days))
        fail(errorNumber::overflow);
    return Date{days};
}

struct ToDate {
    Date operator()(Date v) const { return v; }
    Date operator()(const std::u16string& v) const {
        if (const std::optional<double> days = localeRules().parseDate(v))
            return Date{*days};
        return dateOfNumber(numberOfText(v));
    }
    template <class Other>
    Date operator()(const Other& v) const {
        return dateOfNumber(ToNumber()(v));
    }
};

template <class Whole>
Whole roundTo(double number) {
    const double whole = std::nearbyint(number); // ties to even in the default rounding mode
    if (!(whole >= std::numeric_limits<Whole>::min() && whole <= std::numeric_limits<Whole>::max()))
        fail(errorNumber::overflow);
    return static_cast<Whole>(whole);
}

} // namespace

std::u16string toText(const Value& value) {
    return withPlainValue(value, ToText());
}

double toNumber(const Value& value) {
    return withPlainValue(value, ToNumber());
}

std::int16_t toInt16(const Value& value) {
    return roundToInt16(toNumber(value));
}

std::int32_t toInt32(const Value& value) {
    if (const auto* whole = value.getIf<std::int32_t>())
        return *whole;
    return roundToInt32(toNumber(value));
}

bool toBoolean(const Value& value) {
    return withPlainValue(value, ToBoolean());
}

Date toDate(const Value& value) {
    return withPlainValue(value, ToDate());
}

ObjectRef toObject(const Value& value) {
    const auto* object = value.getIf<ObjectRef>();
    if (object == nullptr)
        fail(errorNumber::objectRequired);
    if (*object == nullptr)
        fail(errorNumber::objectNotSet);
    return *object;
}

ObjectRef toObjectOrNothing(const Value& value) {
    if (const auto* object = value.getIf<ObjectRef>())
        return *object;
    if (value.isEmpty() || value.isNull() || value.isMissing())
        return nullptr;
    fail(errorNumber::typeMismatch);
}

std::int16_t roundToInt16(double number) {
    return roundTo<std::int16_t>(number);
}

std::int32_t roundToInt32(double number) {
    return roundTo<std::int32_t>(number);
}

bool isBlank(const Value& value) {
    const auto* text = value.getIf<std::u16string>();
    return value.isEmpty() || value.isNull() || (text != nullptr && text->empty());
}

bool isNumeric(std::u16string_view text) {
    const std::optional<double> number = localeRules().parseNumber(text);
    return number && std::isfinite(*number);
}

bool isNumeric(const Value& value) {
    if (const auto* object = value.getIf<ObjectRef>())
        return *object != nullptr && isNumeric(get(*object, defaultMember));
    if (const auto* text = value.getIf<std::u16string>())
        return isNumeric(std::u16string_view(*text));
    return !(value.is<Date>() || value.isNull() || value.isMissing() || value.is<ErrorCode>());
}

bool isDate(std::u16string_view text) {
    return localeRules().parseDate(text).has_value();
}

} // namespace orv::automation
