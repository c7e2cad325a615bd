#include "erp/host/MemberObject.h"

#include "automation/AutomationError.h"

#include <algorithm>

namespace orv::erp {

using automation::Arguments;
using automation::AutomationError;
using automation::InvokeKind;
using automation::Value;
namespace errorNumber = automation::errorNumber;

Value MemberObject::invoke(std::u16string_view name, InvokeKind kind, Arguments arguments) {
    const auto table = members();
    const auto found = std::ranges::find_if(table, [name](const Member& member) {
        return name.empty() ? member.isDefault : automation::sameMember(member.name, name);
    });
    if (found == table.end())
        throw AutomationError::runtime(errorNumber::memberNotFound);

    const bool isWrite = kind == InvokeKind::let || kind == InvokeKind::set;
    const auto function = isWrite ? found->write : found->read;
    if (function == nullptr)
        throw AutomationError::runtime(errorNumber::memberNotFound);
    const std::size_t newValue = isWrite ? 1 : 0;
    if (arguments.size() < found->least + newValue || arguments.size() > found->most + newValue)
        throw AutomationError::runtime(errorNumber::wrongArgumentCount);

    beforeCall(*found, kind, arguments);
    return function(*this, arguments);
}

} // namespace orv::erp
