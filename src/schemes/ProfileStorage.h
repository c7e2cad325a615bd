#pragma once

#include "automation/ObjectFactory.h"
#include "automation/Views.h"

#include <cstdint>
#include <functional>
#include <string>

namespace orv::schemes {

/// The host's profile components. Each is created for one call; failures pass through.
class ProfileStorage {
  public:
    /// `props` gives the user properties string, the first argument of every call.
    ProfileStorage(automation::ObjectFactory& factory, std::function<std::u16string()> props)
        : factory_(factory), props_(std::move(props)) {}

    /// Header rows of the schemes that the user may see for a class type.
    automation::Collection list(std::int32_t classTypeId) const;
    /// The entry record of a scheme.
    automation::Dictionary load(std::int32_t schemeId) const;
    /// Saves a scheme; both records may be replaced by the component.
    void save(automation::Dictionary& header, automation::Dictionary& entry) const;
    /// True when the scheme was deleted.
    bool remove(std::int32_t schemeId) const;
    /// The identifier text of the scheme that the user used last for a class type; "" without one.
    std::u16string lastUsed(std::int32_t classTypeId) const;
    void setLastUsed(std::int32_t classTypeId, const std::u16string& schemeId) const;

    // Owner look-ups; the trimmed name of the user, "" when there is none.
    std::u16string ownerOfScheme(const std::u16string& schemeId) const;
    std::u16string ownerOfSharedScheme(const std::u16string& name, std::int32_t classTypeId) const;
    std::u16string userName(const std::u16string& userId) const;

  private:
    std::u16string firstName(const std::u16string& sql) const;

    automation::ObjectFactory& factory_;
    std::function<std::u16string()> props_;
};

} // namespace orv::schemes
