#pragma once

namespace orv::conditions {

/// Today as the database server has it.
class Today {
  public:
    virtual ~Today() = default;
    /// Days since 30 December 1899, without a time of day. May call the host.
    virtual double date() = 0;
};

} // namespace orv::conditions
