#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "windows/FakeDispatch.h"
#include "windows/com/ValueConversion.h"
#include "windows/com/Wrappers.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

// Core objects as a host reaches them.

namespace orv::windows::test {

using automation::Value;

namespace {

DISPID idOf(IDispatch& object, std::wstring name) {
    wchar_t* spelling = name.data();
    DISPID id = DISPID_UNKNOWN;
    EXPECT_EQ(object.GetIDsOfNames(IID_NULL, &spelling, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    return id;
}

struct Answer {
    HRESULT result;
    UniqueVariant value;
    EXCEPINFO details{};
};

Answer invoke(IDispatch& object, DISPID id, WORD flags, std::initializer_list<Value> arguments) {
    std::vector<UniqueVariant> owned;
    std::vector<VARIANT> reversed;
    for (const Value& argument : arguments)
        owned.push_back(toVariant(argument));
    for (auto i = owned.rbegin(); i != owned.rend(); ++i)
        reversed.push_back(i->get());
    DISPID newValue = DISPID_PROPERTYPUT;
    const bool isWrite = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    DISPPARAMS parameters{reversed.data(), isWrite ? &newValue : nullptr, static_cast<UINT>(reversed.size()),
                          isWrite ? 1u : 0u};
    Answer answer{};
    answer.result = object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, answer.value.put(),
                                  &answer.details, nullptr);
    return answer;
}

TEST(CoreObject, AnswersByNameInAnyLetterCase) {
    const auto dictionary = automation::makeDictionary();
    dictionary.set(u"FKey", Value(u"x"));
    const auto exposed = expose(dictionary.object());
    EXPECT_EQ(idOf(*exposed, L"exists"), idOf(*exposed, L"Exists"));
    const Answer exists = invoke(*exposed, idOf(*exposed, L"EXISTS"), DISPATCH_METHOD, {Value(u"FKey")});
    EXPECT_EQ(exists.result, S_OK);
    EXPECT_TRUE(toValue(exists.value.get()) == Value(true));
    const Answer read = invoke(*exposed, DISPID_VALUE, DISPATCH_METHOD | DISPATCH_PROPERTYGET, {Value(u"FKey")});
    EXPECT_TRUE(toValue(read.value.get()) == Value(u"x"));
}

TEST(CoreObject, TakesWritesByValueAndByReference) {
    const auto dictionary = automation::makeDictionary();
    const auto exposed = expose(dictionary.object());
    EXPECT_EQ(invoke(*exposed, DISPID_VALUE, DISPATCH_PROPERTYPUT, {Value(u"a"), Value(1.5)}).result, S_OK);
    const automation::ObjectRef self = dictionary.object();
    EXPECT_EQ(invoke(*exposed, DISPID_VALUE, DISPATCH_PROPERTYPUTREF, {Value(u"self"), Value(self)}).result, S_OK);
    EXPECT_TRUE(dictionary.get(u"a") == Value(1.5));
    EXPECT_TRUE(dictionary.get(u"self") == Value(self)) << "an object of ours comes back as itself";
    dictionary.set(u"self", Value());
}

TEST(CoreObject, TellsItsErrors) {
    const auto exposed = expose(automation::makeDictionary().object());
    Answer answer = invoke(*exposed, DISPID_VALUE, DISPATCH_PROPERTYGET, {Value(u"absent")});
    EXPECT_EQ(answer.result, DISP_E_EXCEPTION);
    EXPECT_EQ(static_cast<DWORD>(answer.details.scode), 0x800A0005u);
    EXPECT_TRUE(viewOf(answer.details.bstrDescription) == automation::runtimeErrorText(5));
    EXPECT_FALSE(viewOf(answer.details.bstrSource).empty());
    SysFreeString(answer.details.bstrDescription);
    SysFreeString(answer.details.bstrSource);

    answer = invoke(*exposed, idOf(*exposed, L"NoSuchMember"), DISPATCH_METHOD, {});
    EXPECT_EQ(static_cast<DWORD>(answer.details.scode), 0x800A01B6u) << "438";
    SysFreeString(answer.details.bstrDescription);
    SysFreeString(answer.details.bstrSource);
    EXPECT_EQ(invoke(*exposed, 4711, DISPATCH_METHOD, {}).result, DISP_E_MEMBERNOTFOUND);

    wchar_t member[] = L"GetValue", parameter[] = L"key";
    wchar_t* names[] = {member, parameter};
    DISPID ids[2] = {};
    EXPECT_EQ(exposed->GetIDsOfNames(IID_NULL, names, 2, LOCALE_USER_DEFAULT, ids), DISP_E_UNKNOWNNAME);
    EXPECT_NE(ids[0], DISPID_UNKNOWN);
    EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST(CoreObject, HasOneWrapperWhileItLives) {
    const auto dictionary = automation::makeDictionary();
    const auto first = expose(dictionary.object());
    EXPECT_EQ(expose(dictionary.object()), first);
    EXPECT_EQ(wrap(first.get()), dictionary.object());
    EXPECT_EQ(expose(nullptr).get(), nullptr);
    EXPECT_EQ(wrap(nullptr), nullptr);
}

TEST(CoreObject, IsCountedAsAUseOfTheModule) {
    const long before = module::useCount();
    auto exposed = expose(automation::makeDictionary().object());
    EXPECT_EQ(module::useCount(), before + 1);
    exposed = nullptr;
    EXPECT_EQ(module::useCount(), before);
}

/// Changes its first argument, and lets go of what it is told to while it runs.
class Changing final : public automation::Object {
  public:
    Value invoke(std::u16string_view, automation::InvokeKind, automation::Arguments arguments) override {
        release();
        arguments[0].assign(Value(u"changed"));
        return Value(true);
    }
    std::function<void()> release = [] {};
};

TEST(CoreObject, HandsByReferenceArgumentsBack) {
    const auto exposed = expose(std::make_shared<Changing>());
    UniqueVariant variable = toVariant(Value(u"before"));
    BSTR text = SysAllocString(L"before");
    VARIANT references[2];
    V_VT(&references[0]) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&references[0]) = &variable.ref();
    V_VT(&references[1]) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&references[1]) = &text;
    for (VARIANT& reference : references) {
        DISPPARAMS parameters{&reference, nullptr, 1, 0};
        EXPECT_EQ(exposed->Invoke(idOf(*exposed, L"Change"), IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD,
                                  &parameters, nullptr, nullptr, nullptr),
                  S_OK);
    }
    EXPECT_TRUE(toValue(variable.get()) == Value(u"changed"));
    EXPECT_EQ(viewOf(text), u"changed");
    SysFreeString(text);
}

TEST(CoreObject, OutlivesItsReleaseDuringACall) {
    const auto object = std::make_shared<Changing>();
    auto exposed = expose(object);
    IDispatch* const called = exposed.get();
    object->release = [&] { exposed = nullptr; };
    const DISPID id = idOf(*called, L"Change");
    UniqueVariant argument = toVariant(Value(u"x"));
    DISPPARAMS parameters{&argument.ref(), nullptr, 1, 0};
    UniqueVariant result;
    EXPECT_EQ(
        called->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, result.put(), nullptr, nullptr),
        S_OK);
    EXPECT_TRUE(toValue(result.get()) == Value(true));
}

} // namespace

} // namespace orv::windows::test
