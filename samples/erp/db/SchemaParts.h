#pragma once

#include <span>
#include <string_view>

// The parts of the schema, one source file each; everyone else asks `schemaStatements`.
namespace orv::erp {

std::span<const std::string_view> baseTables();
std::span<const std::string_view> billTables();

} // namespace orv::erp
