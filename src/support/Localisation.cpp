#include "support/Localisation.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "support/Letters.h"
#include "support/PropsString.h"

namespace orv::support {

using automation::AutomationError;
using automation::ObjectRef;

namespace {

constexpr std::u16string_view sourceLanguage = u"CHS";
constexpr std::u16string_view resourceFile = u"ORVDesign";

/// Writes a loader's property only when it differs: a change makes the loader open another resource file.
void provide(const ObjectRef& loader, std::u16string_view property, std::u16string_view wanted) {
    const automation::Value present = automation::get(loader, property);
    if (!present.isText() || automation::toText(present) != wanted)
        automation::let(loader, property, wanted);
}

} // namespace

std::u16string Localisation::GetPropsValue(std::u16string_view key) const {
    return PropsString(props_()).GetPropsValue(key);
}

std::u16string Localisation::language() const {
    try {
        std::u16string setting = GetPropsValue(u"Language");
        return setting.empty() ? std::u16string(sourceLanguage) : setting;
    } catch (const AutomationError&) {
        // A host without user properties has no other language to offer.
        return std::u16string(sourceLanguage);
    }
}

std::u16string Localisation::TranslateText(std::u16string_view text) const {
    const std::u16string wanted = language();
    if (wanted == sourceLanguage || text.empty())
        return std::u16string(text);
    if (wanted != knownLanguage_) {
        known_.clear();
        knownLanguage_ = wanted;
    }
    if (const auto known = known_.find(std::u16string(text)); known != known_.end())
        return known->second;
    try {
        std::u16string translated = load(text, wanted);
        known_[std::u16string(text)] = translated;
        return translated;
    } catch (const AutomationError&) {
        // The caption stays in the source language: a missing resource must not cost the user the message itself.
        return std::u16string(text);
    }
}

std::u16string Localisation::load(std::u16string_view text, const std::u16string& language) const {
    const ObjectRef loader = factory_.shared(u"ORVResLoader.Loader");
    provide(loader, u"ResFileBaseName", resourceFile);
    provide(loader, u"LanguageID", language);
    const automation::Value translated = automation::call(loader, u"LoadString2", Trim(text));
    return translated.isEmpty() || translated.isNull() ? std::u16string(text) : automation::toText(translated);
}

std::u16string Localisation::message(std::u16string_view messageTemplate, std::u16string_view first,
                                     std::u16string_view second) const {
    const std::u16string text = TranslateText(messageTemplate);
    // One pass: an argument that holds "%2" itself is not replaced again.
    std::u16string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == u'%' && i + 1 < text.size() && (text[i + 1] == u'1' || text[i + 1] == u'2')) {
            result += text[i + 1] == u'1' ? first : second;
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

} // namespace orv::support
