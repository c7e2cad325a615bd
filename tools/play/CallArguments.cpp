#include "play/CallArguments.h"

#include "automation/Coercion.h"
#include "automation/Object.h"
#include "automation/Text.h"
#include "play/DateText.h"
#include "play/ScenarioError.h"
#include "play/Session.h"
#include "play/Values.h"

#include <limits>

namespace orv::play {

CallArguments::CallArguments(Session& session, const Json& args, std::size_t most) : session_(session), args_(args) {
    if (!args.is_array())
        throw ScenarioError("\"args\" must be an array");
    if (args.size() > most)
        throw ScenarioError("the call takes " + std::to_string(most) + " arguments, not " +
                            std::to_string(args.size()));
}

void CallArguments::refuse(std::size_t position, const char* kind) {
    throw ScenarioError("argument " + std::to_string(position + 1) + " must be " + kind);
}

const Json& CallArguments::at(std::size_t position) const {
    static const Json leftOut;
    return position < args_.size() ? args_[position] : leftOut;
}

std::u16string CallArguments::text(std::size_t position) const {
    const Json& arg = at(position);
    if (arg.is_null())
        return {};
    if (!arg.is_string())
        refuse(position, "a text");
    return automation::fromUtf8(arg.get_ref<const std::string&>());
}

std::int32_t CallArguments::number(std::size_t position) const {
    const Json& arg = at(position);
    if (arg.is_null())
        return 0;
    if (!arg.is_number_integer() || arg.get<double>() < std::numeric_limits<std::int32_t>::min() ||
        arg.get<double>() > std::numeric_limits<std::int32_t>::max())
        refuse(position, "a whole number of 32 bits");
    return arg.get<std::int32_t>();
}

bool CallArguments::flag(std::size_t position) const {
    const Json& arg = at(position);
    if (!arg.is_null() && !arg.is_boolean())
        refuse(position, "true or false");
    return arg.is_boolean() && arg.get<bool>();
}

automation::Date CallArguments::date(std::size_t position) const {
    const Json& arg = at(position);
    if (!arg.is_null() && !arg.is_string())
        refuse(position, "a date in a text");
    return arg.is_null() ? automation::Date{} : parseDateText(arg.get_ref<const std::string&>());
}

automation::Dictionary CallArguments::dictionary(std::size_t position) const {
    const Json& arg = at(position);
    if (arg.is_null())
        return {};
    if (!arg.is_object())
        refuse(position, "an object");
    return toDictionary(arg, session_.host());
}

automation::Dictionary CallArguments::fieldRecord(std::size_t position) const {
    const Json& arg = at(position);
    if (!arg.is_string())
        return dictionary(position);
    const std::u16string key = text(position);
    const automation::Dictionary fields(
        automation::toObject(automation::get(session_.filter().get_DataSrv(), u"TableInfo")));
    if (!fields.exists(key))
        throw ScenarioError("no field \"" + automation::toUtf8(key) + "\" in the class type");
    return automation::Dictionary(automation::toObject(fields.get(key)));
}

automation::Recordset CallArguments::catalogue(std::size_t position) const {
    if (at(position) != "rsAllBase")
        refuse(position, "\"rsAllBase\"");
    return automation::Recordset(automation::toObject(automation::get(session_.filter().get_DataSrv(), u"rsAllBase")));
}

} // namespace orv::play
