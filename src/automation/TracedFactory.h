#pragma once

#include "automation/ObjectFactory.h"

namespace orv::automation {

/// A factory whose creations stand in the trace of the control at work. Passes everything on to another factory.
class TracedFactory final : public ObjectFactory {
  public:
    /// `factory` must outlive this one.
    explicit TracedFactory(ObjectFactory& factory) : factory_(factory) {}
    ObjectRef create(std::u16string_view progId) override;
    ObjectRef shared(std::u16string_view progId) override;

  private:
    ObjectFactory& factory_;
};

} // namespace orv::automation
