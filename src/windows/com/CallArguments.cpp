#include "windows/com/CallArguments.h"

#include "windows/com/ValueConversion.h"

namespace orv::windows {

CallArguments::CallArguments(automation::Arguments arguments) : arguments_(arguments), count_(arguments.size()) {
    if (count_ > fewArguments)
        many_.resize(2 * count_);
    all_ = count_ > fewArguments ? many_.data() : few_.data();
    for (std::size_t i = 0; i < 2 * count_; ++i)
        VariantInit(&all_[i]);
    for (std::size_t i = 0; i < count_; ++i) {
        UniqueVariant converted = toVariant(arguments[i].value());
        if (!arguments[i].isByReference()) {
            sent(i) = converted.release();
            continue;
        }
        hasReferences_ = true;
        referent(i) = converted.release();
        V_VT(&sent(i)) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&sent(i)) = &referent(i);
    }
}

CallArguments::~CallArguments() {
    for (std::size_t i = 0; i < 2 * count_; ++i)
        VariantClear(&all_[i]);
}

DISPPARAMS CallArguments::parameters() noexcept {
    return DISPPARAMS{all_, nullptr, static_cast<UINT>(count_), 0};
}

void CallArguments::referToContent() noexcept {
    for (std::size_t i = 0; i < count_; ++i) {
        if (!arguments_[i].isByReference())
            continue;
        VARIANT& variable = referent(i);
        const VARTYPE type = V_VT(&variable);
        if (type == VT_EMPTY || type == VT_NULL || type == VT_ERROR)
            continue;
        V_VT(&sent(i)) = static_cast<VARTYPE>(VT_BYREF | type);
        // A decimal takes up the whole variant; everything else stands at one place of it.
        V_BYREF(&sent(i)) = type == VT_DECIMAL ? static_cast<void*>(&V_DECIMAL(&variable)) : &V_I8(&variable);
    }
}

void CallArguments::writeBack() {
    for (std::size_t i = 0; hasReferences_ && i < count_; ++i) {
        if (arguments_[i].isByReference())
            arguments_[i].assign(toValue(referent(i)));
    }
}

} // namespace orv::windows
