#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace orv::metadata {

/// The captions that one header column gets.
struct HeaderCaption {
    std::u16string first;  ///< first level; empty when the column continues an earlier column's group
    std::u16string second; ///< second level; empty when the caption has none
    /// The column (0-based, in header order) whose first-level caption has grown by this one.
    std::optional<std::size_t> continues;
};

/// Places two-level captions ("金额+借方"): neighbouring shown columns of one first-level caption form a group, whose
/// first column carries a "+|" for each column that continues it. A caption of one level ends with "$".
class HeaderCaptions {
  public:
    /// The captions of the next column. Columns that are not shown neither form nor break groups.
    HeaderCaption place(std::u16string_view caption, bool shown);
    /// The present first-level caption of the column that `continues` named last.
    const std::u16string& leaderCaption() const noexcept { return leader_; }

  private:
    std::size_t count_ = 0;
    // The last shown column with a first-level caption of its own: all that a look back can reach.
    std::optional<std::size_t> leaderIndex_;
    std::u16string leader_;
};

} // namespace orv::metadata
