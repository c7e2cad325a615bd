#include "packaging/Package.h"
#include "windows/com/ComPtr.h"
#include "windows/com/Handles.h"

#include <ORVFilter.h>
#include <gtest/gtest.h>
#include <objbase.h>
#include <ocidl.h>
#include <oleauto.h>

#include <optional>
#include <thread>

namespace orv::windows::test {

namespace {

/// The manifest of the package as the activation context of this thread.
class Context {
  public:
    Context() {
        const std::u16string path = packageFolder() + u"\\ORVFilter.manifest";
        ACTCTXW description{};
        description.cbSize = sizeof description;
        description.lpSource = asWide(path);
        context_ = CreateActCtxW(&description);
        active_ = isMade() && ActivateActCtx(context_, &cookie_);
    }
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context() {
        if (active_)
            DeactivateActCtx(0, cookie_);
        if (isMade())
            ReleaseActCtx(context_);
    }
    bool isActive() const noexcept { return active_; }
    HANDLE handle() const noexcept { return context_; }

  private:
    bool isMade() const noexcept { return context_ != INVALID_HANDLE_VALUE; }

    HANDLE context_ = INVALID_HANDLE_VALUE;
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

class RegistrationFree : public testing::Test {
  protected:
    void SetUp() override {
        CLSID id{};
        ASSERT_TRUE(FAILED(CLSIDFromProgID(L"ORVFilter.Filter", &id))) << "the control is registered";
        context_.emplace();
        ASSERT_TRUE(context_->isActive()) << "error " << GetLastError();
    }

    void TearDown() override {
        context_.reset();
        // Wine 8 registers a type library whose path it has from a context.
        UnRegisterTypeLib(LIBID_ORVFilter, 1, 2, 0x409, sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32);
    }

    static CLSID classOf(const wchar_t* progId) {
        CLSID id{};
        EXPECT_EQ(CLSIDFromProgID(progId, &id), S_OK);
        return id;
    }
    template <class T>
    static ComPtr<T> create() {
        ComPtr<T> made;
        EXPECT_EQ(
            CoCreateInstance(classOf(L"ORVFilter.Filter"), nullptr, CLSCTX_INPROC_SERVER, __uuidof(T), made.putVoid()),
            S_OK);
        return made;
    }

    std::optional<Context> context_;
};

// Within a context a ProgID leads to a class id of the context's own, so the object is asked what it is.
TEST_F(RegistrationFree, BothProgIdsAndTheClassIdMakeTheControl) {
    for (const CLSID& id : {classOf(L"ORVFilter.Filter"), classOf(L"ORVFilter.Filter.1"), __uuidof(::Filter)}) {
        ComPtr<IPersist> filter;
        ASSERT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IPersistStreamInit, filter.putVoid()), S_OK);
        CLSID made{};
        ASSERT_EQ(filter->GetClassID(&made), S_OK);
        EXPECT_EQ(made, __uuidof(::Filter));
    }
}

TEST_F(RegistrationFree, EarlyBoundFromTheFileOfThePackage) {
    const ComPtr<_Filter> filter = create<_Filter>();
    ASSERT_TRUE(filter);
    ASSERT_EQ(filter->put_m_JCType(VARIANT_TRUE), S_OK);
    VARIANT_BOOL value = VARIANT_FALSE;
    ASSERT_EQ(filter->get_m_JCType(&value), S_OK);
    EXPECT_EQ(value, VARIANT_TRUE);

    wchar_t file[MAX_PATH];
    ASSERT_NE(GetModuleFileNameW(GetModuleHandleW(L"ORVFilter.ocx"), file, MAX_PATH), 0u);
    EXPECT_EQ(lstrcmpiW(file, asWide(packageFolder() + u"\\ORVFilter.ocx")), 0);
}

TEST_F(RegistrationFree, LateBound) {
    const ComPtr<IDispatch> filter = create<IDispatch>();
    ASSERT_TRUE(filter);
    wchar_t name[] = L"m_jctype";
    wchar_t* names = name;
    DISPID id = 0;
    ASSERT_EQ(filter->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &id), S_OK);
    EXPECT_EQ(id, 0x400300AF);

    VARIANT truth;
    V_VT(&truth) = VT_BOOL;
    V_BOOL(&truth) = VARIANT_TRUE;
    DISPID newValue = DISPID_PROPERTYPUT;
    DISPPARAMS parameters{&truth, &newValue, 1, 1};
    ASSERT_EQ(
        filter->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYPUT, &parameters, nullptr, nullptr, nullptr),
        S_OK);
    DISPPARAMS none{};
    UniqueVariant value;
    ASSERT_EQ(
        filter->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, value.put(), nullptr, nullptr),
        S_OK);
    EXPECT_EQ(V_BOOL(&value.get()), VARIANT_TRUE);
}

TEST_F(RegistrationFree, ContainersTreatItAsItAsks) {
    DWORD promised = 0;
    ASSERT_EQ(OleRegGetMiscStatus(__uuidof(::Filter), DVASPECT_CONTENT, &promised), S_OK);
    DWORD asked = 0;
    ASSERT_EQ(create<IOleObject>()->GetMiscStatus(DVASPECT_CONTENT, &asked), S_OK);
    EXPECT_EQ(promised, asked);
}

TEST_F(RegistrationFree, TheTypeLibraryIsFound) {
    ComPtr<ITypeLib> library;
    ASSERT_EQ(LoadRegTypeLib(LIBID_ORVFilter, 1, 2, 0x409, library.put()), S_OK);
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(library->GetTypeInfoOfGuid(__uuidof(_Filter), info.put()), S_OK);
}

/// Another apartment's calls go through a proxy, which the manifest names for the interface.
TEST_F(RegistrationFree, AnotherApartmentReachesIt) {
    const ComPtr<_Filter> filter = create<_Filter>();
    ASSERT_EQ(filter->put_m_JCType(VARIANT_TRUE), S_OK);
    ComPtr<IStream> stream;
    ASSERT_EQ(CoMarshalInterThreadInterfaceInStream(__uuidof(_Filter), filter.get(), stream.put()), S_OK);

    VARIANT_BOOL seen = VARIANT_FALSE;
    HRESULT result = E_PENDING;
    const DWORD owner = GetCurrentThreadId();
    std::thread other([&, marshalled = stream.detach()] {
        ULONG_PTR cookie = 0;
        ActivateActCtx(context_->handle(), &cookie);
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        {
            ComPtr<_Filter> proxy;
            result = CoGetInterfaceAndReleaseStream(marshalled, __uuidof(_Filter), proxy.putVoid());
            if (SUCCEEDED(result))
                result = proxy->get_m_JCType(&seen);
        }
        CoUninitialize();
        DeactivateActCtx(0, cookie);
        PostThreadMessageW(owner, WM_QUIT, 0, 0);
    });
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0)
        DispatchMessageW(&message); // the calls of the other apartment come as messages
    other.join();
    EXPECT_EQ(result, S_OK);
    EXPECT_EQ(seen, VARIANT_TRUE);
}

} // namespace

} // namespace orv::windows::test
