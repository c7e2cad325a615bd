#include "automation/Coercion.h"
#include "erp/host/ComponentTable.h"
#include "erp/host/ProfileStore.h"

namespace orv::erp {

using automation::Arguments;
using automation::Dictionary;
using automation::Value;

namespace {

/// The first argument of every call is the user properties string.
std::int32_t userOf(Arguments arguments) {
    return userIdOf(automation::toText(arguments[0].value()));
}

/// A scheme's class type: its identifier, or the class type's record.
std::int32_t classTypeOf(const Value& argument) {
    const auto* object = argument.getIf<automation::ObjectRef>();
    return automation::toInt32(object == nullptr ? argument : Dictionary(*object).get(u"FID"));
}

class ProfileUpdate final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {
            method<&ProfileUpdate::saveProfile>(u"SaveProfile", 3),
            method<&ProfileUpdate::delProfile>(u"DelProfile", 2),
        };
        return table;
    }

  private:
    /// (user properties, header record, entry record); both records are handed back as new ones.
    void saveProfile(Arguments arguments) {
        const Dictionary header = Dictionary(automation::toObject(arguments[1].value())).cloneAll();
        const Dictionary entries = Dictionary(automation::toObject(arguments[2].value())).cloneAll();
        ProfileStore(state().database).save(userOf(arguments), header, entries);
        arguments[1].assign(header.object());
        arguments[2].assign(entries.object());
    }

    Value delProfile(Arguments arguments) {
        const std::int32_t schemeId = automation::toInt32(arguments[1].value());
        return ProfileStore(state().database).remove(userOf(arguments), schemeId);
    }
};

class ProfileInfo final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {
            method<&ProfileInfo::getProfileList>(u"GetProfileList", 2),
            method<&ProfileInfo::getProfile>(u"GetProfile", 2),
        };
        return table;
    }

  private:
    Value getProfileList(Arguments arguments) {
        return ProfileStore(state().database).list(userOf(arguments), classTypeOf(arguments[1].value())).object();
    }

    Value getProfile(Arguments arguments) {
        return ProfileStore(state().database).load(automation::toInt32(arguments[1].value())).object();
    }
};

class UserProfileInfo final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {method<&UserProfileInfo::getUserProfile>(u"GetUserProfile", 3)};
        return table;
    }

  private:
    Value getUserProfile(Arguments arguments) {
        return ProfileStore(state().database)
            .userValue(userOf(arguments), automation::toText(arguments[1].value()),
                       automation::toText(arguments[2].value()));
    }
};

class UserProfileUpdate final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {method<&UserProfileUpdate::saveUserProfile>(u"SaveUserProfile", 4)};
        return table;
    }

  private:
    void saveUserProfile(Arguments arguments) {
        ProfileStore(state().database)
            .setUserValue(userOf(arguments), automation::toText(arguments[1].value()),
                          automation::toText(arguments[2].value()), automation::toText(arguments[3].value()));
    }
};

constexpr ComponentClass profileClasses[] = {
    {u"ORVMProfile.classUpdate", &makeComponent<ProfileUpdate>},
    {u"ORVMProfile.classInfo", &makeComponent<ProfileInfo>},
    {u"ORVMProfile.ClassUserProfileInfo", &makeComponent<UserProfileInfo>},
    {u"ORVMProfile.ClassUserProfileUpdate", &makeComponent<UserProfileUpdate>},
};

} // namespace

std::span<const ComponentClass> profileComponents() {
    return profileClasses;
}

} // namespace orv::erp
