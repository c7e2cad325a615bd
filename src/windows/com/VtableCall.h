#pragma once

#include "windows/com/Errors.h"
#include "windows/com/InvokeCall.h"
#include "windows/com/ValueConversion.h"

#include <tuple>
#include <type_traits>
#include <utility>

// From an `Invoke` to the vtable method of a dual interface: arguments converted to the parameters' types, changed
// by-reference arguments handed back, the result put into a variant. Everything is known at compile time.
namespace orv::windows {

/// How a type of the interface lies in a variant.
template <class T>
struct InVariant;
template <>
struct InVariant<LONG> {
    static constexpr VARTYPE type = VT_I4;
    static LONG& of(VARIANT& v) noexcept { return V_I4(&v); }
};
template <>
struct InVariant<VARIANT_BOOL> {
    static constexpr VARTYPE type = VT_BOOL;
    static VARIANT_BOOL& of(VARIANT& v) noexcept { return V_BOOL(&v); }
};
template <>
struct InVariant<DATE> {
    static constexpr VARTYPE type = VT_DATE;
    static DATE& of(VARIANT& v) noexcept { return V_DATE(&v); }
};
template <>
struct InVariant<BSTR> {
    static constexpr VARTYPE type = VT_BSTR;
    static BSTR& of(VARIANT& v) noexcept { return V_BSTR(&v); }
};
template <>
struct InVariant<IDispatch*> {
    static constexpr VARTYPE type = VT_DISPATCH;
    static IDispatch*& of(VARIANT& v) noexcept { return V_DISPATCH(&v); }
};

/// A copy of an argument in the type of a parameter.
inline HRESULT convert(const VARIANT& carrier, VARTYPE type, UniqueVariant& out) noexcept {
    // The platform's routines follow a reference without a look.
    if ((V_VT(&carrier) & VT_BYREF) != 0 && !V_BYREF(&carrier))
        return DISP_E_TYPEMISMATCH;
    auto* source = const_cast<VARIANT*>(&carrier);
    if (type != VT_DISPATCH)
        return VariantChangeTypeEx(out.put(), source, LOCALE_USER_DEFAULT, 0, type);
    // Nothing but an object, or the absence of one, is taken for an object.
    if (const HRESULT copied = VariantCopyInd(out.put(), source); FAILED(copied))
        return copied;
    if (out.type() == VT_DISPATCH)
        return S_OK;
    if (out.type() != VT_UNKNOWN)
        return DISP_E_TYPEMISMATCH;
    IUnknown* unknown = V_UNKNOWN(&out.get());
    IDispatch* dispatch = nullptr;
    if (unknown && FAILED(unknown->QueryInterface(__uuidof(IDispatch), reinterpret_cast<void**>(&dispatch))))
        return DISP_E_TYPEMISMATCH;
    VARIANT* converted = out.put();
    V_DISPATCH(converted) = dispatch;
    V_VT(converted) = VT_DISPATCH;
    return S_OK;
}

/// One parameter on its way: `T` is how the method declares it.
template <class T>
class Parameter {
  public:
    HRESULT read(const VARIANT* sent) noexcept {
        if (!sent)
            return S_OK;
        const VARIANT* found = carrierOf(*sent);
        if (!found)
            return DISP_E_TYPEMISMATCH;
        const VARIANT& carrier = *found;
        if (V_VT(&carrier) == In::type) {
            value_ = In::of(const_cast<VARIANT&>(carrier));
            return S_OK;
        }
        const HRESULT result = convert(carrier, In::type, copy_);
        if (SUCCEEDED(result))
            value_ = In::of(copy_.ref());
        return result;
    }
    T pass() noexcept { return static_cast<T>(value_); }
    HRESULT handBack() noexcept { return S_OK; }

  private:
    using In = InVariant<std::conditional_t<std::is_enum_v<T>, LONG, T>>;
    std::remove_reference_t<decltype(In::of(std::declval<VARIANT&>()))> value_{};
    UniqueVariant copy_; ///< owns a converted value
};

/// A by-reference parameter: the caller's own variable when it has the declared type, else a copy that is handed back.
template <class T>
class ReferenceParameter {
  public:
    HRESULT read(const VARIANT* sent) noexcept {
        const VARIANT* found = carrierOf(*sent);
        if (!found)
            return DISP_E_TYPEMISMATCH;
        const VARIANT& carrier = *found;
        if (V_VT(&carrier) == (VT_BYREF | InVariant<T>::type) && V_BYREF(&carrier)) {
            target_ = static_cast<T*>(V_BYREF(&carrier));
            return S_OK;
        }
        if ((V_VT(sent) & VT_BYREF) != 0)
            sent_ = sent;
        const HRESULT result = convert(carrier, InVariant<T>::type, copy_);
        target_ = &InVariant<T>::of(copy_.ref());
        return result;
    }
    T* pass() noexcept { return target_; }
    HRESULT handBack() noexcept {
        if (!sent_)
            return S_OK;
        try {
            assignThrough(*sent_, std::move(copy_));
            return S_OK;
        } catch (const automation::AutomationError&) {
            return DISP_E_TYPEMISMATCH;
        } catch (...) {
            return E_OUTOFMEMORY;
        }
    }

  private:
    const VARIANT* sent_ = nullptr;
    T* target_ = nullptr;
    UniqueVariant copy_;
};

template <class T>
struct ParameterOf {
    using type = Parameter<T>;
};
template <>
struct ParameterOf<LONG*> {
    using type = ReferenceParameter<LONG>;
};
template <>
struct ParameterOf<DATE*> {
    using type = ReferenceParameter<DATE>;
};
template <>
struct ParameterOf<BSTR*> {
    using type = ReferenceParameter<BSTR>;
};
template <>
struct ParameterOf<IDispatch**> {
    using type = ReferenceParameter<IDispatch*>;
};

/// What the method writes its result to.
template <class T>
class ResultSlot {
  public:
    T* pass() noexcept { return &InVariant<T>::of(value_.ref()); }
    void handBack(VARIANT* out) noexcept {
        V_VT(&value_.ref()) = InVariant<T>::type;
        if (out)
            *out = value_.release();
    }

  private:
    UniqueVariant value_;
};
template <>
class ResultSlot<VARIANT> {
  public:
    VARIANT* pass() noexcept { return &value_.ref(); }
    void handBack(VARIANT* out) noexcept {
        if (out)
            *out = value_.release();
    }

  private:
    UniqueVariant value_;
};

template <class Method>
struct Signature;
template <class I, class... P>
struct Signature<HRESULT (STDMETHODCALLTYPE I::*)(P...)> {
    using Interface = I;
    using Parameters = std::tuple<P...>;
};

enum class ResultParameter { none, last };

/// Calls a method of a dual interface with the arguments of `call`. By-reference arguments show what the method did to
/// them also when it fails.
template <auto method, ResultParameter resultParameter>
HRESULT callMethod(typename Signature<decltype(method)>::Interface& target, InvokeCall& call) noexcept {
    using Declared = typename Signature<decltype(method)>::Parameters;
    constexpr bool hasResult = resultParameter == ResultParameter::last;
    constexpr std::size_t count = std::tuple_size_v<Declared> - (hasResult ? 1 : 0);
    return [&]<std::size_t... i>(std::index_sequence<i...>)->HRESULT {
        [[maybe_unused]] std::tuple<typename ParameterOf<std::tuple_element_t<i, Declared>>::type...> parameters;
        HRESULT outcome = S_OK;
        [[maybe_unused]] const auto keepFirstFailure = [&](std::size_t position, HRESULT step) {
            if (FAILED(step) && SUCCEEDED(outcome)) {
                outcome = step;
                call.setWrong(position);
            }
        };
        (keepFirstFailure(i, std::get<i>(parameters).read(call.argument(i))), ...);
        if (FAILED(outcome))
            return outcome;
        if constexpr (hasResult) {
            ResultSlot<std::remove_pointer_t<std::tuple_element_t<count, Declared>>> result;
            outcome = (target.*method)(std::get<i>(parameters).pass()..., result.pass());
            (keepFirstFailure(i, std::get<i>(parameters).handBack()), ...);
            if (SUCCEEDED(outcome))
                result.handBack(call.result);
        } else {
            outcome = (target.*method)(std::get<i>(parameters).pass()...);
            (keepFirstFailure(i, std::get<i>(parameters).handBack()), ...);
        }
        return outcome;
    }
    (std::make_index_sequence<count>());
}

} // namespace orv::windows
