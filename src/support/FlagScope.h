#pragma once

#include <utility>

namespace orv::support {

/// Sets a flag for the length of a scope.
class FlagScope {
  public:
    explicit FlagScope(bool& flag) : flag_(flag), before_(std::exchange(flag, true)) {}
    ~FlagScope() { flag_ = before_; }
    FlagScope(const FlagScope&) = delete;
    FlagScope& operator=(const FlagScope&) = delete;

  private:
    bool& flag_;
    bool before_;
};

} // namespace orv::support
