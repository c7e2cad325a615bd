// Prints what a server's own registration writes:   registration_table DLL
//
// One line an entry below Software\Classes, "key TAB name TAB text" in UTF-8; a line with the key alone is a key
// without values. <file> stands for the DLL's path and <folder> for its folder with the backslash at its end. Nothing
// is registered: the registry that the DLL sees is a key of this program's own, gone when it ends.
#include <windows.h>

#include <objbase.h>

#include <cstdio>
#include <cwchar>
#include <stdexcept>
#include <string>

namespace {

void check(LSTATUS status, const char* what) {
    if (status != ERROR_SUCCESS)
        throw std::runtime_error(std::string(what) + ": error " + std::to_string(status));
}

void replaceAll(std::wstring& text, const std::wstring& what, const std::wstring& by) {
    for (std::size_t at = 0; (at = text.find(what, at)) != std::wstring::npos; at += by.size())
        text.replace(at, what.size(), by);
}

std::string utf8(const std::wstring& text) {
    const int length = static_cast<int>(text.size());
    std::string bytes(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr)),
        '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                        nullptr);
    return bytes;
}

/// A key in the user's part of the registry that stands for another one while it lives.
class Substitute {
  public:
    explicit Substitute(HKEY original) : original_(original) {
        check(RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                              &key_, nullptr),
              "a key for the entries");
        check(RegOverridePredefKey(original_, key_), "the substitute");
    }
    Substitute(const Substitute&) = delete;
    Substitute& operator=(const Substitute&) = delete;
    ~Substitute() {
        RegOverridePredefKey(original_, nullptr);
        RegCloseKey(key_);
        RegDeleteTreeW(HKEY_CURRENT_USER, path);
    }
    HKEY key() const { return key_; }

  private:
    static constexpr const wchar_t* path = L"Software\\RegistrationTable";
    HKEY original_;
    HKEY key_ = nullptr;
};

class Printer {
  public:
    explicit Printer(std::wstring file) : file_(std::move(file)), folder_(file_, 0, file_.find_last_of(L'\\') + 1) {}

    void print(HKEY key, const std::wstring& path) {
        wchar_t name[512];
        bool empty = true;
        for (DWORD i = 0;; ++i, empty = false) {
            BYTE data[4096];
            DWORD nameLength = 512, size = sizeof data, type = 0;
            const LSTATUS status = RegEnumValueW(key, i, name, &nameLength, nullptr, &type, data, &size);
            if (status == ERROR_NO_MORE_ITEMS)
                break;
            check(status, "reading a value");
            if (type != REG_SZ)
                throw std::runtime_error("a value is not a text: " + utf8(path));
            std::wstring text(reinterpret_cast<const wchar_t*>(data), size / sizeof(wchar_t));
            text.resize(std::wcslen(text.c_str()));
            replaceAll(text, file_, L"<file>");
            replaceAll(text, folder_, L"<folder>");
            line(path + L"\t" + name + L"\t" + text);
        }
        for (DWORD i = 0;; ++i, empty = false) {
            DWORD nameLength = 512;
            const LSTATUS status = RegEnumKeyExW(key, i, name, &nameLength, nullptr, nullptr, nullptr, nullptr);
            if (status == ERROR_NO_MORE_ITEMS)
                break;
            check(status, "reading a key");
            HKEY child = nullptr;
            check(RegOpenKeyExW(key, name, 0, KEY_READ, &child), "opening a key");
            print(child, path.empty() ? name : path + L"\\" + name);
            RegCloseKey(child);
        }
        if (empty)
            line(path);
    }

  private:
    static void line(const std::wstring& text) { std::puts(utf8(text).c_str()); }

    std::wstring file_;
    std::wstring folder_;
};

void run(const wchar_t* path) {
    const HMODULE dll = LoadLibraryW(path);
    if (!dll)
        throw std::runtime_error("the DLL cannot be loaded, error " + std::to_string(GetLastError()));
    wchar_t file[MAX_PATH];
    GetModuleFileNameW(dll, file, MAX_PATH);
    const FARPROC entry = GetProcAddress(dll, "DllRegisterServer");
    if (!entry)
        throw std::runtime_error("the DLL has no registration");

    const Substitute machine(HKEY_LOCAL_MACHINE);
    if (const HRESULT result = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(reinterpret_cast<void*>(entry))();
        FAILED(result))
        throw std::runtime_error("the registration failed, " + std::to_string(result));
    HKEY classes = nullptr;
    check(RegOpenKeyExW(machine.key(), L"Software\\Classes", 0, KEY_READ, &classes), "the entries");
    Printer printer(file);
    printer.print(classes, L"");
    RegCloseKey(classes);
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    if (count != 2) {
        std::fputs("usage: registration_table DLL\n", stderr);
        return 2;
    }
    try {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        run(arguments[1]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "registration_table: %s\n", error.what());
        return 1;
    }
}
