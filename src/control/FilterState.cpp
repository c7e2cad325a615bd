#include "control/FilterState.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/TracedCall.h"
#include "control/LocalizeControls.h"
#include "control/SchemeEntry.h"
#include "metadata/PageSelection.h"
#include "support/Letters.h"
#include "support/PaddedItem.h"
#include "support/Pieces.h"
#include "support/PropsString.h"

namespace orv::control {

namespace {

/// The name of the trace file; "" for what names none.
std::u16string traceFile(const automation::Value& setting) {
    return setting.isText() ? automation::toText(setting) : std::u16string();
}

/// A setting that hides values: what cannot be read as a Boolean counts as True, for it was meant to hide them.
bool readsAsTrue(const automation::Value& setting) {
    if (setting.isEmpty() || setting.isNull() || setting == automation::Value(u""))
        return false;
    try {
        return automation::toBoolean(setting);
    } catch (const automation::AutomationError&) {
        return true;
    }
}

} // namespace

using automation::Collection;
using automation::Dictionary;
using automation::ObjectRef;
using automation::Value;

FilterState::FilterState(Filter& filter, automation::ObjectFactory& componentFactory, ui::Prompts& userPrompts)
    : owner(filter), tracedFactory(componentFactory), prompts(userPrompts), userProperties(factory),
      localisation(factory, [this] { return userProperties.text(); }), conditionGrid(controls->vsFilter, *this),
      sortGrid(controls->vsOrder),
      columnGrid(controls->vsHideColumn,
                 [this](std::u16string_view text) {
                     automation::tracedEvent(trace, u"vsHideColumn.leaveCell", [&] { messages().warn(text); });
                 }),
      accountCheck(controls->vsFilter, conditionGrid, factory, *this),
      valueLookUp(controls->vsFilter, conditionGrid, *this), schemeManager(controls->lvwProject, *this) {}

std::shared_ptr<metadata::FieldCatalogue> FilterState::catalogue() {
    if (!catalogue_)
        catalogue_ = std::make_shared<metadata::FieldCatalogue>(selectList, tableInfo);
    return catalogue_;
}

std::shared_ptr<editor::Comparisons> FilterState::comparisons() {
    if (!comparisons_ && dataService)
        comparisons_ = std::make_shared<editor::Comparisons>(dataService);
    return comparisons_;
}

bool FilterState::onSelectedPage(const metadata::FieldRecord& field) {
    return metadata::PageSelection(selectedPages).contains(field.text(metadata::fieldKey::page));
}

editor::ValueListSource FilterState::valueListSource() {
    return {dataService, factory, userProperties.text()};
}

editor::DecimalPlaces FilterState::decimalPlaces() {
    const editor::DecimalPlaces usual;
    const auto places = [this](std::u16string_view key, int fallback) {
        return automation::toInt32(setting(key, std::int32_t{fallback}));
    };
    return {places(u"QtyDecimal", usual.quantity), places(u"PriceDecimal", usual.price),
            places(u"AmountDecimal", usual.amount)};
}

void FilterState::log(std::u16string_view text) {
    if (trace)
        trace->note(u"log", u"", text);
    prompts.log(std::u16string(text));
}

std::int32_t FilterState::classTypeId() {
    return classType ? automation::toInt32(classType.getValue(u"FID", std::int32_t{0})) : 0;
}

Value FilterState::setting(std::u16string_view key, Value fallback) const {
    // A copy of the view: the host may replace the settings while it answers.
    const Dictionary current = settings;
    return current ? current.getValue(key, std::move(fallback)) : fallback;
}

std::int32_t FilterState::dataServiceClassTypeId() {
    const ObjectRef service = dataService;
    return service ? automation::toInt32(automation::get(service, u"ClassTypeID")) : 0;
}

ObjectRef FilterState::controlObject() {
    return selfObject ? selfObject() : nullptr;
}

std::u16string FilterState::itemNaming() {
    const support::PropsString props(userProperties.text());
    const std::u16string_view naming = props.value(u"ItemNaming");
    return std::u16string(naming.empty() ? u"物料" : naming);
}

std::optional<std::u16string> FilterState::conditionValue(std::u16string_view fieldKey) {
    const auto rows = conditionGrid.rows();
    for (std::size_t i = 0; i < rows->size(); ++i) {
        if (!fieldKey.empty() && (*rows)[i].FFieldKey == fieldKey) {
            const std::u16string& text = controls->vsFilter.text(editor::column::value, static_cast<int>(i) + 1);
            const std::u16string_view key = support::SplitLookupText(text, true);
            return std::u16string(key.empty() ? std::u16string_view(text) : key);
        }
    }
    return std::nullopt;
}

void FilterState::captureEntry(const Dictionary& entry) {
    captureSchemeEntry(*this, entry);
}

void FilterState::applyEntry(const Dictionary& entry) {
    applySchemeEntry(*this, entry);
}

void FilterState::clearGrids() {
    conditionGrid.clearAll();
    sortGrid.clearAll();
}

void FilterState::showDialog(schemes::SaveSchemeForm& form) {
    localizeControls(*this, form.controls());
    prompts.showModal(form);
}

void FilterState::provideKeyMaps() {
    if (!allKeys)
        allKeys = automation::newRecord(factory);
    if (!idKeys)
        idKeys = automation::newRecord(factory);
}

bool FilterState::finishEdits() {
    bool finished = true;
    for (ui::Spread* grid : {&controls->vsFilter, &controls->vsOrder, &controls->vsHideColumn})
        finished = grid->finishEdit() && finished;
    return finished;
}

void FilterState::takeDataService(ObjectRef service) {
    ObjectRef(service).swap(dataService); // the old service may call back when it goes, and finds the new one
    catalogue_.reset();
    comparisons_.reset();
    allKeys = Dictionary();
    idKeys = Dictionary();
    // A failing property ends the hand-over; what was read before it stays. Whatever was built while the host answered
    // saw a mixture of tables.
    const auto read = [&](std::u16string_view name) {
        ObjectRef table = automation::toObjectOrNothing(automation::get(service, name));
        catalogue_.reset();
        comparisons_.reset();
        return table;
    };
    selectList = Collection(read(u"SelectList"));
    classTypeEntries = Collection(read(u"ClassTypeEntry"));
    tableInfo = Dictionary(read(u"TableInfo"));
    classType = Dictionary(read(u"ClassType"));
}

void FilterState::followTraceSettings() {
    std::u16string path;
    auto masking = automation::TraceMasking::showsValues;
    try {
        path = traceFile(setting(u"Trace", Value()));
        if (!path.empty() && readsAsTrue(setting(u"TraceMask", Value())))
            masking = automation::TraceMasking::hidesValues;
    } catch (const automation::AutomationError& error) {
        path.clear();
        log(error.description());
    }
    if (path == tracePath_ && masking == traceMasking_ && (trace || path.empty()))
        return;
    tracePath_ = path;
    traceMasking_ = masking;
    trace = path.empty() ? nullptr : automation::Trace::open(path, masking);
    if (!path.empty() && !trace)
        log(u"跟踪文件无法打开：" + path);
}

std::vector<std::u16string> FilterState::typedValues() const {
    std::vector<std::u16string> values;
    const ui::Spread& grid = controls->vsFilter;
    for (int row = 1; row <= grid.maxRows(); ++row) {
        const std::u16string& text = grid.text(editor::column::value, row);
        values.emplace_back(support::Trim(text));
        values.emplace_back(support::Trim(support::SplitLookupText(text, false)));
        support::PieceReader pieces(text, u",");
        for (std::u16string_view piece; pieces.next(piece);)
            values.emplace_back(support::Trim(piece));
    }
    return values;
}

void FilterState::releaseObjects() {
    // Into locals first: an object that goes may call back into a control that has already let go of all of them.
    const auto oldService = std::exchange(dataService, nullptr);
    const Collection oldCollections[] = {std::exchange(selectList, {}), std::exchange(classTypeEntries, {}),
                                         std::exchange(classTypeList, {}), std::exchange(header, {})};
    const Dictionary oldDictionaries[] = {std::exchange(tableInfo, {}),        std::exchange(classType, {}),
                                          std::exchange(hiddenConditions, {}), std::exchange(settings, {}),
                                          std::exchange(allKeys, {}),          std::exchange(idKeys, {})};
    const auto oldCatalogue = std::exchange(catalogue_, nullptr);
    const auto oldComparisons = std::exchange(comparisons_, nullptr);
    const auto oldRows = conditionGrid.rows();
    conditionGrid.forgetRows();
    accountCheck.release();
    schemeManager.release();
}

} // namespace orv::control
