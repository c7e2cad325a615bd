// test_packaging FOLDER CONTROL...: the tests of a package that is unpacked in FOLDER, and of built controls.
#include "packaging/Package.h"
#include "windows/com/Handles.h"

#include <gtest/gtest.h>
#include <objbase.h>

#include <cstdio>

namespace orv::windows::test {

namespace {

std::u16string folder;
std::vector<std::u16string> files;

} // namespace

const std::u16string& packageFolder() {
    return folder;
}

const std::vector<std::u16string>& controls() {
    return files;
}

} // namespace orv::windows::test

int wmain(int count, wchar_t** arguments) {
    using namespace orv::windows;
    testing::InitGoogleTest(&count, arguments);
    if (count < 3) {
        std::fputs("usage: test_packaging FOLDER CONTROL...\n", stderr);
        return 2;
    }
    wchar_t path[MAX_PATH];
    GetFullPathNameW(arguments[1], MAX_PATH, path, nullptr);
    test::folder = asUtf16(path);
    for (int i = 2; i < count; ++i)
        test::files.emplace_back(asUtf16(arguments[i]));
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const int status = RUN_ALL_TESTS();
    CoUninitialize();
    return status;
}
