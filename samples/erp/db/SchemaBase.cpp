#include "erp/db/SchemaParts.h"

// Base data. Every table has an internal number FItemID (what bills store), a code FNumber and a name FName.
namespace orv::erp {

namespace {

constexpr std::string_view baseStatementTexts[] = {
    R"sql(CREATE TABLE t_UnitGroup (
        FItemID int NOT NULL PRIMARY KEY, FNumber nvarchar(30) NOT NULL, FName nvarchar(80) NOT NULL
    ))sql",

    R"sql(CREATE TABLE t_Unit (
        FItemID      int NOT NULL PRIMARY KEY,
        FNumber      nvarchar(30) NOT NULL,
        FName        nvarchar(80) NOT NULL,
        FUnitGroupID int NOT NULL,                -- t_UnitGroup
        FCoefficient decimal(18,4) NOT NULL       -- base units in one of this
    ))sql",

    R"sql(CREATE TABLE t_Currency (
        FItemID       int NOT NULL PRIMARY KEY,
        FNumber       nvarchar(30) NOT NULL,
        FName         nvarchar(80) NOT NULL,
        FExchangeRate decimal(18,6) NOT NULL,
        FScale        int NOT NULL                -- decimals of an amount
    ))sql",

    R"sql(CREATE TABLE t_SettleType (
        FItemID int NOT NULL PRIMARY KEY, FNumber nvarchar(30) NOT NULL, FName nvarchar(80) NOT NULL
    ))sql",

    R"sql(CREATE TABLE t_Department (
        FItemID  int NOT NULL PRIMARY KEY,
        FNumber  nvarchar(30) NOT NULL,
        FName    nvarchar(80) NOT NULL,
        FManager int NULL                         -- t_Employee
    ))sql",

    R"sql(CREATE TABLE t_Employee (
        FItemID       int NOT NULL PRIMARY KEY,
        FNumber       nvarchar(30) NOT NULL,
        FName         nvarchar(80) NOT NULL,
        FDepartmentID int NOT NULL,               -- t_Department
        FHireDate     datetime NULL,
        FHourlyRate   decimal(18,2) NULL
    ))sql",

    R"sql(CREATE TABLE t_Warehouse (
        FItemID int NOT NULL PRIMARY KEY, FNumber nvarchar(30) NOT NULL, FName nvarchar(80) NOT NULL
    ))sql",

    R"sql(CREATE TABLE t_Customer (
        FItemID       int NOT NULL PRIMARY KEY,
        FNumber       nvarchar(30) NOT NULL,
        FName         nvarchar(80) NOT NULL,      -- names with quotes, wildcards, mixed case and trailing blanks
        FShortName    nvarchar(40) NULL,
        FRegionID     int NULL,                   -- t_AuxData, type 20
        FDepartmentID int NULL,                   -- t_Department
        FEmployeeID   int NULL,                   -- t_Employee
        FCreditLimit  decimal(18,2) NULL,
        FPhone        nvarchar(40) NULL
    ))sql",

    R"sql(CREATE TABLE t_Supplier (
        FItemID   int NOT NULL PRIMARY KEY,
        FNumber   nvarchar(30) NOT NULL,
        FName     nvarchar(80) NOT NULL,
        FRegionID int NULL,                       -- t_AuxData, type 20
        FPhone    nvarchar(40) NULL
    ))sql",

    R"sql(CREATE TABLE t_Account (
        FAccountID int NOT NULL PRIMARY KEY,
        FNumber    nvarchar(30) NOT NULL,
        FName      nvarchar(80) NOT NULL,
        FGroupID   int NOT NULL,                  -- 700 and above: off-balance accounts
        FDetail    bit NOT NULL,
        FDC        int NOT NULL                   -- 1 debit, -1 credit
    ))sql",

    R"sql(CREATE TABLE t_AuxType (
        FTypeID int NOT NULL PRIMARY KEY, FName nvarchar(80) NOT NULL
    ))sql",

    R"sql(CREATE TABLE t_AuxData (
        FItemID int NOT NULL PRIMARY KEY,
        FTypeID int NOT NULL,                     -- t_AuxType: 20 region, 21 transport, 22 brand, 131 wage reason
        FNumber nvarchar(30) NOT NULL,
        FName   nvarchar(80) NOT NULL
    ))sql",

    // Master data with a list of its own (class type 1000101).
    R"sql(CREATE TABLE t_Goods (
        FItemID       int NOT NULL PRIMARY KEY,
        FNumber       nvarchar(30) NOT NULL,
        FName         nvarchar(120) NOT NULL,
        FModel        nvarchar(120) NULL,         -- with %, _ and [ in some
        FUnitGroupID  int NOT NULL,               -- t_UnitGroup
        FUnitID       int NOT NULL,               -- t_Unit
        FBrandID      int NULL,                   -- t_AuxData, type 22
        FSupplierID   int NULL,                   -- t_Supplier
        FPrice        decimal(18,4) NULL,
        FTaxRate      decimal(9,4) NOT NULL,      -- percent
        FWeight       decimal(18,6) NULL,
        FShelfLife    int NULL,                   -- days
        FBarCode      nvarchar(40) NULL,
        FBatchManaged bit NOT NULL,
        FCreateDate   datetime NOT NULL,
        FModifyTime   datetime NULL,
        FDeleted      bit NOT NULL,
        FNote         nvarchar(255) NULL
    ))sql",
};

} // namespace

std::span<const std::string_view> baseTables() {
    return baseStatementTexts;
}

} // namespace orv::erp
