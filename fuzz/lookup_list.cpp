// Look-up descriptions of fields: kind and body, the pairs of a fixed list, the two-way dictionary, the drop-down.
#include "Input.h"
#include "Models.h"
#include "NoHost.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "editor/ValueLists.h"
#include "metadata/ValueListField.h"
#include "support/PaddedItem.h"

#include <map>

using namespace orv;
using automation::Dictionary;
using metadata::FieldRecord;

namespace {

struct Expected {
    std::u16string kind;
    std::u16string body;
    std::vector<std::pair<std::u16string, std::u16string>> pairs;
};

Expected readByModel(const std::u16string& text) {
    Expected result;
    const std::size_t open = text.find(u'{');
    result.kind = text.substr(0, open);
    if (open != std::u16string::npos) {
        const std::u16string rest = text.substr(open + 1);
        result.body = rest.substr(0, rest.find(u'}'));
    }
    for (const std::u16string& piece : fuzz::model::split(result.body, u","))
        if (!piece.empty())
            result.pairs.emplace_back(fuzz::model::piece(piece, 1, u"="), fuzz::model::piece(piece, 2, u"="));
    return result;
}

std::u16string textOf(const Dictionary& list, const std::u16string& key) {
    return automation::toText(list.get(key));
}

void checkDropDown(const std::u16string& text, const std::map<std::u16string, std::u16string>& captions,
                   automation::ObjectFactory& factory) {
    const Dictionary record = automation::makeDictionary();
    record.set(u"FLookUpList", text);
    const FieldRecord field(record);
    const editor::ValueListSource source{nullptr, factory, u""};
    const std::u16string list = editor::BuildLookupValueList(field, source);
    // A tab inside of a caption or a key splits its item: such texts are the host's own fault.
    if (text.find(u'\t') != std::u16string::npos)
        return;
    const auto items = fuzz::model::split(list, u"\t");
    fuzz::require(items.size() == captions.size(), "an item for each key");
    for (const std::u16string& item : items) {
        const auto entry = captions.find(std::u16string(support::SplitLookupText(item, true)));
        fuzz::require(entry != captions.end(), "an item's key is one of the list");
        fuzz::requireSame(item, support::PadItem(entry->second, entry->first), "an item is its caption and its key");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input input(data, size);
    const std::u16string text = input.rest();
    const Expected expected = readByModel(text);
    const auto description = metadata::LookUpDescription::parse(text);
    fuzz::requireSame(description.kind, expected.kind, "the kind of a look-up");
    fuzz::requireSame(description.body, expected.body, "the body of a look-up");
    fuzz::require(metadata::parseValueList(description.body) == expected.pairs, "the pairs of a list");

    std::map<std::u16string, std::u16string> captions;
    for (const auto& [key, caption] : expected.pairs)
        captions[key] = caption;
    fuzz::NoHost factory;
    const Dictionary twoWay = metadata::makeTwoWayValueList(description.body, factory);
    for (const auto& [key, caption] : captions) {
        fuzz::requireSame(textOf(twoWay, key), caption, "a key leads to its caption");
        fuzz::require(twoWay.exists(caption), "a caption leads somewhere");
        if (!captions.contains(caption))
            fuzz::require(captions.contains(textOf(twoWay, caption)), "a caption leads to a key");
    }
    if (description.isValueList())
        checkDropDown(text, captions, factory);
    return 0;
}
