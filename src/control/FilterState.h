#pragma once

#include "automation/Trace.h"
#include "automation/TracedFactory.h"
#include "conditions/FilterSql.h"
#include "control/Filter.h"
#include "control/Geometry.h"
#include "control/UserProperties.h"
#include "editor/AccountCheck.h"
#include "editor/Comparisons.h"
#include "editor/ConditionGrid.h"
#include "editor/ValueLookUp.h"
#include "metadata/FieldCatalogue.h"
#include "schemes/SchemeManager.h"
#include "sortcols/ColumnGrid.h"
#include "sortcols/SortGrid.h"
#include "support/Localisation.h"

namespace orv::control {

/// What one control instance keeps, and what its parts ask of it.
struct FilterState final : editor::ConditionGridHost,
                           editor::AccountCheckHost,
                           editor::LookUpHost,
                           schemes::SchemeHost {
    FilterState(Filter& filter, automation::ObjectFactory& componentFactory, ui::Prompts& userPrompts);

    // What the condition grid asks.
    std::shared_ptr<metadata::FieldCatalogue> catalogue() override;
    std::shared_ptr<editor::Comparisons> comparisons() override;
    bool onSelectedPage(const metadata::FieldRecord& field) override;
    editor::ValueListSource valueListSource() override;
    editor::DecimalPlaces decimalPlaces() override;
    ui::Messages& messages() override { return messageBoxes; }
    std::shared_ptr<automation::Trace> currentTrace() override { return trace; }
    void log(std::u16string_view text) override;

    // What the account check and the look-ups ask.
    std::int32_t dataServiceClassTypeId() override;
    std::u16string propsString() override { return userProperties.text(); }
    automation::ObjectFactory& components() override { return factory; }
    const support::Localisation& texts() override { return localisation; }
    automation::ObjectRef currentDataService() override { return dataService; }
    automation::Dictionary currentTableInfo() override { return tableInfo; }
    automation::ObjectRef controlObject() override;
    std::u16string itemNaming() override;
    std::optional<std::u16string> conditionValue(std::u16string_view fieldKey) override;

    // What scheme management asks.
    bool schemesInUse() override { return showScheme; }
    void captureEntry(const automation::Dictionary& entry) override;
    void applyEntry(const automation::Dictionary& entry) override;
    void clearGrids() override;
    void showDialog(schemes::SaveSchemeForm& form) override;

    /// The "FID" of the current class type record; 0 without one.
    std::int32_t classTypeId() override;
    /// An entry of the control settings; `fallback` without settings or entry.
    automation::Value setting(std::u16string_view key, automation::Value fallback) const;
    /// The two key maps, made on first use.
    void provideKeyMaps();

    /// Has the grids take what the user is typing, before they are read or changed. False when a cell refuses it: its
    /// old content counts then, and editing goes on.
    bool finishEdits();

    /// Takes a data service: keeps it, reads its four tables in order, and drops what was known of the one before.
    void takeDataService(automation::ObjectRef service);
    /// Releases every object of the host; grids and texts stay.
    void releaseObjects();

    /// Begins, keeps or ends the trace, as the settings have it: "Trace" names the file, "TraceMask" hides values. A
    /// file that cannot be opened is told to the host's diagnostics, and nothing else happens.
    void followTraceSettings();
    /// What stands in the value cells of the condition grid, whole and in its comma-separated pieces.
    std::vector<std::u16string> typedValues() const;

    Filter& owner;
    /// Null while off. Before the parts: they may call the host while they are made and destroyed.
    std::shared_ptr<automation::Trace> trace;
    automation::TracedFactory tracedFactory;
    automation::ObjectFactory& factory = tracedFactory;
    ui::Prompts& prompts;
    UserProperties userProperties;
    support::Localisation localisation;
    ui::Messages messageBoxes{prompts, localisation};
    std::shared_ptr<FilterControls> controls = std::make_shared<FilterControls>();
    editor::ConditionGrid conditionGrid;
    sortcols::SortGrid sortGrid;
    sortcols::ColumnGrid columnGrid;
    editor::AccountCheck accountCheck;
    editor::ValueLookUp valueLookUp;
    schemes::SchemeManager schemeManager;

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

    ControlSize size;
    bool optionBoxes = false; ///< the class type has quick filters
    /// Set while a page box's click is handled, and while a class type or a scheme is being loaded: box changes made
    /// by code then change nothing else.
    bool handlingPageClick = false;
    bool loadingPages = false;
    bool initializing = false;

    /// Gives the control itself as an automation object; set by the shell.
    std::function<automation::ObjectRef()> selfObject;
    std::vector<ui::Subscription> subscriptions;
    /// Those of the page boxes, which come and go with the class type.
    std::vector<ui::Subscription> pageSubscriptions;

  private:
    std::shared_ptr<metadata::FieldCatalogue> catalogue_;
    std::shared_ptr<editor::Comparisons> comparisons_;
    std::u16string tracePath_;
    automation::TraceMasking traceMasking_ = automation::TraceMasking::showsValues;
};

} // namespace orv::control
