#include "automation/ObjectFactory.h"

#include "automation/AutomationError.h"
#include "automation/MemberNames.h"
#include "automation/Records.h"

namespace orv::automation {

namespace {

/// The host's object of that name, or null where the host's library does not have it. A component that is there but
/// fails to start is the host's fault to see, so its error passes.
ObjectRef createOrNothing(ObjectFactory& factory, std::u16string_view name) {
    try {
        return factory.create(name);
    } catch (const AutomationError& error) {
        if (error.number() != errorNumber::cannotCreateObject)
            throw;
        return nullptr;
    }
}

} // namespace

Dictionary newRecord(ObjectFactory& factory) {
    ObjectRef record = createOrNothing(factory, progId::dictionary);
    return record ? Dictionary(std::move(record)) : makeDictionary();
}

Collection newCollection(ObjectFactory& factory) {
    ObjectRef list = createOrNothing(factory, progId::collection);
    return list ? Collection(std::move(list)) : makeCollection();
}

} // namespace orv::automation
