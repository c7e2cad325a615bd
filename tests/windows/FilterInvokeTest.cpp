#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "windows/Dll.h"
#include "windows/FakeDispatch.h"
#include "windows/com/ValueConversion.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

// The control through its own IDispatch: everything that script engines and late-bound hosts send.

namespace orv::windows::test {

using automation::Value;

namespace {

constexpr DISPID idOfDctControl = 0x68030000;
constexpr DISPID idOfSetSelectPageList = 0x68030002;
constexpr DISPID idOfGetSelectPageList = 0x68030001;
constexpr DISPID idOfDataSrv = 0x68030003;
constexpr DISPID idOfConditionExtHide = 0x68030008;
constexpr DISPID idOfUseKey = 0x6803000A;
constexpr DISPID idOfMJcType = 0x400300AF;
constexpr DISPID idOfSetPagetoTop = 0x6003005B;
constexpr DISPID idOfGetFilterSql = 0x6003004A;
constexpr DISPID idOfGetFieldInfoByKey = 0x6003005D;
constexpr DISPID idOfInitialize = 0x60030020;
constexpr DISPID idOfGetToday = 0x600300AD;
constexpr DISPID idOfClearFace = 0x60030061;

/// What an Invoke gave.
struct Outcome {
    HRESULT result = E_UNEXPECTED;
    UniqueVariant value;
    UINT wrong = 99;
    DWORD code = 0;
    UniqueBstr source, description;
};

VARIANT referenceTo(UniqueVariant& variable) {
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&reference) = &variable.ref();
    return reference;
}

class FilterInvoke : public testing::Test {
  protected:
    /// `arguments` in the order of the call; `named` are the ids of the last ones.
    Outcome invoke(DISPID id, WORD flags, const std::vector<VARIANT>& arguments, std::vector<DISPID> named = {}) {
        std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
        std::vector<DISPID> names(named.rbegin(), named.rend());
        if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0)
            names = {DISPID_PROPERTYPUT};
        DISPPARAMS parameters{reversed.data(), names.data(), static_cast<UINT>(reversed.size()),
                              static_cast<UINT>(names.size())};
        Outcome outcome;
        EXCEPINFO details{};
        outcome.result = filter().Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters, outcome.value.put(),
                                         &details, &outcome.wrong);
        outcome.code = static_cast<DWORD>(details.scode);
        outcome.source = UniqueBstr::attach(details.bstrSource);
        outcome.description = UniqueBstr::attach(details.bstrDescription);
        return outcome;
    }
    Outcome call(DISPID id, const std::vector<Value>& arguments = {}) {
        return send(id, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
    }
    Outcome send(DISPID id, WORD flags, const std::vector<Value>& arguments) {
        std::vector<UniqueVariant> owned;
        std::vector<VARIANT> sent;
        for (const Value& argument : arguments) {
            owned.push_back(toVariant(argument));
            sent.push_back(owned.back().get());
        }
        return invoke(id, flags, sent);
    }
    _Filter& filter() { return *loaded_.filter; }
    std::vector<DISPID> idsOf(std::vector<std::wstring> names, HRESULT expected) {
        std::vector<wchar_t*> spellings;
        for (std::wstring& name : names)
            spellings.push_back(name.data());
        std::vector<DISPID> ids(names.size(), 12345);
        EXPECT_EQ(filter().GetIDsOfNames(IID_NULL, spellings.data(), static_cast<UINT>(names.size()),
                                         LOCALE_USER_DEFAULT, ids.data()),
                  expected);
        return ids;
    }

  private:
    LoadedFilter loaded_;
};

TEST_F(FilterInvoke, FindsTheNamesOfTheTypeLibraryInAnyLetterCase) {
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(filter().GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(info->GetTypeAttr(&attributes), S_OK);
    const UINT count = attributes->cFuncs;
    info->ReleaseTypeAttr(attributes);
    for (UINT i = 7; i < count; ++i) {
        FUNCDESC* function = nullptr;
        ASSERT_EQ(info->GetFuncDesc(i, &function), S_OK);
        const DISPID id = function->memid;
        info->ReleaseFuncDesc(function);
        BSTR names[8] = {};
        UINT named = 0;
        ASSERT_EQ(info->GetNames(id, names, 8, &named), S_OK);
        std::vector<std::wstring> asked;
        for (UINT n = 0; n < named; ++n)
            asked.emplace_back(names[n]);
        std::vector<DISPID> expected{id};
        for (UINT n = 1; n < named; ++n)
            expected.push_back(static_cast<DISPID>(n - 1));
        EXPECT_EQ(idsOf(asked, S_OK), expected) << "entry " << i - 6;
        for (std::wstring& name : asked)
            CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
        EXPECT_EQ(idsOf(asked, S_OK), expected) << "entry " << i - 6 << " in capitals";
        for (UINT n = 0; n < named; ++n)
            SysFreeString(names[n]);
    }
    EXPECT_EQ(idsOf({L"NoSuchMember"}, DISP_E_UNKNOWNNAME), (std::vector<DISPID>{DISPID_UNKNOWN}));
    EXPECT_EQ(idsOf({L"GetFilterSql", L"noSuchParameter"}, DISP_E_UNKNOWNNAME),
              (std::vector<DISPID>{idOfGetFilterSql, DISPID_UNKNOWN}));
}

TEST_F(FilterInvoke, ReadsAndWritesProperties) {
    EXPECT_TRUE(toValue(call(idOfMJcType).value.get()) == Value(false));
    EXPECT_EQ(send(idOfMJcType, DISPATCH_PROPERTYPUT, {Value(std::int32_t{5})}).result, S_OK) << "converted";
    EXPECT_TRUE(toValue(call(idOfMJcType).value.get()) == Value(true));
    EXPECT_EQ(send(idOfSetSelectPageList, DISPATCH_PROPERTYPUT, {Value(std::int32_t{12})}).result, S_OK);
    EXPECT_TRUE(toValue(call(idOfGetSelectPageList).value.get()) == Value(u"12"));

    const std::u16string withNul(u"a\0b", 3);
    EXPECT_EQ(send(idOfSetSelectPageList, DISPATCH_PROPERTYPUT, {Value(withNul)}).result, S_OK);
    EXPECT_TRUE(toValue(call(idOfGetSelectPageList).value.get()) == Value(withNul));
}

TEST_F(FilterInvoke, TakesObjectsByLetAndBySetUnderTheirIdentity) {
    const auto settings = makeComObject<FakeDispatch>();
    const Value value = toValue([&] {
        VARIANT v;
        V_VT(&v) = VT_DISPATCH;
        V_DISPATCH(&v) = settings.get();
        return v;
    }());
    for (const int flags :
         {DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF, DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF}) {
        EXPECT_EQ(send(idOfDctControl, static_cast<WORD>(flags), {value}).result, S_OK);
        const Outcome read = call(idOfDctControl);
        EXPECT_EQ(V_DISPATCH(&read.value.get()), settings.get());
        EXPECT_EQ(send(idOfDctControl, DISPATCH_PROPERTYPUT, {Value(automation::ObjectRef())}).result, S_OK);
    }
    EXPECT_EQ(send(idOfDctControl, DISPATCH_PROPERTYPUT, {Value(u"no object")}).result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(send(idOfConditionExtHide, DISPATCH_PROPERTYPUT, {value}).result, S_OK) << "by reference in the table";
    UniqueVariant variable = toVariant(value);
    EXPECT_EQ(invoke(idOfConditionExtHide, DISPATCH_PROPERTYPUT, {referenceTo(variable)}).result, S_OK);
    EXPECT_EQ(V_DISPATCH(&variable.get()), settings.get());
}

TEST_F(FilterInvoke, KnowsWhichWayAMemberGoes) {
    struct {
        const char* name;
        DISPID id;
        WORD flags;
        std::vector<Value> arguments;
    } const cases[] = {
        {"write of a read-only property", idOfUseKey, DISPATCH_PROPERTYPUT, {Value(true)}},
        {"read of a write-only property", idOfSetSelectPageList, DISPATCH_PROPERTYGET, {}},
        {"read of a method", idOfClearFace, DISPATCH_PROPERTYGET, {}},
        {"call of a property", idOfMJcType, DISPATCH_METHOD, {}},
        {"unknown id", 0x60030000, DISPATCH_METHOD, {}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(send(c.id, c.flags, c.arguments).result, DISP_E_MEMBERNOTFOUND) << c.name;
}

TEST_F(FilterInvoke, TellsWhichArgumentIsWrong) {
    Outcome outcome = call(idOfSetPagetoTop, {Value(u"no number")});
    EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.wrong, 0u);
    outcome = call(idOfGetFieldInfoByKey, {Value(u"key"), Value(u"parent"), Value(u"no number")});
    EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.wrong, 0u) << "the last argument stands first in the list";
    outcome = call(idOfGetFieldInfoByKey, {Value(automation::Null{}), Value(u"parent"), Value(std::int32_t{1})});
    EXPECT_EQ(outcome.result, DISP_E_TYPEMISMATCH);
    EXPECT_EQ(outcome.wrong, 2u);
    EXPECT_EQ(call(idOfSetPagetoTop, {Value(3e9)}).result, DISP_E_OVERFLOW);
    EXPECT_EQ(call(idOfSetPagetoTop).result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(call(idOfSetPagetoTop, {Value(automation::Missing{})}).result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(call(idOfSetPagetoTop, {Value(1.0), Value(2.0)}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(idOfClearFace, {Value(1.0)}).result, DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(call(idOfSetPagetoTop, {Value(u"2")}).result, S_OK) << "a text that is a number";
}

TEST_F(FilterInvoke, TakesNamedArguments) {
    UniqueVariant text = toVariant(Value(u"")), raise = toVariant(Value(true));
    EXPECT_EQ(invoke(idOfGetFilterSql, DISPATCH_METHOD, {referenceTo(text), raise.get()}, {1}).result, S_OK);
    EXPECT_EQ(invoke(idOfGetFilterSql, DISPATCH_METHOD, {raise.get(), referenceTo(text)}, {1, 0}).result, S_OK);
    EXPECT_EQ(invoke(idOfGetFilterSql, DISPATCH_METHOD, {raise.get()}, {1}).result, DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(invoke(idOfGetFilterSql, DISPATCH_METHOD, {raise.get()}, {7}).result, DISP_E_PARAMNOTFOUND);
    EXPECT_EQ(invoke(idOfGetFilterSql, DISPATCH_METHOD, {referenceTo(text), raise.get()}, {0}).result,
              DISP_E_PARAMNOTFOUND)
        << "the same argument twice";
}

TEST_F(FilterInvoke, AcceptsOptionalArgumentsLeftOut) {
    UniqueVariant text = toVariant(Value(u"kept"));
    VARIANT missing;
    V_VT(&missing) = VT_ERROR;
    V_ERROR(&missing) = DISP_E_PARAMNOTFOUND;
    EXPECT_EQ(invoke(idOfGetFilterSql, DISPATCH_METHOD, {referenceTo(text)}).result, S_OK);
    EXPECT_EQ(invoke(idOfGetFilterSql, DISPATCH_METHOD, {referenceTo(text), missing}).result, S_OK);
    EXPECT_EQ(call(idOfInitialize).result, S_OK);
    EXPECT_EQ(call(idOfInitialize, {Value(automation::Missing{})}).result, S_OK);
}

TEST_F(FilterInvoke, ConvertsByReferenceArgumentsInPlace) {
    // Nothing is found, so the control leaves both variables: what counts is the type that they come back in.
    UniqueVariant parent = toVariant(Value(std::int32_t{7})), position = toVariant(Value(u"8"));
    const UniqueVariant key = toVariant(Value(u"key"));
    const Outcome outcome =
        invoke(idOfGetFieldInfoByKey, DISPATCH_METHOD, {key.get(), referenceTo(parent), referenceTo(position)});
    EXPECT_EQ(outcome.result, S_OK);
    EXPECT_TRUE(toValue(parent.get()) == Value(u"7"));
    EXPECT_TRUE(toValue(position.get()) == Value(std::int32_t{8}));
    EXPECT_EQ(V_VT(&outcome.value.get()), VT_DISPATCH);
    EXPECT_EQ(V_DISPATCH(&outcome.value.get()), nullptr);

    // Variables of the declared types are used directly.
    BSTR text = SysAllocString(L"typed");
    LONG number = 9;
    VARIANT textReference, numberReference;
    V_VT(&textReference) = VT_BYREF | VT_BSTR;
    V_BSTRREF(&textReference) = &text;
    V_VT(&numberReference) = VT_BYREF | VT_I4;
    V_I4REF(&numberReference) = &number;
    EXPECT_EQ(invoke(idOfGetFieldInfoByKey, DISPATCH_METHOD, {key.get(), textReference, numberReference}).result, S_OK);
    EXPECT_EQ(viewOf(text), u"typed");
    EXPECT_EQ(number, 9);
    SysFreeString(text);

    SHORT narrow = 3; // another numeric type: converted, and written back
    V_VT(&numberReference) = VT_BYREF | VT_I2;
    V_I2REF(&numberReference) = &narrow;
    EXPECT_EQ(invoke(idOfGetFieldInfoByKey, DISPATCH_METHOD, {key.get(), referenceTo(parent), numberReference}).result,
              S_OK);
    EXPECT_EQ(narrow, 3);
}

TEST_F(FilterInvoke, HandsArgumentsOfAReadToTheResultsDefaultMember) {
    const auto settings = fakeWith(u"", [](const FakeCall& c) {
        if (c.flags & DISPATCH_PROPERTYPUT) {
            EXPECT_EQ(c.parameters.cArgs, 2u);
        } else {
            *c.result = toVariant(toValue(c.argument(0))).release();
        }
        return S_OK;
    });
    ASSERT_EQ(filter().put_dctControl(settings.get()), S_OK);
    const Outcome read = call(idOfDctControl, {Value(u"key")});
    EXPECT_EQ(read.result, S_OK);
    EXPECT_TRUE(toValue(read.value.get()) == Value(u"key"));
    EXPECT_EQ(send(idOfDctControl, DISPATCH_PROPERTYPUT, {Value(u"key"), Value(1.0)}).result, S_OK);
    ASSERT_EQ(filter().put_dctControl(nullptr), S_OK);
    EXPECT_EQ(call(idOfDctControl, {Value(u"key")}).result, DISP_E_BADPARAMCOUNT) << "nothing to ask";
}

TEST_F(FilterInvoke, TellsErrorsOfTheControlAndOfComponents) {
    Outcome outcome = call(idOfGetToday);
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.code, 0x800A01ADu) << "429: no such component here";
    EXPECT_NE(outcome.description.view().find(u"ORVEBCGLView.GLData"), std::u16string_view::npos);
    EXPECT_EQ(V_VT(&outcome.value.get()), VT_EMPTY);

    const auto failing = fakeWith(u"SelectList", [](const FakeCall& c) {
        c.details->scode = static_cast<SCODE>(0x80041234);
        c.details->bstrSource = SysAllocString(L"Data service");
        c.details->bstrDescription = SysAllocString(L"坏了");
        return DISP_E_EXCEPTION;
    });
    VARIANT service;
    V_VT(&service) = VT_DISPATCH;
    V_DISPATCH(&service) = failing.get();
    outcome = invoke(idOfDataSrv, DISPATCH_PROPERTYPUT, {service});
    EXPECT_EQ(outcome.result, DISP_E_EXCEPTION);
    EXPECT_EQ(outcome.code, 0x80041234u);
    EXPECT_EQ(outcome.source.view(), u"Data service");
    EXPECT_EQ(outcome.description.view(), u"坏了");
}

} // namespace

} // namespace orv::windows::test
