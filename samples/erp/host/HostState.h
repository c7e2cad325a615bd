#pragma once

#include "automation/ObjectFactory.h"
#include "erp/db/Database.h"
#include "erp/host/CallLog.h"
#include "erp/host/HostDescription.h"
#include "erp/host/LookUpAnswers.h"
#include "erp/host/LookUpDialog.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace orv::erp {

class TextTable;

/// What the components of one host share.
struct HostState {
    Database database;
    HostDescription description;
    std::u16string props; ///< user properties string of the logged-on user
    CallLog log;
    LookUpAnswers lookUps;
    std::shared_ptr<LookUpDialog> lookUpDialog; ///< shows what no answer waits for; null: those are cancelled
    /// The class type that a data service was last made for: what the list server and the wage settings, which are
    /// not told a class type, answer for.
    std::int32_t currentClassType = 0;

    explicit HostState(Database opened) : database(std::move(opened)) {}

    const ClassTypeDescription* currentClass() const noexcept { return description.findClassType(currentClassType); }
};
using HostStateRef = std::shared_ptr<HostState>;

/// The user of a user properties string; 0 without one.
std::int32_t userIdOf(std::u16string_view props);
/// The language of the logged-on user: "CHS", "CHT", "EN".
std::u16string languageOf(const HostState& state);

/// A query as a recordset object.
automation::ObjectRef queryRecordset(const Database& database, std::u16string_view sql);

} // namespace orv::erp
