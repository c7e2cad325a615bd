#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace orv::erp {

/// A column of a look-up window.
struct LookUpColumn {
    std::u16string name;    ///< in the database
    std::u16string caption; ///< what the user reads

    friend bool operator==(const LookUpColumn&, const LookUpColumn&) = default;
};

/// What a look-up window offers.
struct LookUpOffer {
    std::u16string title;
    std::u16string language; ///< of the window's own texts: "CHS", "CHT" or "EN"
    std::vector<LookUpColumn> columns;
    std::vector<std::vector<std::u16string>> rows; ///< a text for each column
    bool isMultiple = false;                       ///< the user may take several rows
};

/// Shows look-up windows. The host asks it where no answer waits in the queue.
class LookUpDialog {
  public:
    virtual ~LookUpDialog() = default;
    /// The positions of the rows that the user took, ascending; none when he cancelled.
    virtual std::vector<std::size_t> choose(const LookUpOffer& offer) = 0;
};

/// The rows that a search leaves: every word of it occurs in some column, letter case and character width aside.
/// Words are separated by blanks; an empty search leaves all rows.
std::vector<std::size_t> matchingRows(const LookUpOffer& offer, std::u16string_view search);

} // namespace orv::erp
