#include "automation/TracedFactory.h"

#include "automation/Trace.h"

namespace orv::automation {

namespace {

template <class Creation>
ObjectRef traced(std::u16string_view kind, std::u16string_view progId, Creation creation) {
    Trace* const trace = Trace::current();
    if (trace == nullptr)
        return creation();
    TraceEntry entry(*trace, kind, progId);
    try {
        ObjectRef component = creation();
        entry.ended();
        return component;
    } catch (const AutomationError& error) {
        entry.failed(error);
        throw;
    }
}

} // namespace

ObjectRef TracedFactory::create(std::u16string_view progId) {
    return traced(u"create", progId, [&] { return factory_.create(progId); });
}

ObjectRef TracedFactory::shared(std::u16string_view progId) {
    return traced(u"share", progId, [&] { return factory_.shared(progId); });
}

} // namespace orv::automation
