#pragma once

#include "automation/ObjectFactory.h"
#include "automation/Views.h"
#include "metadata/FieldRecord.h"
#include "ui/Messages.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace orv::editor {

/// What a look-up asks of the control.
class LookUpHost {
  public:
    virtual ~LookUpHost() = default;
    virtual automation::ObjectFactory& components() = 0;
    virtual ui::Messages& messages() = 0;
    virtual const support::Localisation& texts() = 0;
    virtual automation::ObjectRef currentDataService() = 0;
    virtual automation::Dictionary currentTableInfo() = 0;
    /// The control itself as an automation object; null where there is none.
    virtual automation::ObjectRef controlObject() = 0;
    /// The host's name of items: 物料 or 商品.
    virtual std::u16string itemNaming() = 0;
    /// The text of a condition row's value by the field's key, "" without one; used to resolve item classes.
    virtual std::optional<std::u16string> conditionValue(std::u16string_view fieldKey) = 0;
};

/// What the user chose in a look-up dialog.
struct LookUpChoice {
    std::u16string key;     ///< stored key
    std::u16string display; ///< text shown; the key itself where the field returns keys
};

/// Whether a field's `FLookUpType` names a dialog. Fields without one may still have that of a field of their page.
bool opensDialog(double lookUpKind);

/// Lets the user choose the value of a condition in the dialog that its field's `FLookUpType` names.
class LookUp {
  public:
    /// The host must outlive the look-up.
    explicit LookUp(LookUpHost& host) : host_(host) {}

    /// Runs the look-up for a field of the catalogue; works on a full copy of its record. What to write into the
    /// value cell, or nothing: cancelled, refused with a message, or a field without look-up.
    std::optional<LookUpChoice> choose(const metadata::FieldRecord& source);

  private:
    std::optional<LookUpChoice> chooseByKind(const automation::Dictionary& field);
    std::optional<LookUpChoice> baseData(const automation::Dictionary& field, std::int32_t classId);
    std::optional<LookUpChoice> auxiliaryData(const automation::Dictionary& field);
    std::optional<LookUpChoice> bill(const automation::Dictionary& field);
    std::optional<LookUpChoice> account(const automation::Dictionary& field);
    std::optional<std::int32_t> itemClass(const automation::Dictionary& field);
    std::u16string itemFilter(const automation::Dictionary& field);

    LookUpHost& host_;
};

/// The look-up of a field that has none of its own: a copy of the last page field of the same `FFieldName` that is
/// saved, with the look-up that the catalogue of base-data fields gives for it; nothing when there is no such field.
automation::Dictionary resolveThroughPages(const automation::Dictionary& field, const automation::Dictionary& tableInfo,
                                           const automation::Recordset& rsAllBase);

} // namespace orv::editor
