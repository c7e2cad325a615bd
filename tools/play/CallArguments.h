#pragma once

#include "automation/Value.h"
#include "automation/Views.h"
#include "play/Json.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace orv::play {

class Session;

/// The arguments of a call as a scenario writes them. Positions count from 0; one that is left out reads as "", 0,
/// False or Nothing. ScenarioError names the argument that is of a wrong kind.
class CallArguments {
  public:
    /// ScenarioError when `args` is no array or has more than `most` arguments.
    CallArguments(Session& session, const Json& args, std::size_t most);

    std::u16string text(std::size_t position) const;
    std::int32_t number(std::size_t position) const;
    bool flag(std::size_t position) const;
    /// A text such as "2024-02-29"; the zero date when left out.
    automation::Date date(std::size_t position) const;
    /// An object, or nothing for null.
    automation::Dictionary dictionary(std::size_t position) const;
    /// An object, or the field record of the key that a text names, from the data service's "TableInfo".
    automation::Dictionary fieldRecord(std::size_t position) const;
    /// The text "rsAllBase": the data service's catalogue of base-data fields.
    automation::Recordset catalogue(std::size_t position) const;

  private:
    const Json& at(std::size_t position) const;
    [[noreturn]] static void refuse(std::size_t position, const char* kind);

    Session& session_;
    const Json& args_;
};

} // namespace orv::play
