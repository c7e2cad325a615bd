#include "windows/com/Registration.h"

#include "automation/NumberText.h"
#include "windows/com/Errors.h"
#include "windows/com/Handles.h"
#include "windows/com/RegistryKey.h"

#include <objbase.h>

#include <iterator>
#include <optional>

namespace orv::windows {

namespace {

// The marshallers of the platform that work from a type library.
constexpr std::u16string_view oleAutomationMarshaller = u"{00020424-0000-0000-C000-000000000046}";
constexpr std::u16string_view dispatchMarshaller = u"{00020420-0000-0000-C000-000000000046}";

// Members of the component category "controls" are offered by development environments.
constexpr std::u16string_view controlCategory = u"{40FC6ED4-2438-11CF-A3DB-080036F12502}";

#ifdef _WIN64
constexpr std::u16string_view platformKey = u"win64";
#else
constexpr std::u16string_view platformKey = u"win32";
#endif

/// One text value of the registry; the path is below Software\Classes.
struct Entry {
    std::u16string path;
    std::u16string name;
    std::optional<std::u16string> text; ///< none for a key whose mere being there counts
};

std::u16string guidText(const GUID& id) {
    wchar_t text[39];
    StringFromGUID2(id, text, static_cast<int>(std::size(text)));
    return asUtf16(text);
}

std::u16string decimal(int number) {
    std::u16string text;
    automation::appendInteger(text, number);
    return text;
}

std::u16string hexadecimal(LCID number) {
    std::u16string text;
    for (; number != 0; number >>= 4)
        text.insert(text.begin(), u"0123456789abcdef"[number & 0xF]);
    return text;
}

std::u16string versionText(const TypeLibraryRegistration& library) {
    return decimal(library.major) + u"." + decimal(library.minor);
}

std::u16string classPath(const ClassRegistration& served) {
    return u"CLSID\\" + guidText(served.id);
}

std::u16string versionedProgId(const ClassRegistration& served) {
    return served.progId + u"." + decimal(served.version);
}

std::u16string libraryPath(const TypeLibraryRegistration& library) {
    return u"TypeLib\\" + guidText(library.id) + u"\\" + versionText(library);
}

std::u16string interfacePath(const InterfaceRegistration& described) {
    return u"Interface\\" + guidText(described.id);
}

void addClass(std::vector<Entry>& entries, const ClassRegistration& served, const Registration& registration) {
    const std::u16string key = classPath(served);
    const std::u16string versioned = versionedProgId(served);
    entries.push_back({key, u"", served.description});
    entries.push_back({key + u"\\InprocServer32", u"", registration.path});
    entries.push_back({key + u"\\InprocServer32", u"ThreadingModel", u"Apartment"});
    entries.push_back({key + u"\\ProgID", u"", versioned});
    entries.push_back({key + u"\\VersionIndependentProgID", u"", served.progId});
    entries.push_back({key + u"\\Programmable", u"", std::nullopt});
    if (registration.typeLibrary) {
        entries.push_back({key + u"\\TypeLib", u"", guidText(registration.typeLibrary->id)});
        entries.push_back({key + u"\\Version", u"", versionText(*registration.typeLibrary)});
    }
    if (served.isControl) {
        entries.push_back({key + u"\\Control", u"", std::nullopt});
        // For all aspects of the picture, then for the content alone (DVASPECT_CONTENT is 1).
        entries.push_back({key + u"\\MiscStatus", u"", u"0"});
        entries.push_back({key + u"\\MiscStatus\\1", u"", decimal(served.miscStatus)});
        entries.push_back({key + u"\\ToolboxBitmap32", u"", registration.path + u", " + decimal(served.toolboxBitmap)});
        entries.push_back({key + u"\\Implemented Categories\\" + std::u16string(controlCategory), u"", std::nullopt});
    }
    entries.push_back({served.progId, u"", served.description});
    entries.push_back({served.progId + u"\\CLSID", u"", guidText(served.id)});
    entries.push_back({served.progId + u"\\CurVer", u"", versioned});
    entries.push_back({versioned, u"", served.description});
    entries.push_back({versioned + u"\\CLSID", u"", guidText(served.id)});
}

void addTypeLibrary(std::vector<Entry>& entries, const TypeLibraryRegistration& library, const std::u16string& path) {
    const std::u16string key = libraryPath(library);
    entries.push_back({key, u"", std::u16string(library.description)});
    entries.push_back({key + u"\\FLAGS", u"", u"0"});
    // With the backslash at its end, as an installer writes folders.
    entries.push_back({key + u"\\HELPDIR", u"", path.substr(0, path.find_last_of(u'\\') + 1)});
    entries.push_back({key + u"\\" + hexadecimal(library.locale) + u"\\" + std::u16string(platformKey), u"", path});
    for (const InterfaceRegistration& described : library.interfaces) {
        const std::u16string interfaceKey = interfacePath(described);
        const auto marshaller = described.isDispinterface ? dispatchMarshaller : oleAutomationMarshaller;
        entries.push_back({interfaceKey, u"", std::u16string(described.name)});
        entries.push_back({interfaceKey + u"\\ProxyStubClsid32", u"", std::u16string(marshaller)});
        entries.push_back({interfaceKey + u"\\TypeLib", u"", guidText(library.id)});
        entries.push_back({interfaceKey + u"\\TypeLib", u"Version", versionText(library)});
    }
}

HRESULT openClasses(RegistrationScope scope, RegistryKey& classes) {
    const HKEY root = scope == RegistrationScope::machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
    return classes.create(root, u"Software\\Classes");
}

HRESULT write(HKEY classes, const std::vector<Entry>& entries) {
    for (const Entry& entry : entries) {
        RegistryKey key;
        if (const HRESULT created = key.create(classes, entry.path); FAILED(created))
            return created;
        if (!entry.text)
            continue;
        if (const HRESULT written = key.setText(entry.name, *entry.text); FAILED(written))
            return written;
    }
    return S_OK;
}

/// Deletes the key unless there is something in it. An absent key is no failure.
HRESULT deleteIfEmpty(HKEY classes, const std::u16string& path) {
    RegistryKey key;
    if (FAILED(key.open(classes, path)) || key.hasSubkeys() || key.hasValues())
        return S_OK;
    key = RegistryKey();
    return deleteTree(classes, path);
}

/// Whether the type library is still there for a control of the other bitness, whose ProgIDs are the same keys.
bool otherPlatformRegistered(HKEY classes, const TypeLibraryRegistration& library) {
    RegistryKey locale;
    return SUCCEEDED(locale.open(classes, libraryPath(library) + u"\\" + hexadecimal(library.locale))) &&
           locale.hasSubkeys();
}

HRESULT remove(HKEY classes, const Registration& registration) {
    HRESULT firstFailure = S_OK;
    const auto keep = [&](HRESULT result) {
        if (FAILED(result) && SUCCEEDED(firstFailure))
            firstFailure = result;
    };
    bool shared = false;
    if (const TypeLibraryRegistration* library = registration.typeLibrary) {
        const std::u16string version = libraryPath(*library);
        keep(deleteTree(classes, version + u"\\" + hexadecimal(library->locale) + u"\\" + std::u16string(platformKey)));
        shared = otherPlatformRegistered(classes, *library);
        // Interfaces and classes have keys of their own for each bitness; ProgIDs and type libraries have not.
        for (const InterfaceRegistration& described : library->interfaces)
            keep(deleteTree(classes, interfacePath(described)));
        if (!shared) {
            keep(deleteTree(classes, version));
            keep(deleteIfEmpty(classes, u"TypeLib\\" + guidText(library->id)));
        }
    }
    for (const ClassRegistration& served : registration.classes) {
        keep(deleteTree(classes, classPath(served)));
        if (!shared) {
            keep(deleteTree(classes, versionedProgId(served)));
            keep(deleteTree(classes, served.progId));
        }
    }
    // A user whose first registered class this was had none of these keys before.
    for (const char16_t* container : {u"CLSID", u"Interface", u"TypeLib"})
        keep(deleteIfEmpty(classes, container));
    return firstFailure;
}

} // namespace

HRESULT registerServer(const Registration& registration, RegistrationScope scope) noexcept {
    return guarded([&]() -> HRESULT {
        std::vector<Entry> entries;
        for (const ClassRegistration& served : registration.classes)
            addClass(entries, served, registration);
        if (registration.typeLibrary)
            addTypeLibrary(entries, *registration.typeLibrary, registration.path);
        RegistryKey classes;
        HRESULT result = openClasses(scope, classes);
        if (SUCCEEDED(result))
            result = write(classes.get(), entries);
        if (FAILED(result)) {
            // The first failure is what the caller shall learn; what cannot be removed either stays.
            if (classes.get())
                static_cast<void>(remove(classes.get(), registration));
            return result;
        }
        return S_OK;
    });
}

HRESULT unregisterServer(const Registration& registration, RegistrationScope scope) noexcept {
    return guarded([&]() -> HRESULT {
        RegistryKey classes;
        const HRESULT result = openClasses(scope, classes);
        return FAILED(result) ? result : remove(classes.get(), registration);
    });
}

} // namespace orv::windows
