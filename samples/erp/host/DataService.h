#pragma once

#include "automation/Views.h"
#include "erp/host/Component.h"

#include <map>
#include <string>

namespace orv::erp {

/// The data service of one class type: its records are copies of its own, since the control writes marks into them.
/// They are made on first use and thrown away when "ClassTypeID" is written.
class DataService final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override;

    /// Serves the class type from now on; error 5 when the host has none of that identifier.
    void serve(std::int32_t classTypeId);

  private:
    automation::Value getClassTypeId(automation::Arguments);
    void letClassTypeId(automation::Arguments arguments);
    automation::Value selectList(automation::Arguments);
    automation::Value classTypeEntry(automation::Arguments);
    automation::Value tableInfo(automation::Arguments);
    automation::Value classType(automation::Arguments);
    automation::Value typeList(automation::Arguments);
    automation::Value rsAllBase(automation::Arguments);
    automation::Value getCondition(automation::Arguments arguments);
    automation::Value getData(automation::Arguments arguments);

    const ClassTypeDescription& type() const;

    const ClassTypeDescription* type_ = nullptr;
    automation::Collection selectList_;
    automation::Collection classTypeEntry_;
    automation::Dictionary tableInfo_;
    automation::Dictionary classType_;
    automation::ObjectRef rsAllBase_;
    std::map<std::u16string, automation::Collection> conditions_;
};

} // namespace orv::erp
