#include "play/Members.h"
#include "play/ScenarioError.h"
#include "play/StepOutcome.h"
#include "play/StepReader.h"
#include "play/Steps.h"

namespace orv::play {

void setStep(Session& session, const Json& step, StepOutcome&) {
    if (!has(step, "to"))
        throw ScenarioError("\"to\" is missing: what the property is set to");
    letMember(session, utf8Of(step, "set"), step["to"]);
}

void getStep(Session& session, const Json& step, StepOutcome& outcome) {
    outcome.result = getMember(session, utf8Of(step, "get"));
}

void callStep(Session& session, const Json& step, StepOutcome& outcome) {
    callMember(session, utf8Of(step, "call"), has(step, "args") ? step["args"] : Json::array(), outcome);
}

} // namespace orv::play
