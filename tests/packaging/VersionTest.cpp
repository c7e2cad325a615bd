#include "packaging/Package.h"
#include "windows/com/ComPtr.h"
#include "windows/com/Handles.h"

#include <ORVFilter.h>
#include <gtest/gtest.h>
#include <oleauto.h>

namespace orv::windows::test {

namespace {

class VersionResource {
  public:
    explicit VersionResource(const std::u16string& file)
        : block_(GetFileVersionInfoSizeW(asWide(file), nullptr)),
          isRead_(!block_.empty() &&
                  GetFileVersionInfoW(asWide(file), 0, static_cast<DWORD>(block_.size()), block_.data())) {}

    const VS_FIXEDFILEINFO* fixed() const {
        void* found = nullptr;
        UINT size = 0;
        return isRead_ && VerQueryValueW(block_.data(), L"\\", &found, &size) ? static_cast<VS_FIXEDFILEINFO*>(found)
                                                                              : nullptr;
    }
    std::u16string text(const std::u16string& translation, const std::u16string& name) const {
        void* found = nullptr;
        UINT length = 0;
        const std::u16string path = u"\\StringFileInfo\\" + translation + u"\\" + name;
        if (!isRead_ || !VerQueryValueW(block_.data(), asWide(path), &found, &length))
            return u"(none)";
        return static_cast<const char16_t*>(found);
    }
    std::vector<DWORD> translations() const {
        void* found = nullptr;
        UINT size = 0;
        if (!isRead_ || !VerQueryValueW(block_.data(), L"\\VarFileInfo\\Translation", &found, &size))
            return {};
        const auto* first = static_cast<const DWORD*>(found);
        return {first, first + size / sizeof(DWORD)};
    }

  private:
    std::vector<BYTE> block_;
    bool isRead_;
};

std::u16string wide(const char* ascii) {
    return {ascii, ascii + std::char_traits<char>::length(ascii)};
}

std::u16string dotted(DWORD most, DWORD least) {
    const auto part = [](DWORD number) { return wide(std::to_string(number).c_str()); };
    return part(HIWORD(most)) + u"." + part(LOWORD(most)) + u"." + part(HIWORD(least)) + u"." + part(LOWORD(least));
}

TEST(Version, OfEveryControlIsThatOfTheProject) {
    const std::u16string version = wide(ORV_VERSION);
    for (const std::u16string& file : controls()) {
        SCOPED_TRACE(std::string(file.begin(), file.end()));
        const VersionResource resource(file);
        ASSERT_NE(resource.fixed(), nullptr);
        EXPECT_EQ(dotted(resource.fixed()->dwFileVersionMS, resource.fixed()->dwFileVersionLS), version + u".0");
        EXPECT_EQ(dotted(resource.fixed()->dwProductVersionMS, resource.fixed()->dwProductVersionLS), version + u".0");
        EXPECT_EQ(resource.fixed()->dwFileType, static_cast<DWORD>(VFT_DLL));
    }
}

TEST(Version, IsDescribedInChineseAndInEnglish) {
    // Language in the low word, code page 1200 (UTF-16) in the high one; Chinese first.
    const std::vector<DWORD> languages = {MAKELONG(0x0804, 1200), MAKELONG(0x0409, 1200)};
    for (const std::u16string& file : controls()) {
        SCOPED_TRACE(std::string(file.begin(), file.end()));
        const VersionResource resource(file);
        EXPECT_EQ(resource.translations(), languages);
        EXPECT_EQ(resource.text(u"080404B0", u"FileDescription"), u"ORVFilter 过滤控件");
        EXPECT_EQ(resource.text(u"040904B0", u"FileDescription"), u"ORVFilter filter control");
        for (const char16_t* translation : {u"080404B0", u"040904B0"}) {
            EXPECT_EQ(resource.text(translation, u"FileVersion"), wide(ORV_VERSION));
            EXPECT_EQ(resource.text(translation, u"ProductVersion"), wide(ORV_VERSION));
            EXPECT_EQ(resource.text(translation, u"OriginalFilename"), u"ORVFilter.ocx");
            // By this development tools know that the file registers itself.
            EXPECT_EQ(resource.text(translation, u"OLESelfRegister"), u"");
        }
    }
}

TEST(Version, OfTheTypeLibraryStays) {
    for (const std::u16string& file : controls()) {
        SCOPED_TRACE(std::string(file.begin(), file.end()));
        ComPtr<ITypeLib> library;
        ASSERT_EQ(LoadTypeLibEx(asWide(file), REGKIND_NONE, library.put()), S_OK);
        TLIBATTR* attributes = nullptr;
        ASSERT_EQ(library->GetLibAttr(&attributes), S_OK);
        EXPECT_EQ(attributes->guid, LIBID_ORVFilter);
        EXPECT_EQ(attributes->wMajorVerNum, 1);
        EXPECT_EQ(attributes->wMinorVerNum, 2);
        EXPECT_EQ(attributes->lcid, 0x409u);
        library->ReleaseTLibAttr(attributes);
    }
}

} // namespace

} // namespace orv::windows::test
