#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "windows/FakeDispatch.h"
#include "windows/com/Errors.h"
#include "windows/com/ValueConversion.h"
#include "windows/com/Wrappers.h"

#include <gtest/gtest.h>

#include <string>

// Calls from the core to a host's object.

namespace orv::windows::test {

using automation::AutomationError;
using automation::call;
using automation::get;
using automation::let;
using automation::Value;

namespace {

HRESULT answer(const FakeCall& call, const Value& value) {
    if (call.result)
        *call.result = toVariant(value).release();
    return S_OK;
}

TEST(HostObject, IsAskedForAnIdOncePerName) {
    const auto fake = fakeWith(u"Name", [](const FakeCall& c) { return answer(c, Value(u"x")); });
    const auto object = wrap(fake.get());
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(get(object, u"Name") == Value(u"x"));
    EXPECT_EQ(fake->nameLookUps, 1);
}

TEST(HostObject, ReadsAndCallsAsScriptEnginesDo) {
    WORD flags = 0;
    const auto fake = fakeWith(u"Item", [&](const FakeCall& c) {
        flags = c.flags;
        return answer(c, toValue(c.argument(1)));
    });
    const auto object = wrap(fake.get());
    EXPECT_TRUE(get(object, u"Item", std::int32_t{1}, u"second") == Value(u"second")) << "arguments keep their order";
    EXPECT_EQ(flags, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
    EXPECT_TRUE(call(object, u"Item", std::int32_t{1}, u"second") == Value(u"second"));
    EXPECT_EQ(flags, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
}

TEST(HostObject, ReachesTheDefaultMemberWithoutANameLookUp) {
    const auto fake = fakeWith(u"", [](const FakeCall& c) { return answer(c, toValue(c.argument(0))); });
    const auto object = wrap(fake.get());
    EXPECT_TRUE(get(object, automation::defaultMember, u"key") == Value(u"key"));
    EXPECT_EQ(fake->nameLookUps, 0);
}

TEST(HostObject, WritesByValueAndOnlyThenByReference) {
    std::vector<WORD> flags;
    bool takesLet = true;
    const auto fake = fakeWith(u"Data", [&](const FakeCall& c) -> HRESULT {
        flags.push_back(c.flags);
        EXPECT_EQ(c.parameters.cNamedArgs, 1u);
        EXPECT_EQ(c.parameters.rgdispidNamedArgs[0], DISPID_PROPERTYPUT);
        return takesLet || c.flags == DISPATCH_PROPERTYPUTREF ? S_OK : DISP_E_MEMBERNOTFOUND;
    });
    const auto object = wrap(fake.get());
    let(object, u"Data", object);
    EXPECT_EQ(flags, (std::vector<WORD>{DISPATCH_PROPERTYPUT}));

    takesLet = false;
    flags.clear();
    let(object, u"Data", object);
    EXPECT_EQ(flags, (std::vector<WORD>{DISPATCH_PROPERTYPUT, DISPATCH_PROPERTYPUTREF}));

    flags.clear();
    EXPECT_THROW(let(object, u"Data", std::int32_t{1}), AutomationError) << "only objects are written by reference";
    EXPECT_EQ(flags.size(), 1u);
}

TEST(HostObject, GetsByReferenceArgumentsAsVariants) {
    const auto fake = fakeWith(u"Fill", [](const FakeCall& c) -> HRESULT {
        EXPECT_EQ(V_VT(&c.argument(0)), VT_BYREF | VT_VARIANT);
        EXPECT_EQ(V_VT(&c.argument(1)), VT_I4);
        assignThrough(c.argument(0), toVariant(Value(u"filled")));
        return S_OK;
    });
    Value variable(std::int32_t{1});
    automation::Argument arguments[] = {automation::Argument::byReference(variable), std::int32_t{2}};
    callMember(wrap(fake.get()), u"Fill", automation::InvokeKind::method, arguments);
    EXPECT_TRUE(variable == Value(u"filled"));
}

TEST(HostObject, OffersTheVariablesOwnTypeToComponentsThatInsist) {
    const auto fake = fakeWith(u"Fill", [](const FakeCall& c) -> HRESULT {
        if (V_VT(&c.argument(0)) != (VT_BYREF | VT_I4))
            return DISP_E_TYPEMISMATCH;
        *V_I4REF(&c.argument(0)) = 77;
        return S_OK;
    });
    Value variable(std::int32_t{1});
    automation::Argument arguments[] = {automation::Argument::byReference(variable)};
    callMember(wrap(fake.get()), u"Fill", automation::InvokeKind::method, arguments);
    EXPECT_TRUE(variable == Value(std::int32_t{77}));
}

HRESULT STDAPICALLTYPE fillInLater(EXCEPINFO* details) {
    details->bstrDescription = SysAllocString(L"filled in later");
    return S_OK;
}

struct FailureCase {
    const char* name;
    HRESULT result;
    SCODE scode;
    WORD code;
    bool deferred;
    std::int32_t number;
    std::u16string description;
};

TEST(HostObject, FailsWithTheComponentsErrorOrTheRunTimesNumber) {
    constexpr auto custom = static_cast<HRESULT>(0x80041234);
    const FailureCase cases[] = {
        {"run-time error", DISP_E_EXCEPTION, static_cast<SCODE>(0x800A0005), 0, false, 5, u"of the component"},
        {"own result code", DISP_E_EXCEPTION, custom, 0, false, custom, u"of the component"},
        {"short code", DISP_E_EXCEPTION, 0, 1001, false, 1001, u"of the component"},
        {"deferred", DISP_E_EXCEPTION, static_cast<SCODE>(0x800A000D), 0, true, 13, u"filled in later"},
        {"no such member", DISP_E_MEMBERNOTFOUND, 0, 0, false, 438, automation::runtimeErrorText(438)},
        {"argument count", DISP_E_BADPARAMCOUNT, 0, 0, false, 450, automation::runtimeErrorText(450)},
        {"argument type", DISP_E_TYPEMISMATCH, 0, 0, false, 13, automation::runtimeErrorText(13)},
        {"overflow", DISP_E_OVERFLOW, 0, 0, false, 6, automation::runtimeErrorText(6)},
        {"result code of its own", static_cast<HRESULT>(0x800A01C9), 0, 0, false, 457,
         automation::runtimeErrorText(457)},
    };
    for (const FailureCase& c : cases) {
        SCOPED_TRACE(c.name);
        const auto fake = fakeWith(u"Fail", [&](const FakeCall& made) {
            if (c.result == DISP_E_EXCEPTION) {
                made.details->scode = c.scode;
                made.details->wCode = c.code;
                made.details->bstrSource = SysAllocString(L"Component");
                if (c.deferred)
                    made.details->pfnDeferredFillIn = fillInLater;
                else
                    made.details->bstrDescription = SysAllocString(L"of the component");
            }
            return c.result;
        });
        try {
            call(wrap(fake.get()), u"Fail");
            ADD_FAILURE() << "no error";
        } catch (const AutomationError& error) {
            EXPECT_EQ(error.number(), c.number);
            EXPECT_TRUE(error.description() == c.description);
            EXPECT_EQ(error.source() == u"Component", c.result == DISP_E_EXCEPTION);
        }
    }
}

TEST(HostObject, FailsWith438ForAnUnknownName) {
    const auto fake = makeComObject<FakeDispatch>();
    try {
        get(wrap(fake.get()), u"Missing");
        ADD_FAILURE() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.number(), 438);
    }
}

TEST(ErrorNumbers, TravelAsResultCodes) {
    EXPECT_EQ(static_cast<std::uint32_t>(resultOfNumber(5)), 0x800A0005u);
    EXPECT_EQ(numberOfResult(resultOfNumber(5)), 5);
    EXPECT_EQ(numberOfResult(resultOfNumber(65535)), 65535);
    const auto custom = static_cast<std::int32_t>(0x80041234);
    EXPECT_EQ(resultOfNumber(custom), custom);
    EXPECT_EQ(numberOfResult(custom), custom);
    EXPECT_TRUE(FAILED(resultOfNumber(0))) << "a failure never turns into a success";
    EXPECT_TRUE(FAILED(resultOfNumber(70000)));
}

} // namespace

} // namespace orv::windows::test
