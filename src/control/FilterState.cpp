#include "control/FilterState.h"

#include "automation/Coercion.h"
#include "metadata/PageSelection.h"

namespace orv::control {

using automation::Collection;
using automation::Dictionary;
using automation::ObjectRef;
using automation::Value;

FilterState::FilterState(Filter& filter, automation::ObjectFactory& componentFactory, ui::Prompts& userPrompts)
    : owner(filter), factory(componentFactory), prompts(userPrompts), userProperties(componentFactory),
      localisation(componentFactory, [this] { return userProperties.text(); }),
      conditionGrid(controls->vsFilter, *this), sortGrid(controls->vsOrder),
      columnGrid(controls->vsHideColumn, [this](std::u16string_view text) { messages().warn(text); }) {}

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

void FilterState::provideKeyMaps() {
    if (!allKeys)
        allKeys = automation::newRecord(factory);
    if (!idKeys)
        idKeys = automation::newRecord(factory);
}

void FilterState::takeDataService(ObjectRef service) {
    dataService = service;
    catalogue_.reset();
    comparisons_.reset();
    allKeys = Dictionary();
    idKeys = Dictionary();
    // A failing property ends the hand-over; what was read before it stays.
    const auto read = [&service](std::u16string_view name) {
        return automation::toObjectOrNothing(automation::get(service, name));
    };
    selectList = Collection(read(u"SelectList"));
    classTypeEntries = Collection(read(u"ClassTypeEntry"));
    tableInfo = Dictionary(read(u"TableInfo"));
    classType = Dictionary(read(u"ClassType"));
    // Whatever was built while the host answered saw a mixture of tables.
    catalogue_.reset();
    comparisons_.reset();
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
}

} // namespace orv::control
