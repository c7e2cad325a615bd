#include "Measures.h"
#include "NoWindows.h"
#include "RandomArguments.h"
#include "RandomHost.h"
#include "windows/Dll.h"

#include <gtest/gtest.h>

#include <algorithm>

// Calls through IDispatch that no sane caller makes: always the same ones, from a fixed seed.
namespace orv::windows::test {

namespace {

constexpr DISPID idOfDataSrv = 0x68030003;
constexpr DISPID idOfDctControl = 0x68030000;
/// A member as the interface has it: a write, or a read or method with so many parameters.
struct Member {
    DISPID id;
    std::size_t parameters;
    bool isWrite = false;
};
constexpr Member members[] = {
    {0x400300AF, 0},       {0x400300AF, 1, true}, {0x6803000A, 0},       {0x68030009, 0},       {0x68030008, 1, true},
    {0x68030007, 0},       {0x68030006, 0},       {0x6003000E, 1},       {0x68030005, 1, true}, {0x68030004, 1, true},
    {0x68030003, 1, true}, {0x68030003, 0},       {0x68030002, 1, true}, {0x68030001, 0},       {0x60030020, 1},
    {0x60030022, 0},       {0x60030023, 1},       {0x6003003F, 4},       {0x6003004A, 2},       {0x6003004B, 2},
    {0x60030052, 0},       {0x6003005A, 0},       {0x6003005B, 1},       {0x6003005C, 0},       {0x6003005D, 3},
    {0x68030000, 0},       {0x68030000, 1, true}, {0x6003005E, 0},       {0x60030061, 0},       {0x600300AD, 0},
    {0x600300AE, 4},
};
// What the dispatch interface may answer; a failure of a member is DISP_E_EXCEPTION and nothing else.
constexpr HRESULT documented[] = {
    S_OK,
    DISP_E_BADPARAMCOUNT,
    DISP_E_BADVARTYPE,
    DISP_E_EXCEPTION,
    DISP_E_MEMBERNOTFOUND,
    DISP_E_OVERFLOW,
    DISP_E_PARAMNOTFOUND,
    DISP_E_PARAMNOTOPTIONAL,
    DISP_E_TYPEMISMATCH,
    DISP_E_UNKNOWNINTERFACE,
    DISP_E_NONAMEDARGS,
    E_INVALIDARG,
    E_OUTOFMEMORY,
    E_POINTER,
};

long callNumber = 0;

/// Says which call it was when one goes wrong for good.
LONG CALLBACK noteCrash(EXCEPTION_POINTERS* pointers) {
    if (pointers->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION ||
        pointers->ExceptionRecord->ExceptionCode == EXCEPTION_STACK_OVERFLOW) {
        std::fprintf(stderr, "call %ld: exception %lx at %p\n", callNumber, pointers->ExceptionRecord->ExceptionCode,
                     pointers->ExceptionRecord->ExceptionAddress);
        std::fflush(stderr);
        ExitProcess(3);
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

class RandomCalls : public testing::Test {
  protected:
    /// One random call; the caller's side of it is checked and cleaned up.
    /// In every other call the number of arguments and the flags are those of `member`.
    void callOnce(IDispatch& target, const Member& member, const std::vector<IDispatch*>& objects) {
        ++callNumber;
        const DISPID id = member.id;
        const bool isOrderly = below(2) == 0;
        RandomArguments arguments(
            random, objects, isOrderly ? std::optional(CallShape{member.parameters, member.isWrite}) : std::nullopt);
        const WORD flags = static_cast<WORD>(
            isOrderly ? (member.isWrite ? DISPATCH_PROPERTYPUT : DISPATCH_METHOD | DISPATCH_PROPERTYGET) : below(16));
        VARIANT result;
        V_VT(&result) = 77; // rubbish: a result is written, never read
        V_I8(&result) = -1;
        EXCEPINFO details{};
        UINT wrong = 0;
        const bool wantsResult = below(5) != 0;
        // "DataSrv(key)" is a call of the host's own object: what comes of it is the host's affair.
        const bool reachesHost = (id == idOfDataSrv || id == idOfDctControl) && arguments.count() > 0;
        const HRESULT outcome = target.Invoke(
            id, below(100) == 0 ? IID_IUnknown : IID_NULL, static_cast<LCID>(random()), flags, arguments.parameters(),
            wantsResult ? &result : nullptr, below(4) == 0 ? nullptr : &details, below(4) == 0 ? nullptr : &wrong);
        EXPECT_TRUE(reachesHost || std::ranges::find(documented, outcome) != std::end(documented))
            << "call " << callNumber << " gives " << std::hex << outcome;
        EXPECT_EQ(arguments.damage(), "") << "call " << callNumber;
        if (wantsResult) {
            EXPECT_TRUE(SUCCEEDED(outcome) || V_VT(&result) == VT_EMPTY) << "call " << callNumber;
            EXPECT_TRUE(VariantClear(&result) == S_OK || reachesHost) << "call " << callNumber;
        }
        if (outcome != DISP_E_EXCEPTION && !reachesHost) {
            EXPECT_EQ(details.bstrDescription, nullptr) << "call " << callNumber;
        }
        for (BSTR text : {details.bstrSource, details.bstrDescription, details.bstrHelpFile})
            SysFreeString(text);
        if (outcome == DISP_E_EXCEPTION)
            ++exceptions;
        else if (SUCCEEDED(outcome))
            ++successes;
    }
    std::size_t below(std::size_t limit) { return random() % limit; }

    std::mt19937 random{20240229};
    long successes = 0;
    long exceptions = 0;
    NoWindows noWindows;

  private:
    struct CrashNote {
        void* handler = AddVectoredExceptionHandler(1, &noteCrash);
        ~CrashNote() { RemoveVectoredExceptionHandler(handler); }
    } crashNote_;
};

TEST_F(RandomCalls, OnTheControlGiveDocumentedResultsAndLeakNothing) {
    constexpr long calls = 200'000;
    const Dll dll(u"ORVFilter.ocx");
    const ComPtr<RandomHost> host = makeComObject<RandomHost>(random);
    const auto play = [&](long count) {
        // A control lives for a thousand calls, so that its state is odd but not hopeless.
        for (long done = 0; done < count;) {
            const ComPtr<_Filter> filter = dll.create<_Filter>(__uuidof(::Filter));
            const std::vector<IDispatch*> objects{host.get(), filter.get()};
            for (int i = 0; i < 1000 && done < count; ++i, ++done) {
                const Member unknown{static_cast<DISPID>(random()), 1};
                callOnce(*filter.get(), below(30) == 0 ? unknown : members[below(std::size(members))], objects);
            }
            filter->put_DataSrv(nullptr);
            filter->ClearMem();
            filter->put_dctControl(nullptr);
        }
    };
    const LiveBlocks blocks;
    play(10'000);
    SetErrorInfo(0, nullptr);
    const long blocksBefore = LiveBlocks::count();
    const std::size_t memoryBefore = privateBytes();
    const std::size_t heapBefore = heapBlocks();
    play(calls - 10'000);
    SetErrorInfo(0, nullptr);
    std::printf("%ld calls: %ld succeeded, %ld gave a run-time error; the host was called %ld times\n", callNumber,
                successes, exceptions, host->calls());
    std::printf("texts and arrays %ld and %ld; heap blocks %zu and %zu; memory %zu KB and %zu KB\n", blocksBefore,
                LiveBlocks::count(), heapBefore, heapBlocks(), memoryBefore / 1024, privateBytes() / 1024);
    EXPECT_EQ(LiveBlocks::count(), blocksBefore) << "texts or arrays leak";
    EXPECT_EQ((host->AddRef(), host->Release()), 1u) << "references to the host's object leak";
    EXPECT_TRUE(dll.canUnload()) << "objects of the control live on";
    EXPECT_LT(heapBlocks(), heapBefore + 100) << "a block a thousand calls would be 190";
    EXPECT_LT(privateBytes(), memoryBefore + (8 << 20));
    EXPECT_GT(successes, calls / 20) << "too few calls got through to prove anything";
    EXPECT_GT(exceptions, calls / 50);
}

TEST_F(RandomCalls, OnObjectsThatTheControlHandsOutDoNoHarm) {
    constexpr int calls = 40'000;
    const Dll dll(u"ORVFilter.ocx");
    const LiveBlocks blocks;
    const ComPtr<RandomHost> host = makeComObject<RandomHost>(random);
    {
        const ComPtr<_Filter> filter = dll.create<_Filter>(__uuidof(::Filter));
        ComPtr<IDispatch> keys, header, settings;
        ASSERT_EQ(filter->get_UseKey(keys.put()), S_OK);
        VARIANT_BOOL done = VARIANT_FALSE;
        ASSERT_EQ(filter->Initialize(nullptr, &done), S_OK);
        ASSERT_EQ(filter->get_dctControl(settings.put()), S_OK);
        ASSERT_TRUE(settings);
        const std::vector<IDispatch*> objects{host.get(), filter.get(), keys.get()};
        DISPID known = 0;
        for (const wchar_t* member : {L"Exists", L"GetValue", L"Count", L"Keys", L"Add", L"Remove"}) {
            LPOLESTR name = const_cast<LPOLESTR>(member);
            for (IDispatch* object : {keys.get(), settings.get()})
                object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &known);
        }
        for (int i = 0; i < calls; ++i)
            callOnce(i % 2 == 0 ? *keys.get() : *settings.get(),
                     Member{static_cast<DISPID>(below(9)), below(3), below(3) == 0}, objects);
        // A dictionary that holds itself is the caller's own knot: it is undone before the objects go.
        for (IDispatch* object : {keys.get(), settings.get()}) {
            DISPPARAMS none{};
            LPOLESTR name = const_cast<LPOLESTR>(L"RemoveAll");
            if (SUCCEEDED(object->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &known)))
                object->Invoke(known, IID_NULL, 0, DISPATCH_METHOD, &none, nullptr, nullptr, nullptr);
        }
        filter->ClearMem();
        filter->put_dctControl(nullptr);
    }
    EXPECT_GT(successes, calls / 20);
}

TEST_F(RandomCalls, ForNamesThatAreNone) {
    const LoadedFilter loaded;
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"GetFilterSql"), nullptr};
    DISPID ids[] = {7, 7};
    EXPECT_EQ(loaded.filter->GetIDsOfNames(IID_NULL, names, 2, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(ids[1], DISPID_UNKNOWN);
    names[0] = nullptr;
    EXPECT_EQ(loaded.filter->GetIDsOfNames(IID_NULL, names, 1, 0, ids), DISP_E_UNKNOWNNAME);
    ComPtr<IDispatch> keys;
    ASSERT_EQ(loaded.filter->get_UseKey(keys.put()), S_OK);
    EXPECT_EQ(keys->GetIDsOfNames(IID_NULL, names, 1, 0, ids), DISP_E_UNKNOWNNAME);
}

} // namespace

} // namespace orv::windows::test
