#pragma once

#include "automation/Object.h"
#include "automation/Value.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace orv::erp {

/// A call that a component received.
struct RecordedCall {
    std::u16string progId;
    std::u16string member; ///< as the component spells it; empty: the component was created
    automation::InvokeKind kind = automation::InvokeKind::method;
    /// The arguments as they came in. Objects are not kept alive: a dictionary is a copy whose own objects, and any
    /// other object, stand as a text with the kind of object.
    std::vector<automation::Value> arguments;
};

/// What the host's components were asked, and which of the calls to come must fail.
class CallLog {
  public:
    /// At most so many calls are kept; the oldest half goes first.
    static constexpr std::size_t capacity = 10'000;

    /// Notes a call, then raises the failure that was ordered for it.
    void note(std::u16string_view progId, std::u16string_view member, automation::InvokeKind kind,
              automation::Arguments arguments);

    /// Makes the next call of `progId`.`member` fail, once. Names compare ignoring letter case; an empty member
    /// means the creation of the component. Failures of one member come in the order in which they were ordered.
    void failNext(std::u16string_view progId, std::u16string_view member, std::int32_t number,
                  std::u16string_view description);

    const std::vector<RecordedCall>& calls() const noexcept { return calls_; }
    void clear() { calls_.clear(); }
    /// Failures that were ordered and not met yet.
    std::size_t pendingFailures() const noexcept { return failures_.size(); }

  private:
    struct Failure {
        std::u16string progId;
        std::u16string member;
        std::int32_t number;
        std::u16string description;
    };
    std::vector<RecordedCall> calls_;
    std::vector<Failure> failures_;
};

} // namespace orv::erp
