#pragma once

#include <span>
#include <string_view>

// The files that the build puts into the library.
namespace orv::erp {

struct EmbeddedFile {
    std::string_view name;
    std::string_view content; ///< UTF-8
};

/// The description of the built-in ERP, in parts (samples/erp/metadata/*.json).
std::span<const EmbeddedFile> embeddedDescription();

/// The captions and messages with their translations (samples/erp/resources/texts.json).
std::string_view embeddedTexts();
/// Those of the list window and the host's dialogs (samples/erp/resources/list-texts.json).
std::string_view embeddedListTexts();

} // namespace orv::erp
