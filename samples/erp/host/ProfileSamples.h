#pragma once

namespace orv::erp {

class Database;

/// Saves the schemes that the users of a new sample database start with: private and shared ones of three users for
/// receipts and payments, default schemes among them, and what one user used last.
void saveSampleSchemes(Database& database);

} // namespace orv::erp
