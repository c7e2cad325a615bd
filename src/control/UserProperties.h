#pragma once

#include "automation/ObjectFactory.h"

#include <string>

namespace orv::control {

/// The logged-on user's context text, the first argument of every profile and class-information call. Asked of the
/// shared properties component once and kept when it is not empty.
class UserProperties {
  public:
    explicit UserProperties(automation::ObjectFactory& factory) : factory_(factory) {}
    /// Raises what the component raises.
    const std::u16string& text();

  private:
    automation::ObjectFactory& factory_;
    std::u16string cached_;
};

} // namespace orv::control
