#include "erp/host/ErpHost.h"
#include "erp/windows/ClassIds.h"
#include "erp/windows/HostProcess.h"
#include "erp/windows/ScriptHost.h"
#include "windows/com/Server.h"
#include "windows/com/Wrappers.h"

namespace orv::windows {

namespace {

ComPtr<IUnknown> createClass(std::u16string_view progId) {
    const automation::ObjectRef object =
        progId == u"OrvSample.Host" ? erp::makeScriptHost() : erp::hostOfProcess()->create(progId);
    const ComPtr<IDispatch> exposed = expose(object);
    return ComPtr<IUnknown>::copyFrom(exposed.get());
}

} // namespace

Server describeServer() {
    Server server;
    for (const erp::ClassId& offered : erp::classIds()) {
        const std::u16string name(offered.progId);
        server.classes.push_back({.registration = {.id = offered.id, .description = name, .progId = name},
                                  .create = [progId = offered.progId] { return createClass(progId); }});
    }
    return server;
}

} // namespace orv::windows
