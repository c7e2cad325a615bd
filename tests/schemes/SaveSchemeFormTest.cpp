#include "schemes/SaveSchemeForm.h"
#include "automation/AutomationError.h"
#include "automation/Text.h"
#include "schemes/SchemeNames.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orv::schemes {
namespace {

class NoComponents final : public automation::ObjectFactory {
  public:
    automation::ObjectRef create(std::u16string_view) override {
        throw automation::AutomationError::runtime(automation::errorNumber::cannotCreateObject);
    }
    automation::ObjectRef shared(std::u16string_view progId) override { return create(progId); }
};

class Shown final : public ui::Prompts {
  public:
    ui::MessageAnswer message(const std::u16string& text, std::int32_t style, const std::u16string& title) override {
        texts.push_back(automation::toUtf8(text) + "/" + std::to_string(style) + "/" + automation::toUtf8(title));
        return ui::MessageAnswer::ok;
    }
    void log(const std::u16string&) override {}
    std::vector<std::string> texts;
};

TEST(SaveSchemeForm, ChecksNameAndShareFlag) {
    struct Case {
        const char* name;
        const char16_t* typed;
        bool share;
        std::string message; // empty: accepted
        std::u16string result;
    };
    const Case cases[] = {
        {"a name", u"  大额收款 ", true, "", u"大额收款"},
        {"no name", u"   ", false, "请输入方案名称!/48/Velquor提示", u""},
        {"the default scheme, shared", u"默认方案", true, "默认方案不能设置为共享!/48/Velquor提示", u""},
        {"the default scheme in traditional letters, shared", u"默認方案", true,
         "默认方案不能设置为共享!/48/Velquor提示", u""},
        {"the default scheme, private", u"默认方案", false, "", u"默认方案"},
        {"the English name passes, shared", u"Default Schema", true, "", u"Default Schema"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        NoComponents components;
        const support::Localisation texts(components, [] { return std::u16string(u"Language=CHS"); });
        Shown shown;
        ui::Messages messages(shown, texts);
        SaveSchemeForm form(messages, texts);
        form.txtSchemeName.setText(c.typed);
        form.chkShare.setValue(c.share ? ui::CheckState::checked : ui::CheckState::unchecked);
        form.cmdOk.press();
        EXPECT_EQ(form.isOpen(), !c.message.empty());
        EXPECT_EQ(shown.texts, c.message.empty() ? std::vector<std::string>{} : std::vector<std::string>{c.message});
        EXPECT_EQ(form.result(),
                  c.message.empty() ? std::optional(SaveSchemeResult{c.result, c.share ? 1 : 0}) : std::nullopt);
        form.cmdCancel.press();
        EXPECT_FALSE(form.isOpen());
    }
}

TEST(SchemeNames, ShowTheDefaultSchemeInTheUsersLanguage) {
    EXPECT_EQ(shownSchemeName(u"Default Schema", u"CHS"), u"默认方案");
    EXPECT_EQ(shownSchemeName(u"Default Schema", u"CHT"), u"默認方案");
    EXPECT_EQ(shownSchemeName(u"Default Schema", u"EN"), u"Default Schema");
    EXPECT_EQ(shownSchemeName(u"月末", u"EN"), u"月末");
    for (const char16_t* name : {u"默认方案", u"默認方案", u"Default Schema"})
        EXPECT_EQ(storedSchemeName(name), u"Default Schema");
    EXPECT_FALSE(isDefaultSchemeName(u"default schema"));
    EXPECT_EQ(SchemeTag::parse(u"12|3|1"), (SchemeTag{u"12", u"3", u"1"}));
    EXPECT_EQ(SchemeTag::parse(u""), SchemeTag{});
}

} // namespace
} // namespace orv::schemes
