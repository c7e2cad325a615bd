#pragma once

#include "automation/ObjectFactory.h"

#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace orv::support {

/// The user's language: texts of the control are looked up by their Simplified Chinese wording through the host's
/// resource loader.
class Localisation {
  public:
    /// `props` gives the user properties string; it may raise what its component raises.
    Localisation(automation::ObjectFactory& factory, std::function<std::u16string()> props)
        : factory_(factory), props_(std::move(props)) {}

    /// The upper-cased value of a key of the user properties string.
    std::u16string GetPropsValue(std::u16string_view key) const;
    /// The upper-cased language setting ("CHS", "CHT", "EN"); the source language where the host tells none.
    std::u16string language() const;
    /// The text in the user's language. A failure of the loader ends the translation with the text unchanged.
    std::u16string TranslateText(std::u16string_view text) const;
    /// A message template in the user's language, with "%1" and "%2" replaced.
    std::u16string message(std::u16string_view messageTemplate, std::u16string_view first,
                           std::u16string_view second = {}) const;

  private:
    std::u16string load(std::u16string_view text, const std::u16string& language) const;

    automation::ObjectFactory& factory_;
    std::function<std::u16string()> props_;
    // What the loader has answered for the language; a text that failed is asked again.
    mutable std::u16string knownLanguage_;
    mutable std::unordered_map<std::u16string, std::u16string> known_;
};

} // namespace orv::support
