#include "automation/Object.h"

#include "automation/Ascii.h"
#include "automation/AutomationError.h"
#include "automation/Trace.h"

namespace orv::automation {

Value callMember(const ObjectRef& object, std::u16string_view member, InvokeKind kind, Arguments arguments) {
    if (!object)
        throw AutomationError::runtime(errorNumber::objectNotSet);
    // The member may run host code that drops the caller's reference: this one keeps the object alive meanwhile.
    const ObjectRef alive = object;
    if (Trace* const trace = Trace::current())
        return tracedInvoke(*trace, *alive, member, kind, arguments);
    return alive->invoke(member, kind, arguments);
}

bool sameMember(std::u16string_view a, std::u16string_view b) noexcept {
    return sameIgnoringAsciiCase(a, b);
}

} // namespace orv::automation
