#pragma once

#include "windows/com/Handles.h"

#include <array>
#include <cstddef>

namespace orv::windows {

/// Whether the lists that a caller of `Invoke` promises are there.
bool isComplete(const DISPPARAMS& sent) noexcept;

/// The arguments of one `Invoke`, by parameter position.
class InvokeCall {
  public:
    static constexpr std::size_t mostParameters = 4;

    /// Places the arguments. `parameterCount` is that of the member, of which the first `requiredCount` must be there.
    HRESULT place(const DISPPARAMS& sent, std::size_t parameterCount, std::size_t requiredCount, bool isWrite) noexcept;

    /// Null when an optional argument was left out.
    const VARIANT* argument(std::size_t position) const noexcept { return arguments_[position]; }
    /// Where the argument stands in the caller's list, for error reports.
    UINT placeInList(std::size_t position) const noexcept { return places_[position]; }

    void setWrong(std::size_t position) noexcept { wrong_ = position; }
    std::size_t wrong() const noexcept { return wrong_; }

    /// The result goes here; null when the caller wants none.
    VARIANT* result = nullptr;

  private:
    std::array<const VARIANT*, mostParameters> arguments_{};
    std::array<UINT, mostParameters> places_{};
    std::size_t wrong_ = 0;
};

} // namespace orv::windows
