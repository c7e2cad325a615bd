#include "play/StepOutcome.h"

#include "automation/Text.h"

namespace orv::play {

using automation::toUtf8;

Json StepOutcome::toJson(std::size_t stepNumber) const {
    Json line = {{"step", stepNumber}};
    if (result)
        line["result"] = *result;
    if (args)
        line["args"] = *args;
    for (const ShownMessage& message : messages)
        line["messages"].push_back(
            {{"text", toUtf8(message.text)}, {"title", toUtf8(message.title)}, {"style", message.style}});
    for (const std::u16string& dialog : dialogs)
        line["dialogs"].push_back(toUtf8(dialog));
    if (error)
        line["error"] = {
            {"number", error->number}, {"source", toUtf8(error->source)}, {"description", toUtf8(error->description)}};
    if (!refused.empty())
        line["refused"] = refused;
    for (const std::u16string& text : log)
        line["log"].push_back(toUtf8(text));
    return line;
}

} // namespace orv::play
