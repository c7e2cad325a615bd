#include "control/FilterResults.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"

namespace orv::control {

using automation::AutomationError;
using automation::ObjectRef;

namespace {

/// Answers what the filter text needs from the control and, through it, from the host.
class ControlAsSource final : public conditions::FilterSqlSource {
  public:
    explicit ControlAsSource(FilterState& state) : state_(state) {}

    double date() override { return state_.owner.GetToday().days; }

    conditions::CurrentPeriod currentPeriod() override {
        std::int32_t year = 0;
        std::int32_t period = 0;
        automation::Date start;
        automation::Date end;
        state_.owner.GetCurPeriod(year, period, start, end);
        return {period, start.days, end.days};
    }

    std::int32_t wageClassId() override {
        const ObjectRef wages = state_.factory.create(u"ORVPASetting.PAview");
        return automation::toInt32(automation::call(wages, u"GetClsIDInfo"));
    }

    bool typeList() override {
        const ObjectRef service = state_.dataService;
        return automation::toBoolean(automation::get(service, u"TypeList"));
    }

    metadata::FieldRef fieldAt(std::int32_t position) override {
        const auto catalogue = state_.catalogue();
        return catalogue->field(position);
    }

  private:
    FilterState& state_;
};

/// The error with the line that it belongs to. Messages of the control's own are translated, the host's are not.
AutomationError inUsersLanguage(const AutomationError& error, const FilterState& state) {
    const bool own = error.source() == automation::controlSource;
    return conditions::withContext(
        own ? AutomationError(error.number(), error.source(), state.localisation.TranslateText(error.description()))
            : error,
        state.errorContext);
}

} // namespace

bool filterSql(FilterState& state, std::u16string& strFilter, bool raiseErrors) {
    const auto rows = state.conditionGrid.rows();
    FilterControls& controls = *state.controls;
    const conditions::FilterForm form{
        controls.vsFilter,
        controls.lblFilter,
        controls.cmbFilter,
        controls.cboClassType.text(),
        {controls.cboTime.listIndex(), controls.cboCheck.listIndex(), controls.cboPost.listIndex()},
        state.localisation.TranslateText(u"行："),
        u" " + state.localisation.TranslateText(u"字段：")};
    ControlAsSource source(state);
    try {
        conditions::appendFilterSql(form, *rows, source, state.errorContext, strFilter);
        return true;
    } catch (const AutomationError& error) {
        const AutomationError told = inUsersLanguage(error, state);
        if (raiseErrors)
            throw told;
        state.messages().show(told.description(), ui::messageStyle::exclamation);
        return false;
    }
}

} // namespace orv::control
