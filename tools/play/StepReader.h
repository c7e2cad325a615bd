#pragma once

#include "play/Json.h"

#include <string>
#include <string_view>

// Reading of the parameters of a step. Every function raises ScenarioError that names the key when it is absent or of
// another kind.
namespace orv::play {

bool has(const Json& object, const char* key);
const std::string& utf8Of(const Json& object, const char* key);
std::u16string textOf(const Json& object, const char* key);
int numberOf(const Json& object, const char* key);
bool flagOf(const Json& object, const char* key);
const Json& objectOf(const Json& object, const char* key);

/// Names for a message: "a", "b", "c".
std::string listed(const auto& names) {
    std::string text;
    for (const auto& name : names) {
        text += text.empty() ? "\"" : ", \"";
        text += name;
        text += '"';
    }
    return text;
}

} // namespace orv::play
