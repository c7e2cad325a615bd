#include "editor/DateServices.h"

#include "automation/Coercion.h"
#include "automation/Views.h"

namespace orv::editor {

using automation::Argument;
using automation::Date;
using automation::ObjectRef;
using automation::Recordset;

Date serverToday(automation::ObjectFactory& factory) {
    const ObjectRef data = factory.shared(u"ORVEBCGLView.GLData");
    const Recordset rows(automation::toObject(automation::call(data, u"getanyrecordset", u"Select getdate() ")));
    if (rows.eof())
        return Date{};
    return automation::toDate(rows.field(0));
}

void askCurrentPeriod(automation::ObjectFactory& factory, std::int32_t classTypeId, const std::u16string& props,
                      AccountingPeriod& period) {
    constexpr std::int32_t voucherList = 1000801;
    constexpr std::int32_t voucherEntryList = 1000802;
    const bool generalLedger = classTypeId == voucherList || classTypeId == voucherEntryList;
    const ObjectRef server = factory.create(u"ORVListServer.clsListServer");
    period.known = automation::toBoolean(automation::call(
        server, generalLedger ? u"GetGLCurPeriod" : u"GetCurPeriod", props, Argument::byReference(period.year),
        Argument::byReference(period.period), Argument::byReference(period.start), Argument::byReference(period.end)));
}

} // namespace orv::editor
