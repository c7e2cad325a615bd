#include "windows/com/ValueConversion.h"
#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Views.h"
#include "windows/FakeDispatch.h"

#include <gtest/gtest.h>

#include <string>

namespace orv::windows::test {

using automation::AutomationError;
using automation::Value;

namespace {

UniqueVariant variantOf(VARTYPE type, LONGLONG bits) {
    UniqueVariant variant;
    V_VT(&variant.ref()) = type;
    V_I8(&variant.ref()) = bits;
    return variant;
}

Value decimal(std::uint64_t magnitude, bool negative) {
    return automation::Decimal{0, magnitude, 0, negative};
}

struct NumberCase {
    const char* name;
    VARTYPE type;
    LONGLONG bits;
    Value value;
};

TEST(ValueConversion, ReadsEveryNumberTypeExactly) {
    const NumberCase cases[] = {
        {"I1", VT_I1, 0xFF, std::int16_t{-1}},
        {"UI1", VT_UI1, 0xFF, std::int16_t{255}},
        {"I2", VT_I2, 0x8000, std::int16_t{-32768}},
        {"UI2", VT_UI2, 0xFFFF, std::int32_t{65535}},
        {"I4", VT_I4, 0xFFFFFFFF, std::int32_t{-1}},
        {"INT", VT_INT, 7, std::int32_t{7}},
        {"UI4 that fits", VT_UI4, 7, std::int32_t{7}},
        {"UI4 beyond 31 bits", VT_UI4, 0xFFFFFFFF, decimal(0xFFFFFFFF, false)},
        {"UINT beyond 31 bits", VT_UINT, 0x80000000, decimal(0x80000000, false)},
        {"I8", VT_I8, -5, decimal(5, true)},
        {"smallest I8", VT_I8, std::numeric_limits<LONGLONG>::min(), decimal(0x8000000000000000, true)},
        {"UI8", VT_UI8, -1, decimal(0xFFFFFFFFFFFFFFFF, false)},
        {"R4", VT_R4, 0x3FC00000, 1.5},
        {"CY", VT_CY, 12345, automation::Currency{12345}},
        {"True", VT_BOOL, 0xFFFF, true},
        {"False", VT_BOOL, 0, false},
        {"error", VT_ERROR, 0x80020005, automation::ErrorCode{static_cast<std::int32_t>(0x80020005)}},
        {"left out", VT_ERROR, 0x80020004, automation::Missing{}},
    };
    for (const NumberCase& c : cases) {
        SCOPED_TRACE(c.name);
        const UniqueVariant variant = variantOf(c.type, c.bits);
        EXPECT_TRUE(toValue(variant.get()) == c.value);

        // The same by reference, as a typed variable and as a variant.
        VARIANT reference;
        V_VT(&reference) = static_cast<VARTYPE>(c.type | VT_BYREF);
        V_BYREF(&reference) = const_cast<LONGLONG*>(&V_I8(&variant.get()));
        EXPECT_TRUE(toValue(reference) == c.value) << "by reference";
        V_VT(&reference) = VT_VARIANT | VT_BYREF;
        V_VARIANTREF(&reference) = const_cast<VARIANT*>(&variant.get());
        EXPECT_TRUE(toValue(reference) == c.value) << "by reference to a variant";
    }
}

TEST(ValueConversion, KeepsEveryValueThroughAVariant) {
    using namespace std::string_literals;
    const Value values[] = {
        Value(),
        automation::Null{},
        automation::Missing{},
        true,
        false,
        std::int16_t{-7},
        std::int32_t{-2147483647},
        0.1,
        automation::Currency{-1},
        automation::Decimal{1, 2, 28, true},
        automation::Date{45351.5},
        Value(u""),
        Value(u"中文 \xD83D\xDE00"),
        Value(u"a\0b\0"s),
        Value(u"\xD800 lone"s),
        automation::ErrorCode{static_cast<std::int32_t>(0x800A01A8)},
        automation::ObjectRef(),
    };
    for (const Value& value : values)
        EXPECT_TRUE(toValue(toVariant(value).get()) == value) << "value of kind " << value.storage().index();
}

TEST(ValueConversion, TakesANullTextForAnEmptyOne) {
    UniqueVariant variant;
    V_VT(&variant.ref()) = VT_BSTR;
    V_BSTR(&variant.ref()) = nullptr;
    EXPECT_TRUE(toValue(variant.get()) == Value(u""));
    EXPECT_EQ(SysStringLen(V_BSTR(&toVariant(Value(u"a\0b")).get())), 1u);
}

TEST(ValueConversion, MakesACollectionOfAnArray) {
    SAFEARRAY* texts = SafeArrayCreateVector(VT_BSTR, 5, 2);
    SAFEARRAY* variants = SafeArrayCreateVector(VT_VARIANT, 0, 2);
    for (LONG i = 0; i < 2; ++i) {
        const UniqueBstr text(i == 0 ? u"one" : u"two");
        LONG position = 5 + i;
        ASSERT_EQ(SafeArrayPutElement(texts, &position, text.get()), S_OK);
        UniqueVariant element = toVariant(i == 0 ? Value(u"one") : Value(u"two"));
        ASSERT_EQ(SafeArrayPutElement(variants, const_cast<LONG*>(&i), &element.ref()), S_OK);
    }
    for (const auto& [array, type] : {std::pair(texts, VT_BSTR), std::pair(variants, VT_VARIANT)}) {
        UniqueVariant variant;
        V_VT(&variant.ref()) = static_cast<VARTYPE>(VT_ARRAY | type);
        V_ARRAY(&variant.ref()) = array;
        VARIANT reference;
        V_VT(&reference) = VT_VARIANT | VT_BYREF;
        V_VARIANTREF(&reference) = &variant.ref();
        for (const VARIANT* sent : {&variant.get(), const_cast<const VARIANT*>(&reference)}) {
            const automation::Collection list(automation::toObject(toValue(*sent)));
            ASSERT_EQ(list.count(), 2);
            EXPECT_TRUE(list.item(2) == Value(u"two"));
        }
    }
    const SAFEARRAYBOUND bounds[] = {{1, 0}, {1, 0}};
    UniqueVariant table;
    V_VT(&table.ref()) = VT_ARRAY | VT_I4;
    V_ARRAY(&table.ref()) = SafeArrayCreate(VT_I4, 2, const_cast<SAFEARRAYBOUND*>(bounds));
    EXPECT_THROW(toValue(table.get()), AutomationError) << "two dimensions";
}

TEST(ValueConversion, WritesThroughAReferenceInTheTypeThatIsThere) {
    LONG number = 1;
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_I4;
    V_I4REF(&reference) = &number;
    assignThrough(reference, toVariant(Value(u"42")));
    EXPECT_EQ(number, 42);
    EXPECT_THROW(assignThrough(reference, toVariant(Value(u"no number"))), AutomationError);
    EXPECT_EQ(number, 42);

    BSTR text = SysAllocString(L"old");
    V_VT(&reference) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&reference) = &text;
    assignThrough(reference, toVariant(Value(std::int32_t{5})));
    EXPECT_EQ(viewOf(text), u"5");
    SysFreeString(text);

    UniqueVariant inner = toVariant(Value(u"old"));
    VARIANT nested;
    V_VT(&nested) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&nested) = &inner.ref();
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &nested;
    assignThrough(reference, toVariant(Value(true)));
    EXPECT_TRUE(toValue(inner.get()) == Value(true));
}

TEST(ValueConversion, HandsObjectsThroughUnderTheirOwnIdentity) {
    const ComPtr<FakeDispatch> fake = makeComObject<FakeDispatch>();
    UniqueVariant variant;
    V_VT(&variant.ref()) = VT_UNKNOWN;
    V_UNKNOWN(&variant.ref()) = fake.get();
    fake->AddRef();
    {
        const Value value = toValue(variant.get());
        const UniqueVariant back = toVariant(value);
        EXPECT_EQ(V_VT(&back.get()), VT_DISPATCH);
        EXPECT_EQ(V_DISPATCH(&back.get()), fake.get());
        EXPECT_TRUE(toValue(back.get()) == value) << "one view for one pointer";
    }
    EXPECT_EQ(fake->references(), 2u) << "nothing is kept once the values are gone";
}

} // namespace

} // namespace orv::windows::test
