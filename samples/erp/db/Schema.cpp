#include "erp/db/Schema.h"

#include "erp/db/SchemaParts.h"

#include <vector>

namespace orv::erp {

namespace {

constexpr std::string_view systemTables[] = {
    R"sql(CREATE TABLE t_ClassType (
        FID         int NOT NULL PRIMARY KEY,
        FName       nvarchar(80) NOT NULL,
        FTableName  nvarchar(80) NOT NULL         -- header table
    ))sql",

    R"sql(CREATE TABLE t_user (
        FUserID     int NOT NULL PRIMARY KEY,
        FName       nvarchar(80) NOT NULL,
        FDisabled   bit NOT NULL
    ))sql",

    // FKind 0: the accounting period of the business modules; 1: of the general ledger. FCurrent marks the open one.
    R"sql(CREATE TABLE t_Period (
        FKind       int NOT NULL,
        FYear       int NOT NULL,
        FPeriod     int NOT NULL,
        FStartDate  datetime NOT NULL,
        FEndDate    datetime NOT NULL,            -- last day of the period, midnight
        FCurrent    bit NOT NULL,
        PRIMARY KEY (FKind, FYear, FPeriod)
    ))sql",

    R"sql(CREATE TABLE ICClassProfile (
        FSchemeID   int NOT NULL PRIMARY KEY,
        FSchemeName nvarchar(255) NOT NULL,
        FTranType   int NOT NULL,                 -- class type
        FSysName    nvarchar(80) NOT NULL,
        FStatus     int NOT NULL,
        FIsShare    int NOT NULL,
        FUserID     int NOT NULL                  -- owner
    ))sql",

    // The content of a scheme, one row an entry (OrderBy, Relation, ..., IsShowAllHead). An entry that a scheme lacks
    // has no row. FIsNumber: the entry is a whole number, not a text.
    R"sql(CREATE TABLE ICClassProfileEntry (
        FSchemeID   int NOT NULL,
        FEntryKey   nvarchar(50) NOT NULL,
        FIsNumber   bit NOT NULL,
        FEntryValue nvarchar(4000) NOT NULL,
        PRIMARY KEY (FSchemeID, FEntryKey)
    ))sql",

    R"sql(CREATE TABLE t_UserProfile (
        FUserID     int NOT NULL,
        FSection    nvarchar(80) NOT NULL,        -- VTAFilter1000201
        FEntryKey   nvarchar(80) NOT NULL,        -- DefaultScheme
        FValue      nvarchar(4000) NOT NULL,
        PRIMARY KEY (FUserID, FSection, FEntryKey)
    ))sql",

    // The catalogue of base-data fields whose display text lives in a further table.
    R"sql(CREATE TABLE t_BaseDataField (
        FClassTypeID   int NOT NULL,              -- class of the base data, as in FLookUpClassID
        FFieldName     nvarchar(80) NOT NULL,
        FTableName     nvarchar(80) NOT NULL,
        FSrcTableName  nvarchar(80) NOT NULL,
        FSRCFieldName  nvarchar(80) NOT NULL,
        FDSPFieldName  nvarchar(80) NOT NULL,
        FFNDFieldName  nvarchar(80) NOT NULL,
        FLookUpType    int NOT NULL,
        FLookUpClassID int NOT NULL,
        PRIMARY KEY (FClassTypeID, FFieldName)
    ))sql",
};

std::vector<std::string_view> allStatements() {
    std::vector<std::string_view> all(std::begin(systemTables), std::end(systemTables));
    for (const auto part : {baseTables(), billTables()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

} // namespace

std::span<const std::string_view> schemaStatements() {
    static const std::vector<std::string_view> statements = allStatements();
    return statements;
}

} // namespace orv::erp
