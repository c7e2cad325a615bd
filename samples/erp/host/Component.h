#pragma once

#include "erp/host/HostState.h"
#include "erp/host/MemberObject.h"

#include <string>
#include <string_view>

namespace orv::erp {

/// A middle-tier component: an object with a ProgID whose calls are recorded and can be made to fail.
class Component : public MemberObject {
  public:
    Component(HostStateRef state, std::u16string_view progId) : state_(std::move(state)), progId_(progId) {}

    std::u16string_view typeName() const override { return progId_; }

  protected:
    void beforeCall(const Member& member, automation::InvokeKind kind, automation::Arguments arguments) override {
        state_->log.note(progId_, member.name, kind, arguments);
    }
    HostState& state() const noexcept { return *state_; }
    const HostStateRef& sharedState() const noexcept { return state_; }

  private:
    HostStateRef state_;
    std::u16string_view progId_; ///< a constant of the component table
};

} // namespace orv::erp
