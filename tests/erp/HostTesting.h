#pragma once

#include "automation/Coercion.h"
#include "automation/Object.h"
#include "automation/Text.h"
#include "automation/Views.h"
#include "erp/host/ErpHost.h"

#include <memory>
#include <string>

// What the host tests share: everything goes through the host's late-bound surface.
namespace orv::erp::testing {

/// 29 February 2024, 10:30:00.
inline constexpr double leapDay = 45351 + 10.5 / 24;

inline std::shared_ptr<ErpHost> openErp(std::u16string props = {}) {
    HostOptions options;
    options.now = leapDay;
    options.props = std::move(props);
    return ErpHost::open(options);
}

inline std::shared_ptr<ErpHost> describe(std::string_view json) {
    HostOptions options;
    options.now = leapDay;
    return ErpHost::described(json, options);
}

inline std::string utf8(const automation::Value& value) {
    return automation::toUtf8(automation::toText(value));
}

inline automation::Dictionary record(const automation::Value& value) {
    return automation::Dictionary(automation::toObject(value));
}
inline automation::Collection collection(const automation::Value& value) {
    return automation::Collection(automation::toObject(value));
}
inline automation::Recordset recordset(const automation::Value& value) {
    return automation::Recordset(automation::toObject(value));
}

} // namespace orv::erp::testing
