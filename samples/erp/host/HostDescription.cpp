#include "erp/host/HostDescription.h"

#include "erp/host/DescriptionReader.h"

#include <algorithm>

namespace orv::erp {

void HostDescription::add(std::string_view json, std::string_view name) {
    DescriptionReader(*this, name).read(json);
}

const ClassTypeDescription* HostDescription::findClassType(std::int32_t id) const noexcept {
    const auto found = std::ranges::find(classTypes_, id, &ClassTypeDescription::id);
    return found == classTypes_.end() ? nullptr : &*found;
}

const std::vector<automation::Dictionary>* HostDescription::findConditions(std::u16string_view set) const {
    const auto found = conditions_.find(set);
    return found == conditions_.end() ? nullptr : &found->second;
}

const LookUpClass* HostDescription::findLookUpClass(std::int32_t id) const noexcept {
    const auto found = std::ranges::find(lookUpClasses_, id, &LookUpClass::id);
    return found == lookUpClasses_.end() ? nullptr : &*found;
}

bool HostDescription::mayUseAccount(std::int32_t userId, std::u16string_view accountNumber) const {
    return std::ranges::none_of(
        deniedAccounts_, [&](const auto& denied) { return denied.first == userId && denied.second == accountNumber; });
}

} // namespace orv::erp
