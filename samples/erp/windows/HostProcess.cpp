#include "erp/windows/HostProcess.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Text.h"
#include "erp/host/ErpHost.h"
#include "erp/windows/lookup/LookUpWindow.h"
#include "windows/com/Handles.h"

#include <windows.h>

#include <shlobj.h>

#include <iterator>
#include <optional>
#include <string>

namespace orv::erp {

namespace {

std::optional<std::u16string> environmentText(const char16_t* name) {
    std::wstring buffer(256, L'\0');
    for (;;) {
        const DWORD length =
            GetEnvironmentVariableW(windows::asWide(name), buffer.data(), static_cast<DWORD>(buffer.size()));
        if (length == 0)
            return std::nullopt; // empty counts as not set
        if (length < buffer.size())
            return std::u16string(windows::asUtf16(buffer.c_str()), length);
        buffer.resize(length);
    }
}

/// erp.db in a folder of its own, which is made.
std::u16string defaultDatabase() {
    wchar_t folder[MAX_PATH];
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, folder)))
        throw automation::AutomationError(automation::errorNumber::invalidCall, u"OrvSample.Host",
                                          u"The folder of the user's application data is not known.");
    const std::u16string own = std::u16string(windows::asUtf16(folder)) + u"\\OrvSampleHost";
    if (!CreateDirectoryW(windows::asWide(own), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
        throw automation::AutomationError(automation::errorNumber::invalidCall, u"OrvSample.Host",
                                          u"The folder cannot be made: " + own);
    return own + u"\\erp.db";
}

HostOptions optionsOfEnvironment(const std::u16string& database) {
    HostOptions options;
    options.databasePath = automation::toUtf8(database);
    options.props = environmentText(u"ORV_ERP_PROPS").value_or(std::u16string());
    if (auto now = environmentText(u"ORV_ERP_NOW"))
        options.now = automation::toDate(automation::Value(std::move(*now))).days;
    return options;
}

/// Null until the ERP is opened.
std::shared_ptr<ErpHost>& openedHost() {
    static std::shared_ptr<ErpHost> host;
    return host;
}

void open(const HostOptions& options) {
    std::shared_ptr<ErpHost> host = ErpHost::open(options);
    host->setLookUpDialog(makeLookUpWindow());
    openedHost() = std::move(host);
}

} // namespace

const std::shared_ptr<ErpHost>& hostOfProcess() {
    if (!openedHost()) {
        const auto database = environmentText(u"ORV_ERP_DB");
        open(optionsOfEnvironment(database ? *database : defaultDatabase()));
    }
    return openedHost();
}

void openHostOfProcess(const std::u16string& database) {
    if (openedHost())
        throw automation::AutomationError(automation::errorNumber::invalidCall, u"OrvSample.Host",
                                          u"The database of the process is open already.");
    open(optionsOfEnvironment(database));
}

} // namespace orv::erp
