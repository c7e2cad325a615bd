#include "schemes/ProfileStorage.h"

#include "automation/Coercion.h"
#include "support/Letters.h"

namespace orv::schemes {

using automation::Argument;
using automation::Collection;
using automation::Dictionary;
using automation::ObjectRef;
using automation::Recordset;
using automation::Value;

namespace {

/// The entry of the user profile that names the scheme used last.
constexpr std::u16string_view lastUsedEntry = u"DefaultScheme";

std::u16string section(std::int32_t classTypeId) {
    return u"VTAFilter" + automation::numberToText(classTypeId);
}

std::u16string textOf(const Value& value) {
    return value.isNull() ? std::u16string() : automation::toText(value);
}

Dictionary replacedRecord(const Value& left, const Dictionary& given) {
    const auto* record = left.getIf<ObjectRef>();
    return record != nullptr && *record ? Dictionary(*record) : given;
}

} // namespace

Collection ProfileStorage::list(std::int32_t classTypeId) const {
    const ObjectRef info = factory_.create(u"ORVMProfile.classInfo");
    return Collection(automation::toObject(automation::call(info, u"GetProfileList", props_(), classTypeId)));
}

Dictionary ProfileStorage::load(std::int32_t schemeId) const {
    const ObjectRef info = factory_.create(u"ORVMProfile.classInfo");
    Value id = schemeId;
    return Dictionary(automation::toObject(automation::call(info, u"GetProfile", props_(), Argument::byReference(id))));
}

void ProfileStorage::save(Dictionary& header, Dictionary& entry) const {
    const ObjectRef update = factory_.create(u"ORVMProfile.classUpdate");
    Value headerRecord = header.object();
    Value entryRecord = entry.object();
    automation::call(update, u"SaveProfile", props_(), Argument::byReference(headerRecord),
                     Argument::byReference(entryRecord));
    // The scheme is saved by now: a component that leaves no record has not replaced the one that it was given.
    header = replacedRecord(headerRecord, header);
    entry = replacedRecord(entryRecord, entry);
}

bool ProfileStorage::remove(std::int32_t schemeId) const {
    const ObjectRef update = factory_.create(u"ORVMProfile.classUpdate");
    Value id = schemeId;
    return automation::toBoolean(automation::call(update, u"DelProfile", props_(), Argument::byReference(id)));
}

std::u16string ProfileStorage::lastUsed(std::int32_t classTypeId) const {
    const ObjectRef info = factory_.create(u"ORVMProfile.ClassUserProfileInfo");
    return textOf(automation::call(info, u"GetUserProfile", props_(), section(classTypeId), lastUsedEntry));
}

void ProfileStorage::setLastUsed(std::int32_t classTypeId, const std::u16string& schemeId) const {
    const ObjectRef update = factory_.create(u"ORVMProfile.ClassUserProfileUpdate");
    automation::call(update, u"SaveUserProfile", props_(), section(classTypeId), lastUsedEntry, schemeId);
}

std::u16string ProfileStorage::ownerOfScheme(const std::u16string& schemeId) const {
    return firstName(u"select Fname as Fname from t_user where Fuserid=(SELECT Fuserid  as Fuserid FROM "
                     u"ICClassProfile WHERE FSchemeID=" +
                     schemeId + u")");
}

std::u16string ProfileStorage::ownerOfSharedScheme(const std::u16string& name, std::int32_t classTypeId) const {
    return firstName(u"select Fname as Fname from t_user where Fuserid=(select Fuserid from ICClassProfile where "
                     u"FSchemeName='" +
                     support::replaceAll(name, u"'", u"''") + u"' and Fisshare=1  and Ftrantype=" +
                     automation::numberToText(classTypeId) + u")");
}

std::u16string ProfileStorage::userName(const std::u16string& userId) const {
    return firstName(u"select FName  as FName From t_user  where FUserid=" + userId);
}

std::u16string ProfileStorage::firstName(const std::u16string& sql) const {
    const ObjectRef connection = factory_.create(u"ORVConnection.AppConnection");
    const Recordset rows(automation::toObjectOrNothing(automation::call(connection, u"Execute", sql)));
    if (!rows || rows.eof())
        return {};
    return std::u16string(support::Trim(textOf(rows.field(u"FName"))));
}

} // namespace orv::schemes
