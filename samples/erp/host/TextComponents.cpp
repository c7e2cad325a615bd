#include "automation/Coercion.h"
#include "erp/host/ComponentTable.h"
#include "erp/host/TextTable.h"

namespace orv::erp {

using automation::Arguments;
using automation::Value;

namespace {

class ResourceLoader final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {
            property<&ResourceLoader::getFile, &ResourceLoader::letFile>(u"ResFileBaseName"),
            property<&ResourceLoader::getLanguage, &ResourceLoader::letLanguage>(u"LanguageID"),
            method<&ResourceLoader::loadString2>(u"LoadString2", 1),
        };
        return table;
    }

  private:
    Value getFile(Arguments) { return file_; }
    void letFile(Arguments arguments) { file_ = automation::toText(arguments[0].value()); }
    Value getLanguage(Arguments) { return language_; }
    void letLanguage(Arguments arguments) { language_ = automation::toText(arguments[0].value()); }

    /// The translation of a Simplified Chinese text; the text itself in any other resource file or language.
    Value loadString2(Arguments arguments) {
        const std::u16string text = automation::toText(arguments[0].value());
        if (automation::sameMember(file_, u"ORVDesign"))
            return TextTable::design().translate(text, language_);
        return automation::sameMember(file_, u"ORVList") ? TextTable::list().translate(text, language_) : text;
    }

    std::u16string file_;
    std::u16string language_;
};

class FontLoader final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {method<&FontLoader::setCtlFont>(u"SetCtlFont", 1)};
        return table;
    }

  private:
    // The sample leaves every control the font that its window chose: the call is recorded, that is all.
    void setCtlFont(Arguments) {}
};

class ShareProps final : public Component {
  public:
    using Component::Component;
    std::span<const Member> members() const override {
        static constexpr Member table[] = {method<&ShareProps::getProperty>(u"GetProperty", 1)};
        return table;
    }

  private:
    /// "PropsString" is the user properties string; there is nothing else.
    Value getProperty(Arguments arguments) {
        const std::u16string name = automation::toText(arguments[0].value());
        return automation::sameMember(name, u"PropsString") ? state().props : std::u16string();
    }
};

constexpr ComponentClass textClasses[] = {
    {u"ORVResLoader.Loader", &makeComponent<ResourceLoader>},
    {u"ORVFrmRes.FrmResLoader", &makeComponent<FontLoader>},
    {u"ORVPropsMgr.ShareProps", &makeComponent<ShareProps>},
};

} // namespace

std::span<const ComponentClass> textComponents() {
    return textClasses;
}

} // namespace orv::erp
