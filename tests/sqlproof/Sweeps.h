#pragma once

#include "sqlproof/Proof.h"

namespace orv::sqlproof {

/// Every comparison that the sample's metadata offers for every field, with every value that suits the column.
void sweepFields(erp::ErpHost& host, Proof& proof);

/// Every keyword of every date column on days at the edges of weeks, months and years.
void sweepKeywords(erp::ErpHost& host, Proof& proof);

/// Every operator for every type code, input type and kind of column, offered by the metadata or not.
void sweepTypes(erp::ErpHost& host, Proof& proof);

/// Two to five conditions on the receipts, joined and bracketed at random (always the same).
void sweepCombinations(erp::ErpHost& host, Proof& proof);

} // namespace orv::sqlproof
