#include "support/Localisation.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace orv::support {
namespace {

using automation::AutomationError;
using automation::InvokeKind;
using automation::Value;

/// A resource loader that records what is written to it and what it is asked.
class Loader final : public automation::Object {
  public:
    Value invoke(std::u16string_view member, InvokeKind kind, automation::Arguments arguments) override {
        if (kind == InvokeKind::let) {
            properties[std::u16string(member)] = automation::toText(arguments[0].value());
            ++writes;
            return {};
        }
        if (kind == InvokeKind::get)
            return properties[std::u16string(member)];
        asked.push_back(automation::toText(arguments[0].value()));
        if (fails)
            throw AutomationError(1000, u"Loader", u"no file");
        return u"<" + asked.back() + u">";
    }
    std::map<std::u16string, std::u16string> properties;
    std::vector<std::u16string> asked;
    int writes = 0;
    bool fails = false;
};

class Factory final : public automation::ObjectFactory {
  public:
    automation::ObjectRef create(std::u16string_view) override { return loader; }
    automation::ObjectRef shared(std::u16string_view progId) override {
        ++created;
        EXPECT_EQ(progId, u"ORVResLoader.Loader");
        return loader;
    }
    std::shared_ptr<Loader> loader = std::make_shared<Loader>();
    int created = 0;
};

TEST(Localisation, LeavesTheSourceLanguageAlone) {
    for (const char16_t* props : {u"Language=CHS;", u"UserID=1;Language=chs", u"", u"UserID=1"}) {
        Factory factory;
        const Localisation texts(factory, [props] { return std::u16string(props); });
        EXPECT_EQ(texts.TranslateText(u" 比较 "), u" 比较 ");
        EXPECT_EQ(factory.created, 0) << "no loader is created";
    }
}

TEST(Localisation, AsksTheLoaderForTheTrimmedText) {
    Factory factory;
    std::u16string props = u"UserID=1;Language=en;";
    const Localisation texts(factory, [&props] { return props; });
    EXPECT_EQ(texts.GetPropsValue(u"Language"), u"EN");
    EXPECT_EQ(texts.TranslateText(u""), u"");
    EXPECT_TRUE(factory.loader->asked.empty()) << "an empty caption is never sent";
    EXPECT_EQ(texts.TranslateText(u"  比较 "), u"<比较>");
    EXPECT_EQ(factory.loader->properties[u"ResFileBaseName"], u"ORVDesign");
    EXPECT_EQ(factory.loader->properties[u"LanguageID"], u"EN");
    EXPECT_EQ(texts.TranslateText(u"逻辑"), u"<逻辑>");
    EXPECT_EQ(factory.loader->writes, 2) << "both properties are written on change only";
    EXPECT_EQ(texts.TranslateText(u"逻辑"), u"<逻辑>");
    EXPECT_EQ(factory.loader->asked.size(), 2U) << "a text is asked for once";
    props = u"Language=CHT";
    EXPECT_EQ(texts.TranslateText(u"逻辑"), u"<逻辑>");
    EXPECT_EQ(factory.loader->asked.size(), 3U) << "another language is asked anew";
}

TEST(Localisation, KeepsTheTextWhenTheLoaderFails) {
    Factory factory;
    factory.loader->fails = true;
    const Localisation texts(factory, [] { return std::u16string(u"Language=EN"); });
    EXPECT_EQ(texts.TranslateText(u"逻辑"), u"逻辑");
    factory.loader->fails = false;
    EXPECT_EQ(texts.TranslateText(u"逻辑"), u"<逻辑>");
}

TEST(Localisation, TranslatesTheTemplateBeforeItReplacesArguments) {
    Factory factory;
    const Localisation texts(factory, [] { return std::u16string(u"Language=EN"); });
    EXPECT_EQ(texts.message(u"不能删除%1!", u"%2"), u"<不能删除%2!>") << "an argument is not searched again";
    EXPECT_EQ(factory.loader->asked.back(), u"不能删除%1!");
    EXPECT_EQ(texts.message(u"%1 和 %2 100%", u"甲", u"乙"), u"<甲 和 乙 100%>");
}

} // namespace
} // namespace orv::support
