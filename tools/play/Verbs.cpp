#include "play/Verbs.h"

#include "play/Steps.h"

#include <algorithm>

namespace orv::play {

std::span<const Verb> verbs() {
    static const std::vector<Verb> all{
        {"set", {"to"}, setStep},
        {"get", {}, getStep},
        {"call", {"args"}, callStep},
        {"row", {"left", "field", "compare", "value", "right", "logic"}, rowStep},
        {"cell", {"text", "choose", "checked"}, cellStep},
        {"key", {"grid", "shift"}, keyStep},
        {"select", {"index", "item"}, selectStep},
        {"check", {"value"}, checkStep},
        {"click", {"button", "menu"}, clickStep},
        {"scroll", {"to"}, scrollStep},
        {"show", {}, showStep},
        {"logOn", {}, logOnStep},
        {"answer", {}, answerStep},
        {"fail", {}, failStep},
        {"calls", {}, callsStep},
        {"rows", {}, rowsStep},
    };
    return all;
}

const Verb* findVerb(std::string_view name) {
    const auto found = std::ranges::find(verbs(), name, &Verb::name);
    return found == verbs().end() ? nullptr : &*found;
}

} // namespace orv::play
