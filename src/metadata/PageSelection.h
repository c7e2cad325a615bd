#pragma once

#include <string>
#include <string_view>

namespace orv::metadata {

/// The selected page list (",1*,2,"), ready for membership tests: the marks of disabled boxes do not count.
class PageSelection {
  public:
    explicit PageSelection(std::u16string_view pageList);
    /// Whether the list holds the page of that number text between commas.
    bool contains(std::u16string_view page) const;

  private:
    std::u16string list_;
};

} // namespace orv::metadata
