#include "HostTesting.h"
#include "automation/AutomationError.h"
#include "automation/Records.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace orv::erp {
namespace {

using namespace testing;
using automation::Argument;
using automation::AutomationError;
using automation::Collection;
using automation::Dictionary;
using automation::ObjectRef;
using automation::toInt32;
using automation::Value;

/// A host with two users and nothing else.
std::shared_ptr<ErpHost> twoUsers() {
    return describe(R"({"tables": {"t_user": [{"FUserID": 1, "FName": "Admin"}, {"FUserID": 2, "FName": "张敏"}]}})");
}

constexpr const char16_t* admin = u"UserID=1;UserName=Admin";
constexpr const char16_t* zhangMin = u"UserID=2;UserName=张敏";

struct Scheme {
    std::u16string name;
    std::int32_t id = 0;
    std::int32_t share = 0;
    std::int32_t classType = 1000201;
};

/// What a save handed back.
struct Saved {
    Dictionary header;
    Dictionary entry;
};

Saved save(ErpHost& host, const char16_t* user, const Scheme& scheme, std::u16string_view relation = u"") {
    const Dictionary header = automation::makeDictionary();
    header.set(u"FSchemeID", scheme.id);
    header.set(u"FSchemeName", scheme.name);
    header.set(u"FTranType", scheme.classType);
    header.set(u"FSysName", u"");
    header.set(u"FStatus", std::int32_t{0});
    header.set(u"FIsShare", scheme.share);
    const Dictionary entry = automation::makeDictionary();
    entry.set(u"OrderBy", u"FDate=1|");
    entry.set(u"Relation", relation);
    entry.set(u"cboTime", std::int16_t{2});
    Value headerValue = header.object();
    Value entryValue = entry.object();
    automation::call(host.create(u"ORVMProfile.classUpdate"), u"SaveProfile", user, Argument::byReference(headerValue),
                     Argument::byReference(entryValue));
    return {record(headerValue), record(entryValue)};
}

/// The schemes that a user sees, as "id name owner share" items.
std::vector<std::string> listOf(ErpHost& host, const char16_t* user, std::int32_t classType = 1000201) {
    const Collection rows =
        collection(automation::call(host.create(u"ORVMProfile.classInfo"), u"GetProfileList", user, classType));
    std::vector<std::string> all;
    for (std::int32_t i = 1; i <= rows.count(); ++i) {
        const Dictionary row = rows.record(i);
        all.push_back(utf8(row.get(u"FSchemeID")) + " " + utf8(row.get(u"FSchemeName")) + " " +
                      utf8(row.get(u"FUserID")) + " " + utf8(row.get(u"FIsShare")));
    }
    return all;
}

Dictionary load(ErpHost& host, std::int32_t id) {
    Value reference = id;
    return record(automation::call(host.create(u"ORVMProfile.classInfo"), u"GetProfile", admin,
                                   Argument::byReference(reference)));
}

bool remove(ErpHost& host, const char16_t* user, std::int32_t id) {
    Value reference = id;
    return automation::toBoolean(automation::call(host.create(u"ORVMProfile.classUpdate"), u"DelProfile", user,
                                                  Argument::byReference(reference)));
}

using List = std::vector<std::string>;

TEST(HostProfiles, ASavedSchemeComesBackAsItWas) {
    const auto host = twoUsers();
    const Saved saved = save(*host, admin, {u"本月", 0, 0}, u"(##<&FDate##<&0##<&2024-02-01##<&)##<&并且##<&||");
    const std::int32_t id = toInt32(saved.header.get(u"FSchemeID"));
    EXPECT_GT(id, 0) << "a new scheme gets an identifier";
    EXPECT_EQ(toInt32(saved.header.get(u"FUserID")), 1);
    const Dictionary entry = load(*host, id);
    EXPECT_EQ(utf8(entry.get(u"Relation")), "(##<&FDate##<&0##<&2024-02-01##<&)##<&并且##<&||");
    EXPECT_EQ(utf8(entry.get(u"OrderBy")), "FDate=1|");
    EXPECT_TRUE(entry.get(u"cboTime").is<std::int16_t>()) << "numbers come back as numbers";
    EXPECT_EQ(toInt32(entry.get(u"cboTime")), 2);
    EXPECT_FALSE(entry.exists(u"SelPage")) << "what was not saved is absent";
}

TEST(HostProfiles, UsersSeeTheirOwnAndSharedSchemesOfTheClassType) {
    const auto host = twoUsers();
    save(*host, admin, {u"private", 0, 0});
    save(*host, admin, {u"shared", 0, 1});
    save(*host, zhangMin, {u"hers", 0, 0});
    save(*host, admin, {u"payments", 0, 1, 1000202});
    EXPECT_EQ(listOf(*host, admin), (List{"1 private 1 0", "2 shared 1 1"}));
    EXPECT_EQ(listOf(*host, zhangMin), (List{"2 shared 1 1", "3 hers 2 0"}));
    EXPECT_EQ(listOf(*host, zhangMin, 1000202), (List{"4 payments 1 1"}));
}

TEST(HostProfiles, SavingAgainReplacesNotAdds) {
    const auto host = twoUsers();
    const auto id = toInt32(save(*host, admin, {u"a", 0, 0}, u"old").header.get(u"FSchemeID"));
    save(*host, admin, {u"b", id, 1}, u"new"); // by identifier: renamed
    EXPECT_EQ(listOf(*host, admin), (List{"1 b 1 1"}));
    EXPECT_EQ(utf8(load(*host, id).get(u"Relation")), "new");
    save(*host, admin, {u"b", 0, 0}, u"newer"); // by name, without an identifier
    EXPECT_EQ(listOf(*host, admin), (List{"1 b 1 0"}));
    save(*host, zhangMin, {u"b", 0, 0}); // the same name of another user is another scheme
    EXPECT_EQ(listOf(*host, zhangMin), (List{"2 b 2 0"}));
}

TEST(HostProfiles, NamesArriveWithTheirQuotesDoubled) {
    const auto host = twoUsers();
    save(*host, admin, {u"O''Brien''s", 0, 0});
    EXPECT_EQ(listOf(*host, admin), (List{"1 O'Brien's 1 0"}));
}

TEST(HostProfiles, OnlyTheOwnerOverwritesOrDeletes) {
    const auto host = twoUsers();
    const auto id = toInt32(save(*host, admin, {u"shared", 0, 1}, u"mine").header.get(u"FSchemeID"));
    EXPECT_THROW(save(*host, zhangMin, {u"shared", id, 1}, u"hers"), AutomationError);
    EXPECT_EQ(utf8(load(*host, id).get(u"Relation")), "mine");
    EXPECT_FALSE(remove(*host, zhangMin, id));
    EXPECT_TRUE(remove(*host, admin, id));
    EXPECT_FALSE(remove(*host, admin, id)) << "it is gone";
    EXPECT_EQ(listOf(*host, admin), List{});
    EXPECT_EQ(load(*host, id).count(), 0);
}

TEST(HostProfiles, OwnersAreFoundThroughTheConnection) {
    const auto host = twoUsers();
    const auto id = toInt32(save(*host, zhangMin, {u"hers", 0, 1}).header.get(u"FSchemeID"));
    const std::u16string queries[] = {
        u"select Fname as Fname from t_user where Fuserid=(SELECT Fuserid  as Fuserid FROM ICClassProfile WHERE "
        u"FSchemeID=" +
            automation::numberToText(id) + u")",
        u"select Fname as Fname from t_user where Fuserid=(select Fuserid from ICClassProfile where "
        u"FSchemeName='hers' and Fisshare=1  and Ftrantype=1000201)",
        u"select FName  as FName From t_user  where FUserid=2",
    };
    for (const auto& sql : queries) {
        const auto rows = recordset(automation::call(host->create(u"ORVConnection.AppConnection"), u"Execute", sql));
        ASSERT_FALSE(rows.eof()) << utf8(sql);
        EXPECT_EQ(utf8(rows.field(u"FName")), "张敏") << utf8(sql);
    }
}

TEST(HostProfiles, TheLastUsedSchemeIsKeptPerUserAndSection) {
    const auto host = twoUsers();
    const auto stored = [&](const char16_t* user, const char16_t* section) {
        return utf8(automation::call(host->create(u"ORVMProfile.ClassUserProfileInfo"), u"GetUserProfile", user,
                                     section, u"DefaultScheme"));
    };
    const auto store = [&](const char16_t* user, const char16_t* section, const char16_t* value) {
        automation::call(host->create(u"ORVMProfile.ClassUserProfileUpdate"), u"SaveUserProfile", user, section,
                         u"DefaultScheme", value);
    };
    EXPECT_EQ(stored(admin, u"VTAFilter1000201"), "");
    store(admin, u"VTAFilter1000201", u"3");
    store(admin, u"VTAFilter1000202", u"4");
    store(zhangMin, u"VTAFilter1000201", u"5");
    store(admin, u"VTAFilter1000201", u"7");
    EXPECT_EQ(stored(admin, u"VTAFilter1000201"), "7");
    EXPECT_EQ(stored(admin, u"VTAFilter1000202"), "4");
    EXPECT_EQ(stored(zhangMin, u"VTAFilter1000201"), "5");
}

TEST(HostProfiles, SchemesOutliveTheHostInADatabaseFile) {
    const auto path =
        std::filesystem::temp_directory_path() / ("orv-host-profiles-" + std::to_string(::getpid()) + ".db");
    std::filesystem::remove(path);
    HostOptions options;
    options.databasePath = path.string();
    options.now = leapDay;
    const List atFirst = listOf(*ErpHost::open(options), admin);
    EXPECT_EQ(atFirst, (List{"1 Default Schema 1 0", "2 本月未审核 1 0", "3 大额收款 1 1", "5 客户对账 2 1"}))
        << "what a new sample database starts with";
    const auto id = toInt32(save(*ErpHost::open(options), admin, {u"kept", 0, 0}).header.get(u"FSchemeID"));
    EXPECT_TRUE(remove(*ErpHost::open(options), admin, 2));
    EXPECT_EQ(listOf(*ErpHost::open(options), admin),
              (List{"1 Default Schema 1 0", "3 大额收款 1 1", "5 客户对账 2 1", std::to_string(id) + " kept 1 0"}))
        << "the schemes of the start come once";
    std::filesystem::remove(path);
}

} // namespace
} // namespace orv::erp
