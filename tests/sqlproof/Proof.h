#pragma once

#include "erp/host/ErpHost.h"
#include "sqlproof/FilterText.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <vector>

namespace orv::sqlproof {

/// What one check was about, for the line of the statement and for reports.
struct Subject {
    std::int32_t classType = 0;
    std::vector<Line> lines;
};

/// Checks statements against the sample database and writes each of them as a JSON line.
class Proof {
  public:
    /// `every`: each n-th check alone is made, so that a slow build has an end.
    Proof(erp::ErpHost& host, std::ostream& statements, std::size_t every);

    /// `expected` counts the rows that plain code picks; called only where an answer is told.
    void check(const Subject& subject, Answer answer, const std::function<std::size_t()>& expected);

    struct Tally {
        std::size_t counted = 0;        ///< as many rows found as picked
        std::size_t someRows = 0;       ///< of these: with rows
        std::size_t refused = 0;        ///< by the control, as expected
        std::size_t databaseErrors = 0; ///< refused by the database, as expected
        std::size_t open = 0;           ///< written down only
        std::size_t failed = 0;
    };
    const Tally& tally() const noexcept { return tally_; }

  private:
    void fail(const Subject& subject, const std::string& what);
    void write(const Subject& subject, Answer answer, const std::u16string& sql);

    erp::ErpHost& host_;
    std::ostream& statements_;
    std::size_t every_;
    std::size_t asked_ = 0;
    Tally tally_;
};

} // namespace orv::sqlproof
