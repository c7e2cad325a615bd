#include "windows/com/FilterObject.h"
#include "windows/com/Server.h"

#include <ORVFilter.h>

namespace orv::windows {

namespace {

const InterfaceRegistration interfaces[] = {
    {__uuidof(_Filter), u"_Filter", false},
    {__uuidof(__Filter), u"__Filter", true},
};

const TypeLibraryRegistration typeLibrary = {
    .id = LIBID_ORVFilter,
    .description = u"ORVFilter",
    .major = 1,
    .minor = 2,
    .locale = 0x409,
    .interfaces = interfaces,
};

// As the resource script numbers it.
constexpr int toolboxBitmap = 101;

ComPtr<IUnknown> createFilter() {
    const ComPtr<FilterObject> filter = makeComObject<FilterObject>();
    return ComPtr<IUnknown>::copyFrom(filter->identity());
}

} // namespace

Server describeServer() {
    Server server;
    server.typeLibrary = &typeLibrary;
    server.classes.push_back({.registration = {.id = __uuidof(::Filter),
                                               .description = u"ORVFilter.Filter",
                                               .progId = u"ORVFilter.Filter",
                                               .version = 1,
                                               .isControl = true,
                                               .miscStatus = static_cast<int>(filterMiscStatus),
                                               .toolboxBitmap = toolboxBitmap},
                              .create = createFilter});
    return server;
}

} // namespace orv::windows
