#include "RandomArguments.h"

#include <cstring>
#include <iterator>

namespace orv::windows::test {

namespace {

constexpr VARTYPE plainTypes[] = {VT_EMPTY, VT_NULL, VT_I2,       VT_I4,      VT_R4,    VT_R8,   VT_CY,      VT_DATE,
                                  VT_BSTR,  VT_BSTR, VT_DISPATCH, VT_UNKNOWN, VT_ERROR, VT_BOOL, VT_DECIMAL, VT_I1,
                                  VT_UI1,   VT_UI2,  VT_UI4,      VT_I8,      VT_UI8,   VT_INT,  VT_UINT};
// No such values exist; the bits behind them mean nothing.
constexpr VARTYPE wrongTypes[] = {15, 24, VT_HRESULT, VT_LPWSTR, VT_FILETIME, VT_CLSID, 77, 0x0FFF};
constexpr const char16_t* texts[] = {u"",     u"1",   u"0",           u"-7.5",       u"True",    u"2024-02-29",
                                     u"客户", u"abc", u"99999999999", u",1*,2,3,4,", u"vsFilter"};
constexpr double numbers[] = {0, 1, -1, 0.5, 1e10, -1e300, 65536, 2147483648.0};
constexpr DISPID oddNames[] = {0, 1, 2, 3, 4, -1, DISPID_PROPERTYPUT, 1000, static_cast<DISPID>(0x80000000)};

} // namespace

RandomArguments::RandomArguments(std::mt19937& random, const std::vector<IDispatch*>& objects,
                                 std::optional<CallShape> shape)
    : random_(random), objects_(objects) {
    const std::size_t count = shape ? shape->count : below(8) == 0 ? below(9) : below(5);
    for (std::size_t i = 0; i < count; ++i)
        arguments_.push_back(value(0));
    before_ = arguments_;
    for (const VARIANT& argument : arguments_)
        texts_.emplace_back(V_VT(&argument) == VT_BSTR ? viewOf(V_BSTR(&argument)) : std::u16string_view());
    const std::size_t named = !shape && below(3) == 0 ? below(count + 2) : 0;
    for (std::size_t i = 0; i < named; ++i)
        names_.push_back(oddNames[below(std::size(oddNames))]);
    if (shape ? shape->isWrite : below(4) == 0)
        names_.assign(1, DISPID_PROPERTYPUT);
    parameters_ = {arguments_.data(), names_.data(), static_cast<UINT>(count), static_cast<UINT>(names_.size())};
    if (shape)
        return;
    if (below(20) == 0)
        parameters_.rgvarg = nullptr;
    if (below(20) == 0)
        parameters_.rgdispidNamedArgs = nullptr;
    isNull_ = below(100) == 0;
}

RandomArguments::~RandomArguments() {
    for (VARIANT& argument : arguments_)
        VariantClear(&argument);
    for (VARIANT& referent : referents_)
        VariantClear(&referent);
}

VARIANT& RandomArguments::keep(const VARIANT& variant) {
    return referents_.emplace_back(variant);
}

VARIANT RandomArguments::value(int depth) {
    constexpr int deepest = 4;
    switch (depth < deepest ? below(12) : 11) {
    case 0:
    case 1:
    case 2:
    case 3:
        return reference(depth);
    case 4:
        return array(depth);
    default:
        return plain();
    }
}

VARIANT RandomArguments::plain() {
    VARIANT out{};
    if (below(40) == 0) {
        V_I8(&out) = static_cast<LONGLONG>(random_());
        V_VT(&out) = wrongTypes[below(std::size(wrongTypes))];
        return out;
    }
    const VARTYPE type = plainTypes[below(std::size(plainTypes))];
    switch (type) {
    case VT_BSTR:
        if (below(8) != 0)
            V_BSTR(&out) = UniqueBstr(texts[below(std::size(texts))]).release();
        break;
    case VT_DISPATCH:
    case VT_UNKNOWN:
        V_DISPATCH(&out) = below(5) == 0 ? nullptr : objects_[below(objects_.size())];
        if (V_DISPATCH(&out))
            V_DISPATCH(&out)->AddRef();
        break;
    case VT_ERROR:
        V_ERROR(&out) = below(2) == 0 ? DISP_E_PARAMNOTFOUND : E_FAIL;
        break;
    case VT_R8:
    case VT_DATE:
        V_R8(&out) = numbers[below(std::size(numbers))];
        break;
    case VT_DECIMAL:
        V_DECIMAL(&out).Lo64 = random_();
        V_DECIMAL(&out).scale = static_cast<BYTE>(below(40)); // beyond 28 is none
        break;
    case VT_BOOL:
        V_BOOL(&out) = below(2) == 0 ? VARIANT_TRUE : VARIANT_FALSE;
        break;
    default:
        V_I8(&out) = below(2) == 0 ? static_cast<LONGLONG>(below(5)) : static_cast<LONGLONG>(random_());
        break;
    }
    V_VT(&out) = type;
    return out;
}

VARIANT RandomArguments::reference(int depth) {
    VARIANT out{};
    const std::size_t kind = below(10);
    if (kind == 0) { // to nothing
        const VARTYPE type = plainTypes[below(std::size(plainTypes))];
        V_VT(&out) = static_cast<VARTYPE>(VT_BYREF | (below(3) == 0 ? VARTYPE{VT_VARIANT} : type));
        return out;
    }
    if (kind == 1) { // to itself
        VARIANT& loop = keep({});
        V_VT(&loop) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&loop) = &loop;
        return loop;
    }
    VARIANT& target = keep(value(depth + 1));
    const VARTYPE type = V_VT(&target);
    if (kind < 6 || (type & VT_BYREF) != 0) {
        V_VT(&out) = VT_BYREF | VT_VARIANT;
        V_VARIANTREF(&out) = &target;
        return out;
    }
    V_VT(&out) = static_cast<VARTYPE>(VT_BYREF | type);
    V_BYREF(&out) = type == VT_DECIMAL ? static_cast<void*>(&V_DECIMAL(&target)) : &V_I8(&target);
    return out;
}

VARIANT RandomArguments::array(int depth) {
    VARIANT out{};
    const VARTYPE type = below(2) == 0 ? VT_VARIANT : below(2) == 0 ? VT_BSTR : VT_I4;
    V_VT(&out) = static_cast<VARTYPE>(VT_ARRAY | type);
    if (below(6) == 0)
        return out;
    SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(below(4)), static_cast<LONG>(below(3))}, {2, 0}};
    SAFEARRAY* made = SafeArrayCreate(type, below(4) == 0 ? 2 : 1, bounds);
    V_ARRAY(&out) = made;
    for (ULONG i = 0; made && made->cDims == 1 && i < made->rgsabound[0].cElements; ++i) {
        LONG index = made->rgsabound[0].lLbound + static_cast<LONG>(i);
        if (type == VT_VARIANT) {
            UniqueVariant element = UniqueVariant::attach(depth < 2 ? value(depth + 2) : plain());
            SafeArrayPutElement(made, &index, &element.ref());
        } else if (type == VT_BSTR) {
            const UniqueBstr element(texts[below(std::size(texts))]);
            SafeArrayPutElement(made, &index, element.get());
        }
    }
    return out;
}

std::string RandomArguments::damage() const {
    for (std::size_t i = 0; i < arguments_.size(); ++i) {
        if (std::memcmp(&arguments_[i], &before_[i], sizeof(VARIANT)) != 0)
            return "argument " + std::to_string(i) + " was written to";
        if (V_VT(&arguments_[i]) == VT_BSTR && viewOf(V_BSTR(&arguments_[i])) != texts_[i])
            return "the text of argument " + std::to_string(i) + " changed";
    }
    return {};
}

} // namespace orv::windows::test
