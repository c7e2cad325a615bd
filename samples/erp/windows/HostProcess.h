#pragma once

#include <memory>
#include <string>

namespace orv::erp {

class ErpHost;

/// The one sample ERP of the process, opened on first use; it shows look-ups in windows. Environment variables say what
/// it is:
/// - ORV_ERP_DB: the database file, or ":memory:"; without it erp.db in the user's local application data, made and
///   filled when it is not there;
/// - ORV_ERP_PROPS: the user properties string; without it that of user 1;
/// - ORV_ERP_NOW: what the server's clock says ("2024-02-29 10:00:00"); without it the real time. AutomationError 13
///   when it is no date.
const std::shared_ptr<ErpHost>& hostOfProcess();

/// Opens it with this database file (":memory:" for none) instead of the environment's; error 5 when it is open
/// already.
void openHostOfProcess(const std::u16string& database);

} // namespace orv::erp
