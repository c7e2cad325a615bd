#include "erp/host/ProfileStore.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "support/Letters.h"

#include <span>

namespace orv::erp {

using automation::AutomationError;
using automation::Collection;
using automation::Dictionary;
using automation::Value;

namespace {

/// Entries are kept as texts; numbers are marked, so that they come back as what they were: 16-bit integers.
bool isNumber(const Value& value) {
    return value.is<std::int16_t>() || value.is<std::int32_t>() || value.is<double>();
}

} // namespace

void ProfileStore::save(std::int32_t userId, const Dictionary& header, const Dictionary& entries) {
    const std::u16string name = support::replaceAll(automation::toText(header.get(u"FSchemeName")), u"''", u"'");
    const std::int32_t classTypeId = automation::toInt32(header.get(u"FTranType"));
    const Value share = automation::toInt32(header.getValue(u"FIsShare", std::int32_t{0}));
    const Value status = automation::toInt32(header.getValue(u"FStatus", std::int32_t{0}));
    const Value systemName = automation::toText(header.getValue(u"FSysName", std::u16string()));

    Database::Transaction transaction(database_);
    const std::int32_t given = automation::toInt32(header.get(u"FSchemeID"));
    std::int32_t schemeId = identify(userId, classTypeId, given, name);
    if (schemeId == 0) {
        const ResultSet last = database_.query(u"SELECT isnull(MAX(FSchemeID),0) AS FLast FROM ICClassProfile");
        schemeId = automation::toInt32(last.rows.at(0).at(0)) + 1;
        const Value row[] = {schemeId, name, classTypeId, systemName, status, share, userId};
        database_.execute(u"INSERT INTO ICClassProfile (FSchemeID, FSchemeName, FTranType, FSysName, FStatus, "
                          u"FIsShare, FUserID) VALUES (?,?,?,?,?,?,?)",
                          row);
    } else {
        const Value row[] = {name, systemName, status, share, schemeId};
        database_.execute(u"UPDATE ICClassProfile SET FSchemeName=?, FSysName=?, FStatus=?, FIsShare=? "
                          u"WHERE FSchemeID=?",
                          row);
    }
    writeEntries(schemeId, entries);
    transaction.commit();
    header.set(u"FSchemeID", schemeId);
    header.set(u"FUserID", userId);
}

std::int32_t ProfileStore::identify(std::int32_t userId, std::int32_t classTypeId, std::int32_t schemeId,
                                    const std::u16string& name) const {
    if (schemeId > 0) {
        const Value key[] = {schemeId};
        const ResultSet owner = database_.query(u"SELECT FUserID FROM ICClassProfile WHERE FSchemeID=?", key);
        if (owner.rows.empty())
            return 0;
        if (automation::toInt32(owner.rows[0][0]) != userId)
            throw AutomationError(automation::errorNumber::invalidCall, u"ORVMProfile.classUpdate",
                                  u"不能覆盖其他用户的方案");
        return schemeId;
    }
    const Value key[] = {userId, classTypeId, name};
    const ResultSet own =
        database_.query(u"SELECT FSchemeID FROM ICClassProfile WHERE FUserID=? AND FTranType=? AND FSchemeName=?", key);
    return own.rows.empty() ? 0 : automation::toInt32(own.rows[0][0]);
}

void ProfileStore::writeEntries(std::int32_t schemeId, const Dictionary& entries) {
    const Value scheme[] = {schemeId};
    database_.execute(u"DELETE FROM ICClassProfileEntry WHERE FSchemeID=?", scheme);
    for (const auto& key : entries.keys()) {
        const Value entry = entries.get(key);
        if (entry.isNull() || entry.isEmpty() || entry.isObject())
            continue;
        const Value row[] = {schemeId, key, isNumber(entry), automation::toText(entry)};
        database_.execute(u"INSERT INTO ICClassProfileEntry (FSchemeID, FEntryKey, FIsNumber, FEntryValue) "
                          u"VALUES (?,?,?,?)",
                          row);
    }
}

bool ProfileStore::remove(std::int32_t userId, std::int32_t schemeId) {
    Database::Transaction transaction(database_);
    const Value key[] = {schemeId, userId};
    if (database_.execute(u"DELETE FROM ICClassProfile WHERE FSchemeID=? AND FUserID=?", key) == 0)
        return false;
    database_.execute(u"DELETE FROM ICClassProfileEntry WHERE FSchemeID=?", std::span(key).first(1));
    transaction.commit();
    return true;
}

Collection ProfileStore::list(std::int32_t userId, std::int32_t classTypeId) const {
    const Value key[] = {classTypeId, userId};
    const ResultSet rows = database_.query(u"SELECT FSchemeName, FSchemeID, FUserID, FIsShare FROM ICClassProfile "
                                           u"WHERE FTranType=? AND (FUserID=? OR FIsShare=1) ORDER BY FSchemeID",
                                           key);
    const Collection list = automation::makeCollection();
    for (const auto& row : rows.rows) {
        const Dictionary record = automation::makeDictionary();
        for (std::size_t column = 0; column < rows.columns.size(); ++column)
            record.set(rows.columns[column], row[column]);
        list.add(record.object());
    }
    return list;
}

Dictionary ProfileStore::load(std::int32_t schemeId) const {
    const Value key[] = {schemeId};
    const ResultSet rows = database_.query(
        u"SELECT FEntryKey, FIsNumber, FEntryValue FROM ICClassProfileEntry WHERE FSchemeID=? ORDER BY FEntryKey", key);
    const Dictionary entries = automation::makeDictionary();
    for (const auto& row : rows.rows)
        entries.set(automation::toText(row[0]),
                    automation::toBoolean(row[1]) ? Value(automation::toInt16(row[2])) : row[2]);
    return entries;
}

std::u16string ProfileStore::userValue(std::int32_t userId, const std::u16string& section,
                                       const std::u16string& key) const {
    const Value place[] = {userId, section, key};
    const ResultSet rows =
        database_.query(u"SELECT FValue FROM t_UserProfile WHERE FUserID=? AND FSection=? AND FEntryKey=?", place);
    return rows.rows.empty() ? std::u16string() : automation::toText(rows.rows[0][0]);
}

void ProfileStore::setUserValue(std::int32_t userId, const std::u16string& section, const std::u16string& key,
                                const std::u16string& value) {
    Database::Transaction transaction(database_);
    const Value place[] = {userId, section, key};
    database_.execute(u"DELETE FROM t_UserProfile WHERE FUserID=? AND FSection=? AND FEntryKey=?", place);
    const Value row[] = {userId, section, key, value};
    database_.execute(u"INSERT INTO t_UserProfile (FUserID, FSection, FEntryKey, FValue) VALUES (?,?,?,?)", row);
    transaction.commit();
}

} // namespace orv::erp
