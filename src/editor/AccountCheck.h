#pragma once

#include "automation/ObjectFactory.h"
#include "editor/ConditionGrid.h"

namespace orv::editor {

/// What the check asks of the control, beyond what the condition grid asks.
class AccountCheckHost {
  public:
    virtual ~AccountCheckHost() = default;
    /// The data service's "ClassTypeID"; 0 without a service.
    virtual std::int32_t dataServiceClassTypeId() = 0;
    virtual std::u16string propsString() = 0;
    virtual ui::Messages& messages() = 0;
};

/// Checks the user's rights to an account that was entered as a value: without them the value is emptied. An unknown
/// account is left alone.
class AccountCheck {
  public:
    /// All must outlive the check.
    AccountCheck(ui::Spread& vsFilter, ConditionGrid& conditions, automation::ObjectFactory& factory,
                 AccountCheckHost& host)
        : grid_(vsFilter), conditions_(conditions), factory_(factory), host_(host) {}

    /// The user has edited a cell. Raises what the account service raises.
    void cellChanged(int column, int row);
    /// Lets the account service go; the next check creates it again.
    void release() { service_.reset(); }

  private:
    ui::Spread& grid_;
    ConditionGrid& conditions_;
    automation::ObjectFactory& factory_;
    AccountCheckHost& host_;
    automation::ObjectRef service_;
};

} // namespace orv::editor
