#include "erp/host/LookUpService.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "erp/host/BillList.h"
#include "erp/host/DisplayText.h"
#include "erp/host/MemberObject.h"
#include "erp/host/TextTable.h"
#include "support/Letters.h"
#include "support/PairList.h"

#include <algorithm>

namespace orv::erp {

using automation::Arguments;
using automation::AutomationError;
using automation::Dictionary;
using automation::ObjectRef;
using automation::Value;

namespace {

/// Bills are shown by the first columns of their list.
constexpr std::size_t shownBillColumns = 6;
constexpr std::u16string_view nameColumn = u"FName";

class ChosenRecord final : public MemberObject {
  public:
    explicit ChosenRecord(Dictionary columns) : columns_(std::move(columns)) {}
    std::span<const Member> members() const override {
        static constexpr Member table[] = {asDefault(readOnly<&ChosenRecord::properties>(u"Properties", 1, 1))};
        return table;
    }
    std::u16string_view typeName() const override { return u"ChosenRecord"; }

  private:
    Value properties(Arguments arguments) {
        return columns_.getValue(automation::toText(arguments[0].value()), std::u16string());
    }
    Dictionary columns_;
};

/// One row as it is; of several the texts, with commas between. Null for none.
ObjectRef recordOf(const ResultSet& found, std::span<const std::size_t> chosen) {
    if (chosen.empty())
        return nullptr;
    const Dictionary columns = automation::makeDictionary();
    for (std::size_t column = 0; column < found.columns.size(); ++column) {
        if (chosen.size() == 1) {
            columns.set(found.columns[column], found.rows[chosen[0]][column]);
            continue;
        }
        std::u16string texts;
        for (const std::size_t row : chosen)
            texts += (texts.empty() ? u"" : u",") + displayText(found.rows[row][column]);
        columns.set(found.columns[column], texts);
    }
    return std::make_shared<ChosenRecord>(columns);
}

ObjectRef firstRecord(const ResultSet& found) {
    static constexpr std::size_t first[] = {0};
    return found.rows.empty() ? nullptr : recordOf(found, first);
}

std::u16string translated(const HostState& state, std::u16string_view text) {
    return TextTable::list().translate(text, languageOf(state));
}

std::size_t columnOf(const ResultSet& found, std::u16string_view name) {
    const auto at = std::ranges::find_if(found.columns,
                                         [&](const auto& column) { return support::equalIgnoringCase(column, name); });
    return static_cast<std::size_t>(at - found.columns.begin());
}

/// The user's choice among the rows found; columns that they lack are not shown.
ObjectRef chooseAtWindow(HostState& state, const ResultSet& found, const std::u16string& title,
                         const std::vector<LookUpColumn>& columns, bool isMultiple) {
    LookUpOffer offer;
    offer.title = translated(state, title);
    offer.language = languageOf(state);
    offer.isMultiple = isMultiple;
    std::vector<std::size_t> places;
    for (const LookUpColumn& column : columns) {
        const std::size_t place = columnOf(found, column.name);
        if (place == found.columns.size())
            continue;
        places.push_back(place);
        offer.columns.push_back({column.name, translated(state, column.caption)});
    }
    for (const auto& row : found.rows) {
        auto& texts = offer.rows.emplace_back();
        for (const std::size_t place : places)
            texts.push_back(displayText(row[place]));
    }
    // The window pumps messages: whoever replaces the dialog meanwhile must not end this one.
    const std::shared_ptr<LookUpDialog> dialog = state.lookUpDialog;
    const std::vector<std::size_t> chosen = dialog->choose(offer);
    return recordOf(found, chosen);
}

std::vector<LookUpColumn> columnsOf(const LookUpClass& place) {
    if (!place.columns.empty())
        return place.columns;
    std::vector<LookUpColumn> columns{{place.numberColumn, u"代码"}};
    if (place.numberColumn != nameColumn)
        columns.push_back({std::u16string(nameColumn), u"名称"});
    return columns;
}

} // namespace

ObjectRef chooseBaseData(HostState& state, const BaseDataLookUp& lookUp) {
    const std::optional<LookUpAnswer> answer = state.lookUps.take();
    if (answer ? answer->cancelled : !state.lookUpDialog)
        return nullptr;
    if (answer && answer->properties)
        return std::make_shared<ChosenRecord>(answer->properties);
    const LookUpClass* place = state.description.findLookUpClass(lookUp.lookUpClass);
    if (place == nullptr)
        throw AutomationError(automation::errorNumber::invalidCall, u"ORVEBCGLView.GLView",
                              u"没有基础资料类别 " + automation::toText(lookUp.lookUpClass));
    std::u16string conditions;
    const auto require = [&conditions](const std::u16string& condition) {
        if (!support::Trim(condition).empty())
            conditions += (conditions.empty() ? u" WHERE (" : u" AND (") + condition + u")";
    };
    require(place->filter);
    std::u16string sql = u"SELECT * FROM " + place->table;
    if (answer) {
        require(place->numberColumn + u"=?");
        const Value number[] = {answer->number};
        return firstRecord(state.database.query(sql + conditions, number));
    }
    require(lookUp.filter);
    if (const double group = automation::Val(lookUp.unitGroup); group != 0)
        require(u"FUnitGroupID=" + automation::numberToText(group));
    sql += conditions + u" ORDER BY " + place->numberColumn;
    const std::u16string title = place->name.empty() ? u"基础资料" : place->name;
    return chooseAtWindow(state, state.database.query(sql), title, columnsOf(*place), lookUp.isMultiple);
}

ObjectRef chooseBill(HostState& state, std::int32_t classTypeId, const std::u16string& filter) {
    const std::optional<LookUpAnswer> answer = state.lookUps.take();
    if (answer ? answer->cancelled : !state.lookUpDialog)
        return nullptr;
    if (answer && answer->properties)
        return std::make_shared<ChosenRecord>(answer->properties);
    const auto* type = state.description.findClassType(classTypeId);
    if (type == nullptr || !type->list)
        throw AutomationError(automation::errorNumber::invalidCall, u"ORVClassLookUp.SingleBillLookUp",
                              u"没有单据类型 " + automation::toText(classTypeId));
    const std::u16string& key = type->list->key;
    if (answer) {
        const Value number[] = {answer->number};
        return firstRecord(state.database.query(u"SELECT " + key + u" AS FNumber, " + key + u" AS FBillNo FROM " +
                                                    type->list->from + u" WHERE " + key + u"=?",
                                                number));
    }
    std::vector<BillColumn> columns = usualColumns(*type, shownBillColumns);
    std::vector<LookUpColumn> shown;
    for (const BillColumn& column : columns)
        shown.push_back({column.key, column.caption});
    for (const char16_t* name : {u"FNumber", u"FBillNo"})
        if (std::ranges::find(columns, name, &BillColumn::key) == columns.end())
            columns.push_back({.key = name, .expression = key});
    const BillList bills = runBillList(state.database, *type, columns, {filter, key, u""});
    const std::u16string title = automation::toText(type->record.getValue(u"FName", u"单据"));
    return chooseAtWindow(state, bills.records, title, shown, false);
}

} // namespace orv::erp
