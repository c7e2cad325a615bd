#include "play/JsonLines.h"

#include <ostream>

namespace orv::play {

void JsonLines::played(const Step& step, const StepOutcome& outcome, const std::vector<std::string>& failures) {
    Json line = outcome.toJson(step.number);
    if (!failures.empty())
        line["failed"] = failures;
    out_ << line.dump() << '\n';
}

} // namespace orv::play
