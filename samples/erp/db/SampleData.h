#pragma once

struct sqlite3;

namespace orv::erp {

/// Writes the sample's data into an empty schema, inside of the caller's transaction. The data is the same on every
/// platform: it comes from the sample's own number generator with a fixed seed.
void fillSampleData(sqlite3* connection);

} // namespace orv::erp
