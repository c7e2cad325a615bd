#pragma once

namespace orv::erp {

/// The local date and time of the machine, to the second, in days since 30 December 1899.
double localNow();

} // namespace orv::erp
