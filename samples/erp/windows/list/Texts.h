#pragma once

#include "ole/Automation.h"

#include <map>
#include <string>

namespace orv::erp {

/// The window's texts in the user's language, from the host's resource loader.
class Texts {
  public:
    /// `language`: "CHS", "CHT" or "EN". Raises ole::Failure when the loader is not registered.
    explicit Texts(const std::wstring& language);

    /// The translation of a Simplified Chinese text; the text itself when there is none.
    std::wstring operator()(const std::wstring& chinese) const;
    /// The same with "%1", "%2", ... replaced.
    std::wstring operator()(const std::wstring& chinese, std::initializer_list<std::wstring> arguments) const;

  private:
    ole::Object loader_;
    mutable std::map<std::wstring, std::wstring> known_;
};

} // namespace orv::erp
