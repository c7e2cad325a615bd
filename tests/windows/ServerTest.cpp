#include "windows/Dll.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace orv::windows::test {

namespace {

std::set<std::string> exportsOf(HMODULE module) {
    const auto* base = reinterpret_cast<const BYTE*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const auto& place = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    const auto* directory = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + place.VirtualAddress);
    const auto* names = reinterpret_cast<const DWORD*>(base + directory->AddressOfNames);
    std::set<std::string> exported;
    for (DWORD i = 0; i < directory->NumberOfNames; ++i)
        exported.insert(reinterpret_cast<const char*>(base + names[i]));
    return exported;
}

TEST(Server, ExportsItsEntryPointsAndNothingElse) {
    const std::set<std::string> expected = {"DllCanUnloadNow", "DllGetClassObject", "DllInstall", "DllRegisterServer",
                                            "DllUnregisterServer"};
    for (const char16_t* file : {u"ORVFilter.ocx", u"OrvSampleHost.dll"})
        EXPECT_EQ(exportsOf(Dll(file).handle()), expected);
}

TEST(Server, CarriesItsVersion) {
    const std::u16string path = Dll::pathOf(u"ORVFilter.ocx");
    const DWORD size = GetFileVersionInfoSizeW(asWide(path), nullptr);
    ASSERT_GT(size, 0u);
    std::vector<BYTE> block(size);
    ASSERT_TRUE(GetFileVersionInfoW(asWide(path), 0, size, block.data()));
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    ASSERT_TRUE(VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&fixed), &length));
    EXPECT_EQ(fixed->dwFileVersionMS, (1u << 16) | 2u);
    EXPECT_EQ(fixed->dwFileVersionLS, 0u);
}

TEST(Server, RefusesAggregationAndUnknownClasses) {
    const Dll dll(u"ORVFilter.ocx");
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(dll.getClassObject(__uuidof(::Filter), IID_IClassFactory, factory.putVoid()), S_OK);
    void* out = &out;
    EXPECT_EQ(factory->CreateInstance(factory.get(), IID_IUnknown, &out), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IUnknown, nullptr), E_POINTER);
    out = &out;
    EXPECT_EQ(factory->CreateInstance(nullptr, IID_IStream, &out), E_NOINTERFACE);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(dll.getClassObject(IID_IStream, IID_IClassFactory, &out), CLASS_E_CLASSNOTAVAILABLE);
}

TEST(Server, StaysLoadedWhileAnythingOfItLives) {
    const Dll dll(u"ORVFilter.ocx");
    EXPECT_TRUE(dll.canUnload());

    ComPtr<IClassFactory> factory;
    ASSERT_EQ(dll.getClassObject(__uuidof(::Filter), IID_IClassFactory, factory.putVoid()), S_OK);
    EXPECT_FALSE(dll.canUnload()) << "a class factory lives";
    factory->LockServer(TRUE);
    factory = nullptr;
    EXPECT_FALSE(dll.canUnload()) << "the server is locked";
    ASSERT_EQ(dll.getClassObject(__uuidof(::Filter), IID_IClassFactory, factory.putVoid()), S_OK);
    factory->LockServer(FALSE);
    factory = nullptr;
    EXPECT_TRUE(dll.canUnload());

    ComPtr<_Filter> filter = dll.create<_Filter>(__uuidof(::Filter));
    EXPECT_FALSE(dll.canUnload()) << "a control lives";
    ComPtr<IDispatch> keys;
    ASSERT_EQ(filter->get_UseKey(keys.put()), S_OK);
    filter = nullptr;
    EXPECT_FALSE(dll.canUnload()) << "an object that the control handed out lives";
    keys = nullptr;
    EXPECT_TRUE(dll.canUnload());
}

TEST(Server, GivesOneIdentityForAllInterfaces) {
    const LoadedFilter loaded;
    ComPtr<IUnknown> identity;
    ASSERT_EQ(loaded.filter.as(identity), S_OK);
    for (const IID& id :
         {IID_IDispatch, __uuidof(_Filter), IID_ISupportErrorInfo, IID_IProvideClassInfo, IID_IProvideClassInfo2}) {
        ComPtr<IUnknown> other, back;
        ASSERT_EQ(identity->QueryInterface(id, other.putVoid()), S_OK);
        ASSERT_EQ(other.as(back), S_OK);
        EXPECT_EQ(back, identity);
    }
    ComPtr<IUnknown> none;
    EXPECT_EQ(identity->QueryInterface(IID_IStream, none.putVoid()), E_NOINTERFACE);
}

TEST(Server, DescribesItsClassAndEvents) {
    const LoadedFilter loaded;
    ComPtr<IProvideClassInfo2> provider;
    ASSERT_EQ(loaded.filter.as(provider), S_OK);
    GUID events{};
    EXPECT_EQ(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &events), S_OK);
    EXPECT_EQ(events, __uuidof(__Filter));
    ComPtr<ITypeInfo> info;
    ASSERT_EQ(provider->GetClassInfo(info.put()), S_OK);
    UniqueBstr name;
    info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr);
    EXPECT_EQ(name.view(), u"Filter");
    ASSERT_EQ(loaded.filter->GetTypeInfo(0, LOCALE_USER_DEFAULT, info.put()), S_OK);
    info->GetDocumentation(MEMBERID_NIL, name.put(), nullptr, nullptr, nullptr);
    EXPECT_EQ(name.view(), u"_Filter");
    EXPECT_EQ(loaded.filter->GetTypeInfo(1, LOCALE_USER_DEFAULT, info.put()), DISP_E_BADINDEX);
}

} // namespace

} // namespace orv::windows::test
