#pragma once

#include "automation/Views.h"
#include "erp/db/Database.h"

#include <cstdint>
#include <string>

namespace orv::erp {

/// Schemes and user settings in the database: tables ICClassProfile, ICClassProfileEntry and t_UserProfile.
class ProfileStore {
  public:
    explicit ProfileStore(Database& database) : database_(database) {}

    /// Saves a scheme for a user and gives the header record its identifier and owner. A scheme without an identifier
    /// takes the place of the user's own scheme of that class type and name, if there is one. The scheme of another
    /// user is refused (error 5).
    /// The name in the header has its quotes doubled, ready for an SQL text; it is stored plain and left as it is.
    void save(std::int32_t userId, const automation::Dictionary& header, const automation::Dictionary& entries);

    /// False when there is no such scheme or it is another user's.
    bool remove(std::int32_t userId, std::int32_t schemeId);

    /// Header rows of the user's own and of all shared schemes of a class type, in the order of their identifiers.
    automation::Collection list(std::int32_t userId, std::int32_t classTypeId) const;

    /// The entry record of a scheme, empty when there is none.
    automation::Dictionary load(std::int32_t schemeId) const;

    /// A setting of a user, "" when it was never stored.
    std::u16string userValue(std::int32_t userId, const std::u16string& section, const std::u16string& key) const;
    void setUserValue(std::int32_t userId, const std::u16string& section, const std::u16string& key,
                      const std::u16string& value);

  private:
    std::int32_t identify(std::int32_t userId, std::int32_t classTypeId, std::int32_t schemeId,
                          const std::u16string& name) const;
    void writeEntries(std::int32_t schemeId, const automation::Dictionary& entries);

    Database& database_;
};

} // namespace orv::erp
