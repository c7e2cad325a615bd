#include "conditions/Operators.h"

#include "support/Letters.h"

namespace orv::conditions {

namespace {

struct Operator {
    std::u16string_view text;
    ValueForm form;
};

constexpr Operator operators[] = {
    {u"=", ValueForm::scalar},      {u"!=", ValueForm::scalar},    {u"<=", ValueForm::scalar},
    {u">=", ValueForm::scalar},     {u">", ValueForm::scalar},     {u"<", ValueForm::scalar},
    {u"<>", ValueForm::scalar},     {u"IN", ValueForm::list},      {u"NOT IN", ValueForm::list},
    {u"BETWEEN", ValueForm::range}, {u"LIKE", ValueForm::pattern}, {u"NOT LIKE", ValueForm::pattern},
};

} // namespace

ValueForm valueForm(std::u16string_view operatorText) noexcept {
    const std::u16string_view text = support::Trim(operatorText);
    for (const Operator& known : operators)
        if (text.size() == known.text.size() && support::equalIgnoringCase(text, known.text))
            return known.form;
    return ValueForm::none;
}

bool isNotEqual(std::u16string_view operatorText) noexcept {
    return support::Trim(operatorText) == u"<>";
}

} // namespace orv::conditions
