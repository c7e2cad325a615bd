#include "erp/host/HostState.h"

#include "automation/Coercion.h"
#include "erp/host/RecordsetObject.h"
#include "support/PairList.h"

namespace orv::erp {

std::int32_t userIdOf(std::u16string_view props) {
    const auto id = support::lookupPair(props, u"UserID", support::propsSeparator);
    return automation::roundToInt32(automation::Val(id));
}

std::u16string languageOf(const HostState& state) {
    return std::u16string(support::lookupPair(state.props, u"Language", support::propsSeparator));
}

automation::ObjectRef queryRecordset(const Database& database, std::u16string_view sql) {
    return RecordsetObject::make(database.query(sql));
}

} // namespace orv::erp
