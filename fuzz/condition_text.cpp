// The text in which schemes keep conditions: any text is read as the plain model reads it, and what was read is written
// back so that it reads the same.
#include "Input.h"
#include "Models.h"
#include "conditions/ConditionText.h"

using namespace orv;
using conditions::ConditionRecord;

namespace {

std::vector<ConditionRecord> readByModel(const std::u16string& text) {
    std::vector<std::u16string> pieces = fuzz::model::split(text, u"||");
    if (!pieces.empty() && pieces.back().empty())
        pieces.pop_back(); // behind the last terminator
    std::vector<ConditionRecord> records;
    for (const std::u16string& piece : pieces) {
        std::vector<std::u16string> items = fuzz::model::split(piece, u"##<&");
        items.resize(6);
        records.push_back({items[0], items[1], items[2], items[3], items[4], items[5]});
    }
    return records;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::u16string text = input.rest();
    const auto records = conditions::parseConditionText(text);
    fuzz::require(records == readByModel(text), "a text reads as the model reads it");
    const std::u16string written = conditions::formatConditionText(records);
    fuzz::require(conditions::parseConditionText(written) == records, "what is written reads as what was read");
    fuzz::requireSame(conditions::formatConditionText(conditions::parseConditionText(written)), written,
                      "a written text stays the same");
    return 0;
}
