#include "editor/Comparisons.h"

#include "automation/Coercion.h"
#include "automation/Views.h"
#include "support/PaddedItem.h"

namespace orv::editor {

using automation::Argument;
using automation::Value;

std::shared_ptr<const Comparisons::Entries> Comparisons::entries(const Value& condition) {
    const std::u16string name = condition.isNull() ? std::u16string() : automation::toText(condition);
    if (const auto known = known_.find(name); known != known_.end())
        return known->second;
    const automation::ObjectRef service = dataService_;
    Value argument = condition;
    const automation::Collection offered(
        automation::toObjectOrNothing(automation::call(service, u"getCondition", Argument::byReference(argument))));
    auto entries = std::make_shared<Entries>();
    const std::int32_t count = offered ? offered.count() : 0;
    for (std::int32_t position = 1; position <= count; ++position)
        entries->push_back(
            std::make_shared<const conditions::CompareEntry>(conditions::CompareEntry::read(offered.record(position))));
    known_[name] = entries;
    return entries;
}

std::u16string comparisonList(const Comparisons::Entries& entries) {
    std::u16string list;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i != 0)
            list += u'\t';
        const std::u16string& caption = entries[i]->FName;
        list += caption.size() > support::captionWidth
                    ? caption
                    : support::PadItem(caption, automation::numberToText(static_cast<double>(i + 1)));
    }
    return list;
}

} // namespace orv::editor
