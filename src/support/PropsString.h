#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace orv::support {

/// The user properties string: the context of the logged-on user, "key=value" items separated by ";".
class PropsString {
  public:
    PropsString() = default;
    explicit PropsString(std::u16string text) : text_(std::move(text)) {}

    const std::u16string& text() const noexcept { return text_; }
    bool empty() const noexcept { return text_.empty(); }

    /// The value of a key with its letter case kept; "" without one. The view lives as long as this object.
    std::u16string_view value(std::u16string_view key) const;

    /// The value of a key, upper-cased.
    std::u16string GetPropsValue(std::u16string_view key) const;

  private:
    std::u16string text_;
};

} // namespace orv::support
