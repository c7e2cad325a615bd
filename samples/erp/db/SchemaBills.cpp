#include "erp/db/SchemaParts.h"

// Bills. A header row has FStatus (0 open, 1 audited) and FVoucherId (0: no voucher yet); entry rows are numbered from
// 1 in FEntryID within their bill.
namespace orv::erp {

namespace {

constexpr std::string_view billStatementTexts[] = {
    R"sql(CREATE TABLE t_RP_RBill (
        FBillID        int NOT NULL PRIMARY KEY,
        FBillNo        nvarchar(30) NOT NULL,     -- SK000001
        FDate          datetime NULL,             -- some with a time of day, some NULL
        FFincDate      datetime NULL,             -- always midnight
        FYear          int NOT NULL,
        FPeriod        int NOT NULL,
        FReceiveTypeID int NOT NULL,              -- 0 sale, 1 advance, 2 refund
        FCustomer      int NULL,                  -- t_Customer
        FDepartment    int NULL,                  -- t_Department
        FEmployee      int NULL,                  -- t_Employee
        FCurrencyID    int NOT NULL,              -- t_Currency
        FExchangeRate  decimal(18,6) NOT NULL,
        FAmountFor     decimal(18,2) NULL,        -- in the bill's currency; refunds are negative
        FAmount        decimal(18,2) NULL,        -- in the book currency
        FDiscountRate  decimal(9,4) NULL,         -- percent
        FSettleTypeID  int NULL,                  -- t_SettleType
        FSettleNo      nvarchar(40) NULL,
        FAccountID     int NULL,                  -- t_Account
        FContractNo    nvarchar(40) NULL,
        FExplanation   nvarchar(255) NULL,        -- NULL and '' both occur
        FAttachments   int NULL,
        FPrepaid       bit NOT NULL,
        FPreparer      int NOT NULL,              -- t_user
        FChecker       int NULL,                  -- t_user
        FCheckDate     datetime NULL,
        FCreateTime    datetime NOT NULL,         -- date and time
        FStatus        int NOT NULL,
        FVoucherId     int NOT NULL
    ))sql",

    // Receipt details.
    R"sql(CREATE TABLE t_RP_RBillEntry (
        FBillID     int NOT NULL,
        FEntryID    int NOT NULL,
        FAccountID  int NULL,                     -- t_Account
        FAmountFor  decimal(18,2) NULL,
        FAmount     decimal(18,2) NULL,
        FFee        decimal(18,2) NULL,
        FBankDate   datetime NULL,
        FNote       nvarchar(255) NULL,
        PRIMARY KEY (FBillID, FEntryID)
    ))sql",

    // What the receipt settles.
    R"sql(CREATE TABLE t_RP_RBillSettle (
        FBillID       int NOT NULL,
        FEntryID      int NOT NULL,
        FSourceBillNo nvarchar(30) NOT NULL,      -- t_SO_Delivery.FBillNo
        FSourceDate   datetime NULL,
        FSourceAmount decimal(18,2) NULL,
        FSettleAmount decimal(18,2) NULL,
        FDueDays      int NULL,
        PRIMARY KEY (FBillID, FEntryID)
    ))sql",

    R"sql(CREATE TABLE t_RP_PBill (
        FBillID       int NOT NULL PRIMARY KEY,
        FBillNo       nvarchar(30) NOT NULL,      -- FK000001
        FDate         datetime NULL,
        FFincDate     datetime NULL,
        FYear         int NOT NULL,
        FPeriod       int NOT NULL,
        FPayTypeID    int NOT NULL,               -- 0 purchase, 1 advance, 2 refund
        FSupplier     int NULL,                   -- t_Supplier
        FDepartment   int NULL,                   -- t_Department
        FEmployee     int NULL,                   -- t_Employee
        FCurrencyID   int NOT NULL,               -- t_Currency
        FExchangeRate decimal(18,6) NOT NULL,
        FAmountFor    decimal(18,2) NULL,
        FAmount       decimal(18,2) NULL,
        FSettleTypeID int NULL,                   -- t_SettleType
        FSettleNo     nvarchar(40) NULL,
        FAccountID    int NULL,                   -- t_Account
        FExplanation  nvarchar(255) NULL,
        FPreparer     int NOT NULL,               -- t_user
        FChecker      int NULL,                   -- t_user
        FCheckDate    datetime NULL,
        FCreateTime   datetime NOT NULL,
        FStatus       int NOT NULL,
        FVoucherId    int NOT NULL
    ))sql",

    R"sql(CREATE TABLE t_RP_PBillEntry (
        FBillID       int NOT NULL,
        FEntryID      int NOT NULL,
        FAccountID    int NULL,                   -- t_Account
        FSourceBillNo nvarchar(30) NULL,
        FAmountFor    decimal(18,2) NULL,
        FAmount       decimal(18,2) NULL,
        FNote         nvarchar(255) NULL,
        PRIMARY KEY (FBillID, FEntryID)
    ))sql",

    R"sql(CREATE TABLE t_SO_Delivery (
        FBillID      int NOT NULL PRIMARY KEY,
        FBillNo      nvarchar(30) NOT NULL,       -- XS000001
        FDate        datetime NULL,
        FCustomer    int NULL,                    -- t_Customer
        FDepartment  int NULL,                    -- t_Department
        FEmployee    int NULL,                    -- t_Employee
        FWarehouse   int NULL,                    -- t_Warehouse
        FTransportID int NULL,                    -- t_AuxData, type 21
        FCurrencyID  int NOT NULL,                -- t_Currency
        FAmount      decimal(18,2) NULL,
        FTaxAmount   decimal(18,2) NULL,
        FAddress     nvarchar(255) NULL,
        FContact     nvarchar(80) NULL,
        FNote        nvarchar(255) NULL,
        FPrintCount  int NOT NULL,
        FUrgent      bit NOT NULL,
        FDeliverTime datetime NULL,               -- date and time
        FPreparer    int NOT NULL,                -- t_user
        FChecker     int NULL,                    -- t_user
        FStatus      int NOT NULL,
        FVoucherId   int NOT NULL
    ))sql",

    // Goods.
    R"sql(CREATE TABLE t_SO_DeliveryEntry1 (
        FBillID       int NOT NULL,
        FEntryID      int NOT NULL,
        FGoodsID      int NOT NULL,               -- t_Goods
        FUnitID       int NOT NULL,               -- t_Unit
        FQty          decimal(18,4) NULL,         -- returns are negative
        FPrice        decimal(18,4) NULL,
        FDiscountRate decimal(9,4) NULL,
        FAmount       decimal(18,2) NULL,
        FBatchNo      nvarchar(40) NULL,
        FProduceDate  datetime NULL,
        FNote         nvarchar(255) NULL,
        PRIMARY KEY (FBillID, FEntryID)
    ))sql",

    // Charges.
    R"sql(CREATE TABLE t_SO_DeliveryEntry2 (
        FBillID    int NOT NULL,
        FEntryID   int NOT NULL,
        FAccountID int NULL,                      -- t_Account
        FAmount    decimal(18,2) NULL,
        FNote      nvarchar(255) NULL,
        PRIMARY KEY (FBillID, FEntryID)
    ))sql",

    // Payment plan.
    R"sql(CREATE TABLE t_SO_DeliveryEntry3 (
        FBillID  int NOT NULL,
        FEntryID int NOT NULL,
        FDueDate datetime NULL,
        FPercent decimal(9,4) NULL,
        FAmount  decimal(18,2) NULL,
        PRIMARY KEY (FBillID, FEntryID)
    ))sql",

    R"sql(CREATE TABLE ICHourlywage (
        FBillID     int NOT NULL PRIMARY KEY,
        FBillNo     nvarchar(30) NOT NULL,        -- JS000001
        FClsID      int NOT NULL,                 -- wage class
        FDate       datetime NULL,
        FEmployee   int NULL,                     -- t_Employee
        FDepartment int NULL,                     -- t_Department
        FReasonID   int NULL,                     -- t_AuxData, type 131
        FStartTime  datetime NULL,                -- date and time
        FEndTime    datetime NULL,                -- date and time
        FHours      decimal(9,2) NULL,
        FRate       decimal(18,4) NULL,
        FAmount     decimal(18,2) NULL,
        FNote       nvarchar(255) NULL,
        FPreparer   int NOT NULL,                 -- t_user
        FStatus     int NOT NULL,
        FVoucherId  int NOT NULL
    ))sql",

    R"sql(CREATE TABLE ICPiecewage (
        FBillID     int NOT NULL PRIMARY KEY,
        FBillNo     nvarchar(30) NOT NULL,        -- JJ000001
        FClsID      int NOT NULL,                 -- wage class
        FDate       datetime NULL,
        FEmployee   int NULL,                     -- t_Employee
        FDepartment int NULL,                     -- t_Department
        FGoodsID    int NULL,                     -- t_Goods
        FQty        decimal(18,4) NULL,
        FPassedQty  decimal(18,4) NULL,
        FPrice      decimal(18,4) NULL,
        FAmount     decimal(18,2) NULL,
        FNote       nvarchar(255) NULL,
        FPreparer   int NOT NULL,                 -- t_user
        FStatus     int NOT NULL,
        FVoucherId  int NOT NULL
    ))sql",

    R"sql(CREATE TABLE t_GL_Voucher (
        FVoucherID   int NOT NULL PRIMARY KEY,
        FDate        datetime NULL,
        FYear        int NOT NULL,
        FPeriod      int NOT NULL,
        FGroup       nvarchar(10) NOT NULL,       -- 记, 收, 付, 转
        FNumber      int NOT NULL,                -- from 1 within year, period and group
        FAttachments int NOT NULL,
        FDebitTotal  decimal(18,2) NOT NULL,
        FCreditTotal decimal(18,2) NOT NULL,
        FExplanation nvarchar(255) NULL,
        FPreparer    int NOT NULL,                -- t_user
        FChecker     int NULL,                    -- t_user
        FPostedTime  datetime NULL,               -- date and time
        FPosted      bit NOT NULL,
        FStatus      int NOT NULL
    ))sql",

    R"sql(CREATE TABLE t_GL_VoucherEntry (
        FVoucherID   int NOT NULL,
        FEntryID     int NOT NULL,
        FAccountID   int NOT NULL,                -- t_Account
        FExplanation nvarchar(255) NULL,
        FDC          int NOT NULL,                -- 1 debit, -1 credit
        FAmount      decimal(18,2) NOT NULL,
        FQuantity    decimal(18,4) NULL,
        FUnitID      int NULL,                    -- t_Unit
        PRIMARY KEY (FVoucherID, FEntryID)
    ))sql",
};

} // namespace

std::span<const std::string_view> billTables() {
    return billStatementTexts;
}

} // namespace orv::erp
