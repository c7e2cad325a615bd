#pragma once

#include "automation/Object.h"
#include "windows/com/Handles.h"

#include <array>
#include <cstddef>
#include <vector>

namespace orv::windows {

/// The arguments of a call to a host's object: variants in reverse order, and those that by-reference ones refer to.
class CallArguments {
  public:
    explicit CallArguments(automation::Arguments arguments);
    CallArguments(const CallArguments&) = delete;
    CallArguments& operator=(const CallArguments&) = delete;
    ~CallArguments();

    DISPPARAMS parameters() noexcept;
    bool hasReferences() const noexcept { return hasReferences_; }
    /// Makes by-reference arguments refer to the content of their variable's present type instead of the variant.
    void referToContent() noexcept;
    /// Puts what the callee left in by-reference arguments into the caller's variables.
    void writeBack();

  private:
    VARIANT& sent(std::size_t i) noexcept { return all_[count_ - 1 - i]; }
    VARIANT& referent(std::size_t i) noexcept { return all_[count_ + i]; }

    /// Nearly every call has few arguments: those need no allocation.
    static constexpr std::size_t fewArguments = 6;
    automation::Arguments arguments_;
    std::size_t count_;
    bool hasReferences_ = false;
    std::array<VARIANT, 2 * fewArguments> few_;
    std::vector<VARIANT> many_;
    VARIANT* all_;
};

} // namespace orv::windows
