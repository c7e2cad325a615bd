#include "erp/host/HostClock.h"

#include "support/Dates.h"

#include <ctime>

namespace orv::erp {

double localNow() {
    const std::time_t moment = std::time(nullptr);
    std::tm local{};
#ifdef _WIN32
    localtime_s(&local, &moment);
#else
    localtime_r(&moment, &local);
#endif
    constexpr double secondsPerDay = 86'400;
    const int secondOfDay = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
    return support::dateSerial(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday) + secondOfDay / secondsPerDay;
}

} // namespace orv::erp
