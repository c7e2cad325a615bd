#pragma once

#include "conditions/FilterSql.h"
#include "control/Filter.h"
#include "control/UserProperties.h"
#include "editor/Comparisons.h"
#include "editor/ConditionGrid.h"
#include "metadata/FieldCatalogue.h"
#include "sortcols/ColumnGrid.h"
#include "sortcols/SortGrid.h"
#include "support/Localisation.h"

namespace orv::control {

/// What one control instance keeps, and what its parts ask of it.
struct FilterState final : editor::ConditionGridHost {
    FilterState(Filter& filter, automation::ObjectFactory& componentFactory, ui::Prompts& userPrompts);

    // What the condition grid asks.
    std::shared_ptr<metadata::FieldCatalogue> catalogue() override;
    std::shared_ptr<editor::Comparisons> comparisons() override;
    bool onSelectedPage(const metadata::FieldRecord& field) override;
    editor::ValueListSource valueListSource() override;
    editor::DecimalPlaces decimalPlaces() override;
    ui::Messages& messages() override { return messages_; }
    void log(std::u16string_view text) override;

    /// The "FID" of the current class type record; 0 without one.
    std::int32_t classTypeId();
    /// An entry of the control settings; `fallback` without settings or entry.
    automation::Value setting(std::u16string_view key, automation::Value fallback) const;
    /// The two key maps, made on first use.
    void provideKeyMaps();

    /// Takes a data service: keeps it, reads its four tables in order, and drops what was known of the one before.
    void takeDataService(automation::ObjectRef service);
    /// Releases every object of the host; grids and texts stay.
    void releaseObjects();

    Filter& owner;
    automation::ObjectFactory& factory;
    ui::Prompts& prompts;
    UserProperties userProperties;
    support::Localisation localisation;
    std::shared_ptr<FilterControls> controls = std::make_shared<FilterControls>();
    editor::ConditionGrid conditionGrid;
    sortcols::SortGrid sortGrid;
    sortcols::ColumnGrid columnGrid;

    bool m_JCType = false;
    bool showScheme = false;
    std::int32_t style = 0;
    automation::ObjectRef dataService;
    automation::Collection selectList;
    automation::Collection classTypeEntries;
    automation::Dictionary tableInfo;
    automation::Dictionary classType;
    automation::Collection classTypeList;
    automation::Dictionary hiddenConditions;
    automation::Dictionary settings;
    automation::Collection header;
    automation::Dictionary allKeys;
    automation::Dictionary idKeys;
    std::u16string selectedPages;
    std::u16string errorContext;

    ui::Subscription onClassTypeClick;
    ui::Subscription onTabClick;

  private:
    ui::Messages messages_{prompts, localisation};
    std::shared_ptr<metadata::FieldCatalogue> catalogue_;
    std::shared_ptr<editor::Comparisons> comparisons_;
};

} // namespace orv::control
