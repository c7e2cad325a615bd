#pragma once

#include <functional>
#include <initializer_list>
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <string_view>
#include <utility>

// Reading JSON with messages that name the place. `where` is that place, e.g. "class type 1000201, field 3".
namespace orv::erp {

/// AutomationError 5 with "place: what".
[[noreturn]] void failReading(std::string_view where, std::string_view what);

/// The member of an object; fails when it is missing.
const nlohmann::ordered_json& need(const nlohmann::ordered_json& object, const char* key, std::string_view where);

void expectObject(const nlohmann::ordered_json& json, std::string_view where);
void expectArray(const nlohmann::ordered_json& json, std::string_view where);

int needInteger(const nlohmann::ordered_json& object, const char* key, std::string_view where);
std::u16string needText(const nlohmann::ordered_json& object, const char* key, std::string_view where);
/// "" when the member is missing.
std::u16string textOr(const nlohmann::ordered_json& object, const char* key, std::string_view where);
bool flagOr(const nlohmann::ordered_json& object, const char* key, bool fallback, std::string_view where);

/// Calls the reader of each member of an object; fails at a member that no reader is for.
using MemberReader = std::pair<std::string_view, std::function<void(const nlohmann::ordered_json&)>>;
void readMembers(const nlohmann::ordered_json& object, std::initializer_list<MemberReader> readers,
                 std::string_view where);

} // namespace orv::erp
