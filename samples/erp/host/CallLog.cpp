#include "erp/host/CallLog.h"

#include "automation/AutomationError.h"
#include "automation/Records.h"
#include "automation/Views.h"

#include <algorithm>

namespace orv::erp {

using automation::Arguments;
using automation::AutomationError;
using automation::Dictionary;
using automation::InvokeKind;
using automation::ObjectRef;
using automation::Value;

namespace {

constexpr std::u16string_view dictionaryType = u"Dictionary";

/// A scalar as it is; for an object its kind.
Value withoutObject(const Value& value) {
    const auto* object = value.getIf<ObjectRef>();
    if (object == nullptr)
        return value;
    return *object ? Value(std::u16string(u"(") + std::u16string((*object)->typeName()) + u")") : Value(u"(Nothing)");
}

Value snapshot(const Value& value) {
    const auto* object = value.getIf<ObjectRef>();
    if (object == nullptr || !*object || (*object)->typeName() != dictionaryType)
        return withoutObject(value);
    const Dictionary source(*object);
    const Dictionary copy = automation::makeDictionary();
    for (const auto& key : source.keys())
        copy.set(key, withoutObject(source.get(key)));
    return copy.object();
}

} // namespace

void CallLog::note(std::u16string_view progId, std::u16string_view member, InvokeKind kind, Arguments arguments) {
    RecordedCall call{std::u16string(progId), std::u16string(member), kind, {}};
    call.arguments.reserve(arguments.size());
    for (const auto& argument : arguments)
        call.arguments.push_back(snapshot(argument.value()));
    if (calls_.size() >= capacity)
        calls_.erase(calls_.begin(), calls_.begin() + capacity / 2);
    calls_.push_back(std::move(call));

    const auto failure = std::ranges::find_if(failures_, [&](const Failure& ordered) {
        return automation::sameMember(ordered.progId, progId) && automation::sameMember(ordered.member, member);
    });
    if (failure == failures_.end())
        return;
    const AutomationError error(failure->number, failure->progId, failure->description);
    failures_.erase(failure);
    throw error;
}

void CallLog::failNext(std::u16string_view progId, std::u16string_view member, std::int32_t number,
                       std::u16string_view description) {
    failures_.push_back({std::u16string(progId), std::u16string(member), number, std::u16string(description)});
}

} // namespace orv::erp
