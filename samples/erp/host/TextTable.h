#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace orv::erp {

/// A resource file of captions and messages: a text in Simplified Chinese and its translations.
class TextTable {
  public:
    struct Entry {
        std::u16string chs;
        std::u16string cht;
        std::u16string en;
    };

    /// The texts of the resource file "ORVDesign". AutomationError 5 if the embedded file is malformed.
    static const TextTable& design();
    /// Those of "ORVList": the list window and the host's own dialogs.
    static const TextTable& list();

    /// Reads `[{"CHS": ..., "CHT": ..., "EN": ...}, ...]` (UTF-8). A text must not stand there twice.
    explicit TextTable(std::string_view json);

    /// The translation for a language identifier ("CHT", "EN", ignoring letter case); the text itself when there is
    /// none.
    std::u16string translate(std::u16string_view chs, std::u16string_view language) const;
    const std::vector<Entry>& entries() const noexcept { return entries_; }

  private:
    std::vector<Entry> entries_;
    std::map<std::u16string, std::size_t, std::less<>> byText_;
};

} // namespace orv::erp
