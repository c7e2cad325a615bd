#include "automation/Coercion.h"
#include "automation/Text.h"
#include "play/ScenarioError.h"
#include "play/Session.h"
#include "play/StepOutcome.h"
#include "play/StepReader.h"
#include "play/Steps.h"
#include "play/Values.h"

namespace orv::play {

namespace {

constexpr int usualKeyCount = 10; // how many bills a list shows when the step does not say

/// A number of an error as people write it: 5, or a result code from 0x80000000 on as an unsigned number.
std::int32_t errorNumber(const Json& failure) {
    const auto number = failure.find("number");
    if (number == failure.end() || !number->is_number_integer() || number->get<double>() < -2147483648.0 ||
        number->get<double>() > 4294967295.0)
        throw ScenarioError("\"number\" must be a whole number of 32 bits");
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(number->get<std::int64_t>()));
}

void queueLookUp(erp::ErpHost& host, const Json& choice) {
    if (choice.is_null())
        host.queueLookUpCancel();
    else if (choice.is_string())
        host.queueLookUp(automation::fromUtf8(choice.get_ref<const std::string&>()));
    else if (choice.is_object())
        host.queueLookUp(toDictionary(choice, host));
    else
        throw ScenarioError("\"lookUp\" must be the number of a record in a text, a record, or null to cancel");
}

/// Texts and ticks by the names of their controls; "press" names the button.
DialogAnswer dialogAnswer(const Json& entries) {
    DialogAnswer answer;
    for (const auto& [key, entry] : entries.items()) {
        const std::u16string name = automation::fromUtf8(key);
        if (key == "press")
            answer.press = textOf(entries, "press");
        else if (entry.is_boolean())
            answer.ticks.emplace_back(name, entry.get<bool>());
        else
            answer.texts.emplace_back(name, textOf(entries, key.c_str()));
    }
    return answer;
}

void checkKeys(const Json& object, std::size_t count, const char* what) {
    if (object.size() != count)
        throw ScenarioError(what);
}

} // namespace

void logOnStep(Session& session, const Json& step, StepOutcome&) {
    session.logOn(textOf(step, "logOn"));
}

void answerStep(Session& session, const Json& step, StepOutcome&) {
    const Json& answer = step["answer"];
    if (answer == "yes")
        return session.prompts().queue(ui::MessageAnswer::yes);
    if (answer == "no")
        return session.prompts().queue(ui::MessageAnswer::no);
    if (!answer.is_object() || answer.size() != 1 || !(has(answer, "lookUp") || has(answer, "dialog")))
        throw ScenarioError(R"("answer" must be "yes", "no", {"lookUp": ...} or {"dialog": ...})");
    if (has(answer, "lookUp"))
        queueLookUp(session.host(), answer["lookUp"]);
    else
        session.prompts().queue(dialogAnswer(objectOf(answer, "dialog")));
}

void failStep(Session& session, const Json& step, StepOutcome&) {
    const Json& failure = objectOf(step, "fail");
    checkKeys(failure, 4, "\"fail\" has the keys \"progid\", \"member\", \"number\" and \"description\"");
    session.host().failNext(textOf(failure, "progid"), textOf(failure, "member"), errorNumber(failure),
                            textOf(failure, "description"));
}

void callsStep(Session& session, const Json& step, StepOutcome& outcome) {
    const std::u16string progId = textOf(step, "calls");
    Json calls = Json::array();
    for (const erp::RecordedCall& call : session.host().calls()) {
        if (!automation::sameMember(call.progId, progId))
            continue;
        Json args = Json::array();
        for (const automation::Value& argument : call.arguments)
            args.push_back(toJson(argument));
        calls.push_back({{"member", automation::toUtf8(call.member)}, {"args", args}});
    }
    session.host().clearCalls();
    outcome.result = calls;
}

void rowsStep(Session& session, const Json& step, StepOutcome& outcome) {
    if (step["rows"] != true && !step["rows"].is_number_unsigned())
        throw ScenarioError("\"rows\" must be true or the number of keys to list");
    const int keys = step["rows"] == true ? usualKeyCount : numberOf(step, "rows");
    std::u16string where, headSort, entrySort;
    session.filter().GetFilterSql(where, true);
    session.filter().GetSortString(headSort, entrySort);
    const erp::ListResult list =
        session.host().list(session.classTypeId(), where, headSort, entrySort, static_cast<std::size_t>(keys));
    Json first = Json::array();
    for (const auto& key : list.firstKeys)
        first.push_back(automation::toUtf8(key));
    outcome.result =
        Json{{"count", list.bills}, {"rows", list.rows}, {"keys", first}, {"sql", automation::toUtf8(list.sql)}};
}

} // namespace orv::play
