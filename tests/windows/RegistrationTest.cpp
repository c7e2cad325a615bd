#include "windows/Dll.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace orv::windows::test {

namespace {

using Snapshot = std::map<std::u16string, std::u16string>;

std::u16string lowered(std::u16string text) {
    CharLowerBuffW(reinterpret_cast<wchar_t*>(text.data()), static_cast<DWORD>(text.size()));
    return text;
}

/// Every key ("path\") and text value ("path\name") below a key, paths in small letters.
void read(HKEY key, const std::u16string& path, Snapshot& snapshot) {
    snapshot[path] = u"";
    wchar_t name[512];
    for (DWORD i = 0;; ++i) {
        BYTE data[4096];
        DWORD nameLength = 512, dataLength = sizeof data, type = 0;
        if (RegEnumValueW(key, i, name, &nameLength, nullptr, &type, data, &dataLength) != ERROR_SUCCESS)
            break;
        std::u16string text;
        if (type == REG_SZ && dataLength >= 2)
            text.assign(reinterpret_cast<const char16_t*>(data), dataLength / 2 - 1);
        snapshot[path + lowered(asUtf16(name)) + u"="] = text;
    }
    for (DWORD i = 0;; ++i) {
        DWORD nameLength = 512;
        if (RegEnumKeyExW(key, i, name, &nameLength, nullptr, nullptr, nullptr, nullptr) != ERROR_SUCCESS)
            break;
        HKEY child = nullptr;
        if (RegOpenKeyExW(key, name, 0, KEY_READ, &child) == ERROR_SUCCESS) {
            read(child, path + lowered(asUtf16(name)) + u"\\", snapshot);
            RegCloseKey(child);
        }
    }
}

Snapshot classesOf(HKEY root) {
    Snapshot snapshot;
    HKEY classes = nullptr;
    if (RegOpenKeyExW(root, L"Software\\Classes", 0, KEY_READ, &classes) == ERROR_SUCCESS) {
        read(classes, u"", snapshot);
        RegCloseKey(classes);
    }
    return snapshot;
}

std::u16string guidText(REFGUID id) {
    wchar_t text[39];
    StringFromGUID2(id, text, 39);
    return lowered(asUtf16(text));
}

#ifdef _WIN64
constexpr const char16_t* platform = u"win64";
#else
constexpr const char16_t* platform = u"win32";
#endif

/// What the registration of the control adds, as "path\name=" -> text.
Snapshot expectedEntries() {
    const std::u16string clsid = guidText(__uuidof(::Filter));
    const std::u16string libid = guidText(LIBID_ORVFilter);
    const std::u16string key = u"clsid\\" + clsid + u"\\";
    const std::u16string library = u"typelib\\" + libid + u"\\1.2\\";
    const std::u16string path = Dll::pathOf(u"ORVFilter.ocx");
    Snapshot expected = {
        {key + u"=", u"ORVFilter.Filter"},
        {key + u"inprocserver32\\=", path},
        {key + u"inprocserver32\\threadingmodel=", u"Apartment"},
        {key + u"progid\\=", u"ORVFilter.Filter.1"},
        {key + u"versionindependentprogid\\=", u"ORVFilter.Filter"},
        {key + u"typelib\\=", libid},
        {key + u"version\\=", u"1.2"},
        {key + u"programmable\\", u""},
        {key + u"control\\", u""},
        {key + u"implemented categories\\{40fc6ed4-2438-11cf-a3db-080036f12502}\\", u""},
        {key + u"miscstatus\\=", u"0"},
        {key + u"miscstatus\\1\\=", u"131473"},
        {key + u"toolboxbitmap32\\=", path + u", 101"},
        {u"orvfilter.filter\\=", u"ORVFilter.Filter"},
        {u"orvfilter.filter\\clsid\\=", clsid},
        {u"orvfilter.filter\\curver\\=", u"ORVFilter.Filter.1"},
        {u"orvfilter.filter.1\\=", u"ORVFilter.Filter"},
        {u"orvfilter.filter.1\\clsid\\=", clsid},
        {library + u"=", u"ORVFilter"},
        {library + u"flags\\=", u"0"},
        {library + u"helpdir\\=", path.substr(0, path.rfind(u'\\') + 1)},
        {library + u"409\\" + platform + u"\\=", path},
    };
    for (const IID& id : {__uuidof(_Filter), __uuidof(__Filter)}) {
        expected[u"interface\\" + guidText(id) + u"\\typelib\\="] = libid;
        expected[u"interface\\" + guidText(id) + u"\\typelib\\version="] = u"1.2";
    }
    expected[u"interface\\" + guidText(__uuidof(_Filter)) + u"\\proxystubclsid32\\="] =
        u"{00020424-0000-0000-c000-000000000046}";
    expected[u"interface\\" + guidText(__uuidof(__Filter)) + u"\\proxystubclsid32\\="] =
        u"{00020420-0000-0000-c000-000000000046}";
    return expected;
}

void expectRegistered(const Snapshot& registry) {
    for (const auto& [name, text] : expectedEntries()) {
        const auto found = registry.find(name);
        const std::string shown(name.begin(), name.end());
        if (found == registry.end())
            ADD_FAILURE() << "missing: " << shown;
        else
            EXPECT_EQ(lowered(found->second), lowered(text)) << shown;
    }
}

TEST(Registration, ForTheMachineAddsItsEntriesAndRemovesThemAll) {
    const Dll dll(u"ORVFilter.ocx");
    ASSERT_EQ(dll.unregisterServer(), S_OK) << "also when nothing is registered";
    const Snapshot before = classesOf(HKEY_LOCAL_MACHINE);
    const Snapshot userBefore = classesOf(HKEY_CURRENT_USER);

    ASSERT_EQ(dll.registerServer(), S_OK);
    expectRegistered(classesOf(HKEY_LOCAL_MACHINE));
    EXPECT_TRUE(classesOf(HKEY_CURRENT_USER) == userBefore);
    ASSERT_EQ(dll.registerServer(), S_OK) << "a second time";
    expectRegistered(classesOf(HKEY_LOCAL_MACHINE));

    ComPtr<ITypeLib> library;
    EXPECT_EQ(LoadRegTypeLib(LIBID_ORVFilter, 1, 2, 0x409, library.put()), S_OK);
    CLSID id{};
    EXPECT_EQ(CLSIDFromProgID(L"ORVFilter.Filter", &id), S_OK);
    ComPtr<_Filter> filter;
    EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(_Filter), filter.putVoid()), S_OK);
    filter = nullptr;
    library = nullptr;

    ASSERT_EQ(dll.unregisterServer(), S_OK);
    EXPECT_TRUE(classesOf(HKEY_LOCAL_MACHINE) == before) << "something stays behind";
}

TEST(Registration, ForTheUserLeavesTheMachineAlone) {
    const Dll dll(u"ORVFilter.ocx");
    ASSERT_EQ(dll.unregisterServer(), S_OK);
    ASSERT_EQ(dll.install(false, L"user"), S_OK);
    const Snapshot before = classesOf(HKEY_CURRENT_USER);
    const Snapshot machineBefore = classesOf(HKEY_LOCAL_MACHINE);

    ASSERT_EQ(dll.install(true, L"user"), S_OK);
    expectRegistered(classesOf(HKEY_CURRENT_USER));
    EXPECT_TRUE(classesOf(HKEY_LOCAL_MACHINE) == machineBefore);
    ASSERT_EQ(dll.install(false, L"USER"), S_OK);
    EXPECT_TRUE(classesOf(HKEY_CURRENT_USER) == before) << "something stays behind";
    EXPECT_EQ(dll.install(true, L"nobody"), E_INVALIDARG);
}

TEST(Registration, OfOneBitnessLeavesWhatItSharesWithTheOther) {
    const Dll dll(u"ORVFilter.ocx");
    ASSERT_EQ(dll.install(true, L"user"), S_OK);
    const std::u16string library = u"Software\\Classes\\TypeLib\\" + guidText(LIBID_ORVFilter);
    const std::u16string other = library + u"\\1.2\\409\\win16";
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyW(HKEY_CURRENT_USER, asWide(other), &key), ERROR_SUCCESS);
    RegCloseKey(key);

    ASSERT_EQ(dll.install(false, L"user"), S_OK);
    const Snapshot left = classesOf(HKEY_CURRENT_USER);
    const std::u16string locale = u"typelib\\" + guidText(LIBID_ORVFilter) + u"\\1.2\\409\\";
    EXPECT_TRUE(left.contains(locale + u"win16\\"));
    EXPECT_FALSE(left.contains(locale + platform + u"\\"));
    EXPECT_TRUE(left.contains(u"orvfilter.filter\\clsid\\"));
    EXPECT_TRUE(left.contains(u"orvfilter.filter.1\\clsid\\"));
    EXPECT_FALSE(left.contains(u"interface\\" + guidText(__uuidof(_Filter)) + u"\\")) << "each bitness has its own";
    EXPECT_FALSE(left.contains(u"clsid\\" + guidText(__uuidof(::Filter)) + u"\\")) << "each bitness has its own";

    RegDeleteTreeW(HKEY_CURRENT_USER, asWide(other));
    ASSERT_EQ(dll.install(false, L"user"), S_OK);
    const Snapshot nothing = classesOf(HKEY_CURRENT_USER);
    EXPECT_FALSE(nothing.contains(u"typelib\\" + guidText(LIBID_ORVFilter) + u"\\"));
    EXPECT_FALSE(nothing.contains(u"orvfilter.filter\\"));
}

const char16_t* const sampleProgIds[] = {
    u"QDX.Dictionary",
    u"QDX.Collection",
    u"ORVMClass.ClassInfo",
    u"ORVClassTpl.DataSrv",
    u"ORVClassTpl.clsdoAction",
    u"ORVMProfile.classInfo",
    u"ORVMProfile.classUpdate",
    u"ORVMProfile.ClassUserProfileInfo",
    u"ORVMProfile.ClassUserProfileUpdate",
    u"ORVConnection.AppConnection",
    u"ORVEBCGLView.GLView",
    u"ORVEBCGLView.GLData",
    u"ORVEBSGLAccount.AccountInfo",
    u"ORVClassLookUp.SingleBillLookUp",
    u"ORVListServer.clsListServer",
    u"ORVPASetting.PAview",
    u"ORVResLoader.Loader",
    u"ORVFrmRes.FrmResLoader",
    u"ORVPropsMgr.ShareProps",
    u"OrvSample.Host",
};

TEST(Registration, OfTheSampleHostOffersEveryComponent) {
    SetEnvironmentVariableW(L"ORV_ERP_DB", L":memory:");
    const Dll dll(u"OrvSampleHost.dll");
    ASSERT_EQ(dll.unregisterServer(), S_OK);
    const Snapshot before = classesOf(HKEY_LOCAL_MACHINE);
    ASSERT_EQ(dll.registerServer(), S_OK);
    for (const char16_t* progId : sampleProgIds) {
        SCOPED_TRACE(std::string(progId, progId + std::u16string_view(progId).size()));
        CLSID id{};
        ASSERT_EQ(CLSIDFromProgID(asWide(progId), &id), S_OK);
        ComPtr<IDispatch> component;
        EXPECT_EQ(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, component.putVoid()), S_OK);
    }
    ASSERT_EQ(dll.unregisterServer(), S_OK);
    EXPECT_TRUE(classesOf(HKEY_LOCAL_MACHINE) == before) << "something stays behind";
}

} // namespace

} // namespace orv::windows::test
