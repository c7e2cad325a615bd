#pragma once

#include "automation/ObjectFactory.h"

#include <memory>

namespace orv::windows {

/// Creates the host's components by ProgID. Components that are kept (`shared`) are kept per apartment, as long as any
/// factory of the apartment lives.
class ComObjectFactory final : public automation::ObjectFactory {
  public:
    ComObjectFactory();
    ~ComObjectFactory() override;

    automation::ObjectRef create(std::u16string_view progId) override;
    automation::ObjectRef shared(std::u16string_view progId) override;

  private:
    struct Pool;
    static std::shared_ptr<Pool> poolOfApartment();

    std::shared_ptr<Pool> pool_;
};

} // namespace orv::windows
