#include "conditions/PanelConditions.h"

#include "automation/Coercion.h"
#include "support/Letters.h"
#include "support/PaddedItem.h"

namespace orv::conditions {

void appendPanelConditions(std::u16string& extra, const ui::ControlArray<ui::Label>& lblFilter,
                           const ui::ControlArray<ui::ComboBox>& cmbFilter, FilterSqlSource& source) {
    for (int i = lblFilter.lowerBound(); i <= lblFilter.upperBound(); ++i) {
        const ui::Label& label = lblFilter(i);
        if (!label.visible())
            continue;
        // A copy: asking for the field may reach the host, and the panel may be rebuilt meanwhile.
        constexpr bool keyPart = true;
        const std::u16string condition(support::Trim(support::SplitLookupText(cmbFilter(i).text(), keyPart)));
        if (condition.empty() || support::equalIgnoringCase(condition, u"NONE"))
            continue;
        const std::int32_t position = automation::toInt32(automation::Value(label.tag()));
        const metadata::FieldRef field = source.fieldAt(position);
        if (!field)
            throw automation::AutomationError::runtime(automation::errorNumber::objectNotSet);
        if (!extra.empty())
            extra += u" AND ";
        extra += support::replaceAllIgnoringCase(condition, u"@Field", field->text(metadata::fieldKey::fieldNameExt));
    }
}

} // namespace orv::conditions
