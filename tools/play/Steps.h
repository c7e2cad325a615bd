#pragma once

#include "play/Json.h"

// One function for each verb; see Verb::run.
namespace orv::play {

class Session;
struct StepOutcome;

// MemberSteps.cpp: the public members, as a host program uses them.
void setStep(Session& session, const Json& step, StepOutcome& outcome);
void getStep(Session& session, const Json& step, StepOutcome& outcome);
void callStep(Session& session, const Json& step, StepOutcome& outcome);

// GridSteps.cpp: what a user does in a grid.
void rowStep(Session& session, const Json& step, StepOutcome& outcome);
void cellStep(Session& session, const Json& step, StepOutcome& outcome);
void keyStep(Session& session, const Json& step, StepOutcome& outcome);

// ControlSteps.cpp: what a user does with the other controls, and what he sees.
void selectStep(Session& session, const Json& step, StepOutcome& outcome);
void checkStep(Session& session, const Json& step, StepOutcome& outcome);
void clickStep(Session& session, const Json& step, StepOutcome& outcome);
void scrollStep(Session& session, const Json& step, StepOutcome& outcome);
void showStep(Session& session, const Json& step, StepOutcome& outcome);

// HostSteps.cpp: the surroundings of the control.
void logOnStep(Session& session, const Json& step, StepOutcome& outcome);
void answerStep(Session& session, const Json& step, StepOutcome& outcome);
void failStep(Session& session, const Json& step, StepOutcome& outcome);
void callsStep(Session& session, const Json& step, StepOutcome& outcome);
void rowsStep(Session& session, const Json& step, StepOutcome& outcome);

} // namespace orv::play
