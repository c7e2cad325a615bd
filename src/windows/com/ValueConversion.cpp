#include "windows/com/ValueConversion.h"

#include "automation/AutomationError.h"
#include "automation/Records.h"
#include "windows/com/ComPtr.h"
#include "windows/com/Errors.h"
#include "windows/com/Wrappers.h"

#include <cstdlib>
#include <limits>
#include <type_traits>

namespace orv::windows {

using automation::AutomationError;
using automation::Value;
namespace errorNumber = automation::errorNumber;

namespace {

[[noreturn]] void typeMismatch() {
    throw AutomationError::runtime(errorNumber::typeMismatch);
}

Value wholeNumber(std::uint64_t magnitude, bool negative) {
    return automation::Decimal{.hi = 0, .lo = magnitude, .scale = 0, .negative = negative};
}

Value objectValue(IUnknown* object) {
    if (!object)
        return automation::ObjectRef();
    ComPtr<IDispatch> dispatch;
    if (FAILED(object->QueryInterface(__uuidof(IDispatch), dispatch.putVoid())))
        typeMismatch();
    return wrap(dispatch.get());
}

/// Unlocks an array's data at the end of a block.
class ArrayData {
  public:
    explicit ArrayData(SAFEARRAY* array) : array_(array) {
        if (const HRESULT result = SafeArrayAccessData(array, &data_); FAILED(result))
            throw errorOfCall(result, nullptr, nullptr);
    }
    ArrayData(const ArrayData&) = delete;
    ArrayData& operator=(const ArrayData&) = delete;
    ~ArrayData() { SafeArrayUnaccessData(array_); }
    char* bytes() const noexcept { return static_cast<char*>(data_); }

  private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
};

/// Arrays may hold references to arrays, in the end to themselves.
constexpr int deepestArray = 32;

Value valueAt(const VARIANT& variant, int depth);

Value arrayValue(SAFEARRAY* array, VARTYPE elementType, int depth) {
    const automation::Collection list = automation::makeCollection();
    if (!array)
        return list.object();
    if (SafeArrayGetDim(array) != 1 || depth > deepestArray)
        typeMismatch();
    const ArrayData data(array);
    const UINT size = SafeArrayGetElemsize(array);
    for (ULONG i = 0; i < array->rgsabound[0].cElements; ++i) {
        // A variant that refers to the element, so that every element type is read as a by-reference value is.
        VARIANT element;
        V_VT(&element) = static_cast<VARTYPE>(elementType | VT_BYREF);
        V_BYREF(&element) = data.bytes() + static_cast<std::size_t>(i) * size;
        list.add(valueAt(element, depth + 1));
    }
    return list.object();
}

Value valueThrough(const VARIANT& reference, int depth) {
    const auto type = static_cast<VARTYPE>(V_VT(&reference) & ~VT_BYREF);
    if (type == VT_VARIANT) {
        const VARIANT* carrier = carrierOf(reference);
        if (!carrier)
            typeMismatch();
        return valueAt(*carrier, depth);
    }
    if (!V_BYREF(&reference))
        typeMismatch();
    if (type & VT_ARRAY)
        return arrayValue(*V_ARRAYREF(&reference), static_cast<VARTYPE>(type & VT_TYPEMASK), depth);
    UniqueVariant direct;
    if (FAILED(VariantCopyInd(&direct.ref(), const_cast<VARIANT*>(&reference))))
        typeMismatch();
    return toValue(direct.get());
}

struct VariantWriter {
    VARIANT& out;

    void operator()(automation::Empty) const {}
    void operator()(automation::Null) const { V_VT(&out) = VT_NULL; }
    void operator()(automation::Missing) const {
        V_ERROR(&out) = DISP_E_PARAMNOTFOUND;
        V_VT(&out) = VT_ERROR;
    }
    void operator()(bool v) const {
        V_BOOL(&out) = v ? VARIANT_TRUE : VARIANT_FALSE;
        V_VT(&out) = VT_BOOL;
    }
    void operator()(std::int16_t v) const {
        V_I2(&out) = v;
        V_VT(&out) = VT_I2;
    }
    void operator()(std::int32_t v) const {
        V_I4(&out) = v;
        V_VT(&out) = VT_I4;
    }
    void operator()(double v) const {
        V_R8(&out) = v;
        V_VT(&out) = VT_R8;
    }
    void operator()(automation::Currency v) const {
        V_CY(&out).int64 = v.tenThousandths;
        V_VT(&out) = VT_CY;
    }
    void operator()(const automation::Decimal& v) const {
        // The decimal shares its first two bytes with the variant's type, which therefore is set last.
        DECIMAL& decimal = V_DECIMAL(&out);
        decimal.scale = v.scale;
        decimal.sign = v.negative ? DECIMAL_NEG : 0;
        decimal.Hi32 = v.hi;
        decimal.Lo64 = v.lo;
        V_VT(&out) = VT_DECIMAL;
    }
    void operator()(automation::Date v) const {
        V_DATE(&out) = v.days;
        V_VT(&out) = VT_DATE;
    }
    void operator()(const std::u16string& v) const {
        V_BSTR(&out) = UniqueBstr(v).release();
        V_VT(&out) = VT_BSTR;
    }
    void operator()(const automation::ObjectRef& v) const {
        V_DISPATCH(&out) = expose(v).detach();
        V_VT(&out) = VT_DISPATCH;
    }
    void operator()(automation::ErrorCode v) const {
        V_ERROR(&out) = v.code;
        V_VT(&out) = VT_ERROR;
    }
};

/// The size of what a by-reference variant of this type points to; 0 for types that cannot be written to.
std::size_t sizeOfType(VARTYPE type) {
    switch (type) {
    case VT_I1:
    case VT_UI1:
        return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
        return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
        return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
        return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
        return sizeof(void*);
    default:
        return 0;
    }
}

Value valueAt(const VARIANT& variant, int depth) {
    const VARTYPE type = V_VT(&variant);
    if (type & VT_BYREF)
        return valueThrough(variant, depth);
    if (type & VT_ARRAY)
        return arrayValue(V_ARRAY(&variant), static_cast<VARTYPE>(type & VT_TYPEMASK), depth);
    switch (type) {
    case VT_EMPTY:
        return {};
    case VT_NULL:
        return automation::Null{};
    case VT_BOOL:
        return V_BOOL(&variant) != VARIANT_FALSE;
    case VT_I1:
        return static_cast<std::int16_t>(static_cast<signed char>(V_I1(&variant)));
    case VT_UI1:
        return static_cast<std::int16_t>(V_UI1(&variant));
    case VT_I2:
        return static_cast<std::int16_t>(V_I2(&variant));
    case VT_UI2:
        return static_cast<std::int32_t>(V_UI2(&variant));
    case VT_I4:
    case VT_INT:
        return static_cast<std::int32_t>(V_I4(&variant));
    case VT_UI4:
    case VT_UINT:
        if (V_UI4(&variant) <= static_cast<ULONG>(std::numeric_limits<std::int32_t>::max()))
            return static_cast<std::int32_t>(V_UI4(&variant));
        return wholeNumber(V_UI4(&variant), false);
    case VT_I8: {
        const auto bits = static_cast<std::uint64_t>(V_I8(&variant));
        const bool negative = V_I8(&variant) < 0;
        return wholeNumber(negative ? 0 - bits : bits, negative);
    }
    case VT_UI8:
        return wholeNumber(V_UI8(&variant), false);
    case VT_R4:
        return static_cast<double>(V_R4(&variant));
    case VT_R8:
        return V_R8(&variant);
    case VT_CY:
        return automation::Currency{V_CY(&variant).int64};
    case VT_DECIMAL: {
        const DECIMAL& decimal = V_DECIMAL(&variant);
        constexpr BYTE mostDecimals = 28;
        if (decimal.scale > mostDecimals)
            typeMismatch();
        return automation::Decimal{decimal.Hi32, decimal.Lo64, decimal.scale, (decimal.sign & DECIMAL_NEG) != 0};
    }
    case VT_DATE:
        return automation::Date{V_DATE(&variant)};
    case VT_BSTR:
        return viewOf(V_BSTR(&variant));
    case VT_DISPATCH:
        return wrap(V_DISPATCH(&variant));
    case VT_UNKNOWN:
        return objectValue(V_UNKNOWN(&variant));
    case VT_ERROR:
        if (V_ERROR(&variant) == DISP_E_PARAMNOTFOUND)
            return automation::Missing{};
        return automation::ErrorCode{V_ERROR(&variant)};
    default:
        typeMismatch();
    }
}

} // namespace

const VARIANT* carrierOf(const VARIANT& sent) noexcept {
    constexpr int deepestReference = 16; // nobody nests them deeper
    const VARIANT* carrier = &sent;
    for (int depth = 0; depth < deepestReference; ++depth) {
        if (!carrier || V_VT(carrier) != (VT_BYREF | VT_VARIANT))
            return carrier;
        carrier = V_VARIANTREF(carrier);
    }
    return nullptr;
}

Value toValue(const VARIANT& variant) {
    return valueAt(variant, 0);
}

UniqueVariant toVariant(const Value& value) {
    UniqueVariant variant;
    std::visit(VariantWriter{variant.ref()}, value.storage());
    return variant;
}

void assignThrough(const VARIANT& reference, UniqueVariant value) {
    const auto type = static_cast<VARTYPE>(V_VT(&reference) & ~VT_BYREF);
    if (!V_BYREF(&reference))
        typeMismatch();
    if (type == VT_VARIANT) {
        VARIANT& target = *V_VARIANTREF(&reference);
        if (V_VT(&target) & VT_BYREF)
            return assignThrough(target, std::move(value));
        // What was there is released when the new value stands: it may run code that looks.
        std::swap(target, value.ref());
        return;
    }
    if (type == VT_DECIMAL) {
        if (const HRESULT result = VariantChangeType(&value.ref(), &value.ref(), 0, VT_DECIMAL); FAILED(result))
            throw errorOfCall(result, nullptr, nullptr);
        *V_DECIMALREF(&reference) = V_DECIMAL(&value.get());
        return;
    }
    const std::size_t size = sizeOfType(type);
    if (size == 0)
        typeMismatch();
    if (value.type() != type) {
        if (const HRESULT result = VariantChangeType(&value.ref(), &value.ref(), 0, type); FAILED(result))
            throw errorOfCall(result, nullptr, nullptr);
    }
    // Every type of the list keeps its content at the same place of the variant: swapping the bytes hands the old
    // content over to `value`, which frees it.
    auto* target = static_cast<unsigned char*>(V_BYREF(&reference));
    auto* content = reinterpret_cast<unsigned char*>(&V_I8(&value.ref()));
    std::swap_ranges(target, target + size, content);
}

} // namespace orv::windows
