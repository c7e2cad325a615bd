#pragma once

#include "automation/ObjectFactory.h"
#include "automation/Views.h"
#include "schemes/ProfileStorage.h"
#include "schemes/SaveSchemeForm.h"
#include "schemes/SchemeNames.h"
#include "ui/ListView.h"
#include "ui/Messages.h"
#include "ui/Toolbar.h"

#include <cstdint>
#include <optional>
#include <string>

namespace orv::schemes {

/// What scheme management asks of the control.
class SchemeHost {
  public:
    virtual ~SchemeHost() = default;
    virtual automation::ObjectFactory& components() = 0;
    virtual ui::Messages& messages() = 0;
    virtual const support::Localisation& texts() = 0;
    virtual std::u16string propsString() = 0;
    virtual std::int32_t classTypeId() = 0;
    /// Whether schemes are in use.
    virtual bool schemesInUse() = 0;
    /// Writes the present settings of the grids and boxes into a scheme entry record.
    virtual void captureEntry(const automation::Dictionary& entry) = 0;
    /// Lays a scheme entry record on the grids and boxes; raises what fails.
    virtual void applyEntry(const automation::Dictionary& entry) = 0;
    /// Empties the condition grid and the sort grid.
    virtual void clearGrids() = 0;
    /// Shows the save dialog, its captions in the user's language.
    virtual void showDialog(SaveSchemeForm& form) = 0;
    virtual void log(std::u16string_view text) = 0;
};

enum class SaveMode : bool { silent, interactive };

/// The scheme list `lvwProject` and the toolbar `tlbProject`: what they hold and what may be done with schemes.
class SchemeManager {
  public:
    /// All must outlive the manager.
    SchemeManager(ui::ListView& lvwProject, SchemeHost& host);

    /// Fills the list and selects the scheme used last, else the default scheme, else the first. Failures of the
    /// profile components are logged: the list then has no items, or no scheme counts as used last.
    void fillList();
    /// Loads the selected scheme and lays it on the grids; nothing without a selection. A scheme that cannot be loaded
    /// is logged; raises what fails on the grids.
    void applySelected();
    /// Whether a scheme other than the default one is selected.
    bool isUserSchemeSelected() const;
    /// Keeps an entry record as the current one and lays it on the grids.
    void applyEntry(const automation::Dictionary& entry);

    /// What the toolbar's buttons do, by key.
    void toolbarClick(std::u16string_view key);
    /// Saves by the ownership and overwrite rules.
    void save(SaveMode mode, std::int32_t status);
    void deleteSelected();
    /// Stores the selected scheme as the one used last; False without a selection, or when it could not be stored.
    bool saveLastUsed();

    /// A new header record for the selected scheme.
    automation::Dictionary headerRecord();
    /// A new entry record of the present settings.
    automation::Dictionary entryRecord();
    /// Lets the current records go.
    void release();

  private:
    struct Target {
        std::u16string name; ///< stored name
        SchemeTag tag;       ///< empty identifier for a new scheme
        std::optional<std::int32_t> dialogShare;
    };
    Target selectedTarget() const;
    std::optional<Target> askForTarget();
    bool mayOverwriteListed(const std::u16string& name);
    void saveTo(const Target& target, SaveMode mode, std::int32_t status);
    bool isCurrentUserName(std::u16string_view name);
    bool isOwn(const SchemeTag& tag);
    automation::Dictionary makeHeader(const Target& target, std::int32_t status);
    void showSaved(const Target& target);
    int findByText(std::u16string_view text) const;
    void selectLastUsed(std::int32_t classTypeId);
    void selectDefault();

    ui::ListView& list_;
    SchemeHost& host_;
    ProfileStorage storage_;
    automation::Dictionary header_;
    automation::Dictionary entry_;
};

} // namespace orv::schemes
