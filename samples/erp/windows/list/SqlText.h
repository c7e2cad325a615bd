#pragma once

#include <string>

namespace orv::erp {

/// A statement with its clauses on lines of their own, for people: breaks before FROM, joins, WHERE and ORDER
/// BY, but not within brackets and quoted texts. Line ends become those of an edit control.
std::wstring brokenLines(const std::wstring& sql);

} // namespace orv::erp
