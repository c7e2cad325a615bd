#pragma once

#include "automation/Object.h"

#include <cstddef>
#include <memory>

namespace orv::bench {

/// How many late-bound calls the objects of one host have received.
struct CallCount {
    std::size_t calls = 0;
};

/// Passes every call on to another object and counts it, as a host's object stands behind a process's own.
class CountingObject final : public automation::Object {
  public:
    CountingObject(automation::ObjectRef counted, std::shared_ptr<CallCount> count)
        : counted_(std::move(counted)), count_(std::move(count)) {}

    automation::Value invoke(std::u16string_view member, automation::InvokeKind kind,
                             automation::Arguments arguments) override {
        ++count_->calls;
        return counted_->invoke(member, kind, arguments);
    }
    std::u16string_view typeName() const override { return counted_->typeName(); }

  private:
    automation::ObjectRef counted_;
    std::shared_ptr<CallCount> count_;
};

} // namespace orv::bench
