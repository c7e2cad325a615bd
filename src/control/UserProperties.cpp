#include "control/UserProperties.h"

#include "automation/Coercion.h"

namespace orv::control {

const std::u16string& UserProperties::text() {
    if (cached_.empty()) {
        const automation::ObjectRef shared = factory_.create(u"ORVPropsMgr.ShareProps");
        cached_ = automation::toText(automation::call(shared, u"GetProperty", u"PropsString"));
    }
    return cached_;
}

} // namespace orv::control
