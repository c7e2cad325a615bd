#pragma once

#include <span>
#include <string_view>

// The tables of the sample ERP. The definitions are T-SQL that SQLite reads as it stands; the column types that they
// declare (int, bit, decimal(p,s), nvarchar(n), datetime) are what the T-SQL translation takes the meaning of a
// comparison from. How each type is stored: docs/sample-erp-sql.md.
namespace orv::erp {

/// CREATE TABLE statements (UTF-8) in the order in which they must run.
std::span<const std::string_view> schemaStatements();

/// Class types of the sample ERP (table t_ClassType) and the header table of each.
namespace classType {
inline constexpr int goods = 1000101;      // 商品档案    t_Goods
inline constexpr int receipt = 1000201;    // 收款单据    t_RP_RBill
inline constexpr int payment = 1000202;    // 付款单据    t_RP_PBill
inline constexpr int delivery = 1000301;   // 销售出库单  t_SO_Delivery
inline constexpr int voucher = 1000801;    // 凭证        t_GL_Voucher
inline constexpr int hourlyWage = 1000901; // 计时工资单  ICHourlywage
inline constexpr int pieceWage = 1000902;  // 计件工资单  ICPiecewage
} // namespace classType

/// Values of FClsID in the two wage tables: the wage class of the bill. The current one is `hourlyWageClass` for
/// ICHourlywage and `pieceWageClass` for ICPiecewage; a few bills of either table carry the other class.
inline constexpr int hourlyWageClass = 1;
inline constexpr int pieceWageClass = 2;

} // namespace orv::erp
