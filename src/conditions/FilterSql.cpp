#include "conditions/FilterSql.h"

#include "automation/NumberText.h"
#include "conditions/ConditionSql.h"
#include "conditions/GridRows.h"
#include "conditions/PanelConditions.h"
#include "conditions/Refusal.h"
#include "support/Dates.h"
#include "support/Letters.h"

#include <cstdint>
#include <optional>

namespace orv::conditions {

namespace {

using automation::AutomationError;
using metadata::FieldRef;

/// Asks for today's date when it is first needed, and once only.
class SourceAskedOnce final : public FilterSqlSource {
  public:
    explicit SourceAskedOnce(FilterSqlSource& source) : source_(source) {}

    double date() override {
        if (!date_)
            date_ = support::datePart(source_.date());
        return *date_;
    }
    CurrentPeriod currentPeriod() override { return source_.currentPeriod(); }
    std::int32_t wageClassId() override { return source_.wageClassId(); }
    bool typeList() override { return source_.typeList(); }
    FieldRef fieldAt(std::int32_t position) override { return source_.fieldAt(position); }

  private:
    FilterSqlSource& source_;
    std::optional<double> date_;
};

void setContext(std::u16string& context, const FilterForm& form, int line, std::u16string_view caption) {
    context = form.lineWord;
    automation::appendInteger(context, line);
    context += u';';
    context += form.fieldWord;
    context += caption;
    context += u' ';
}

/// The row of a line that has a field; refused when it has none, or when the host has dropped the row in between.
const ConditionRow& rowOf(const std::vector<ConditionRow>& rows, int line) {
    const auto index = static_cast<std::size_t>(line - 1);
    if (index >= rows.size() || rows[index].FFieldKey.empty() || !rows[index].HDict)
        refuse(refusal::noField);
    return rows[index];
}

void appendRows(const FilterForm& form, const std::vector<ConditionRow>& rows, Today& today, std::u16string& context,
                std::u16string& strFilter) {
    const ui::Spread& grid = form.vsFilter;
    for (int line = 1; line <= grid.maxRows(); ++line) {
        if (!IsFilterRowUsed(grid, line))
            continue;
        setContext(context, form, line, {});
        const FieldRef field = rowOf(rows, line).HDict;
        setContext(context, form, line, field->text(metadata::fieldKey::caption));
        if (!rowOf(rows, line).FCompareIndex)
            refuse(refusal::noComparison);
        // Caption and date may be asked of the host, which may change the rows: no reference to one is held meanwhile.
        if (needsToday(rowOf(rows, line)))
            today.date();
        appendConditionSql(strFilter, rowOf(rows, line), today);
        strFilter += u"\r\n";
    }
}

/// Every line ends with the logic word that leads to the next one: the last line's is cut.
void cutTrailingLogic(std::u16string& strFilter) {
    constexpr std::size_t cut = 5; // "AND" or " OR" and the line break
    if (strFilter.ends_with(u" AND\r\n"))
        strFilter.resize(strFilter.size() - cut); // the blank before AND stays
    if (strFilter.ends_with(u" OR\r\n"))
        strFilter.resize(strFilter.size() - cut);
}

} // namespace

void checkBrackets(const ui::Spread& vsFilter) {
    std::int64_t balance = 0;
    for (int line = 1; line <= vsFilter.maxRows(); ++line) {
        balance += static_cast<std::int64_t>(support::Trim(vsFilter.text(gridColumn::left, line)).size());
        balance -= static_cast<std::int64_t>(support::Trim(vsFilter.text(gridColumn::right, line)).size());
        if (balance < 0)
            refuse(refusal::brackets);
    }
    if (balance != 0)
        refuse(refusal::brackets);
}

void appendFilterSql(const FilterForm& form, std::vector<ConditionRow>& rows, FilterSqlSource& source,
                     std::u16string& errorContext, std::u16string& strFilter) {
    errorContext.clear();
    const ui::Spread& grid = form.vsFilter;
    if (grid.maxRows() < 1 || grid.text(gridColumn::field, 1).empty())
        return;
    checkBrackets(grid);
    readRows(grid, rows);
    SourceAskedOnce asked(source);
    appendRows(form, rows, asked, errorContext, strFilter);
    cutTrailingLogic(strFilter);
    if (!strFilter.empty()) {
        strFilter.insert(0, u" (");
        strFilter += u") ";
    }

    std::u16string extra;
    appendPanelConditions(extra, form.lblFilter, form.cmbFilter, asked);
    appendQuickFilters(extra, form.classType, form.choice, asked);
    if (extra.empty())
        return;
    const bool alone = strFilter.empty();
    strFilter += alone ? u"(" : u" And (";
    strFilter += extra;
    strFilter += u')';
}

AutomationError withContext(const AutomationError& error, std::u16string_view errorContext) {
    std::u16string description(errorContext);
    description += error.description();
    return AutomationError(error.number(), error.source(), std::move(description));
}

} // namespace orv::conditions
