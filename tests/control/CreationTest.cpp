#include "automation/Coercion.h"
#include "automation/Text.h"
#include "control/Filter.h"
#include "metadata/Records.h"

#include <gtest/gtest.h>

namespace orv::control {
namespace {

using automation::Arguments;
using automation::ObjectRef;
using automation::Value;

/// Confirms messages and closes dialogs.
class ClosingPrompts final : public ui::Prompts {
  public:
    ui::MessageAnswer message(const std::u16string&, std::int32_t, const std::u16string&) override {
        return ui::MessageAnswer::ok;
    }
    void showModal(ui::Dialog& dialog) override {
        captions.push_back(dialog.caption());
        for (ui::Control* control : dialog.controls())
            if (const auto* captioned = dynamic_cast<ui::CaptionControl*>(control))
                captions.push_back(captioned->caption());
        dialog.close();
    }
    void log(const std::u16string&) override {}

    std::vector<std::u16string> captions; ///< of the dialogs that were shown and of their controls
};

/// The font component, the resource loader and the user properties of a host; texts "translate" to themselves between
/// angle brackets.
class TextTier final : public automation::ObjectFactory {
  public:
    explicit TextTier(std::u16string language) : language_(std::move(language)) {}

    ObjectRef create(std::u16string_view progId) override { return std::make_shared<Member>(*this, progId); }
    ObjectRef shared(std::u16string_view progId) override { return create(progId); }

    std::vector<std::string> dressed; ///< names of the controls that were passed to SetCtlFont

  private:
    class Member final : public automation::Object {
      public:
        Member(TextTier& tier, std::u16string_view progId) : tier_(tier) {
            if (progId.starts_with(u"QDX."))
                throw automation::AutomationError::runtime(automation::errorNumber::cannotCreateObject);
        }
        Value invoke(std::u16string_view member, automation::InvokeKind, Arguments arguments) override {
            if (member == u"GetProperty")
                return u"Language=" + tier_.language_;
            if (member == u"LoadString2")
                return u"<" + automation::toText(arguments[0].value()) + u">";
            if (member == u"SetCtlFont")
                tier_.dress(arguments[0]);
            return {};
        }

      private:
        TextTier& tier_;
    };

    void dress(const automation::Argument& argument) {
        EXPECT_TRUE(argument.isByReference());
        const ObjectRef control = automation::toObject(argument.value());
        std::string name = automation::toUtf8(automation::toText(automation::get(control, u"Name")));
        try {
            name += "(" + automation::toUtf8(automation::toText(automation::get(control, u"Index"))) + ")";
        } catch (const automation::AutomationError&) {
            // no element of a control array
        }
        dressed.push_back(name);
    }

    std::u16string language_;
};

TEST(Creation, HasEveryControlDressedInOrder) {
    TextTier tier(u"CHS");
    ClosingPrompts prompts;
    const Filter filter(tier, prompts);
    const std::vector<std::string> atFirst = {"lblClassType", "lblProject", "vsFilter",   "vsHideColumn", "vsOrder",
                                              "lvwProject",   "tlbProject", "tbFilter",   "cboClassType", "chkPage(0)",
                                              "cmdHide(0)",   "cmdHide(1)", "cmdHide(2)", "cmdHide(3)",   "cmdHide(4)"};
    ASSERT_GE(tier.dressed.size(), atFirst.size());
    EXPECT_EQ(std::vector(tier.dressed.begin(), tier.dressed.begin() + static_cast<std::ptrdiff_t>(atFirst.size())),
              atFirst);
    for (std::size_t i = atFirst.size(); i < tier.dressed.size(); ++i)
        EXPECT_FALSE(tier.dressed[i].starts_with("cbo") || tier.dressed[i].starts_with("pic"))
            << tier.dressed[i] << " has no caption to translate";
}

TEST(Creation, TranslatesCaptionsButNotLists) {
    TextTier tier(u"EN");
    ClosingPrompts prompts;
    Filter filter(tier, prompts);
    FilterControls& controls = filter.controls();
    EXPECT_EQ(controls.lblClassType.caption(), u"<单据类型>");
    EXPECT_EQ(controls.tbFilter.tabs()[2].caption, u"<显示隐藏列>");
    EXPECT_EQ(controls.tlbProject.buttons()[0].toolTip, u"<保存>");
    EXPECT_EQ(controls.lvwProject.columnHeaders(), std::vector<std::u16string>{u"<方案名称>"});
    EXPECT_EQ(controls.vsOrder.text(1, 0), u"<排序字段>");
    EXPECT_EQ(controls.vsFilter.text(1, 0), u"(") << "the bracket headings are set last";
    EXPECT_EQ(controls.vsFilter.text(7, 0), u")");
    EXPECT_EQ(controls.cboTime.items().front(), u"当天");
}

TEST(SaveDialog, IsTranslatedAndDressedWhenItIsShown) {
    TextTier tier(u"EN");
    ClosingPrompts prompts;
    Filter filter(tier, prompts);
    filter.put_ShowScheme(true);
    filter.resize(800, 600, 1);
    tier.dressed.clear();
    filter.controls().tlbProject.userClick(u"TLBSAVE");
    EXPECT_EQ(prompts.captions,
              (std::vector<std::u16string>{u"<保存方案>", u"<方案名称>", u"<与其他用户共享>", u"<确定>", u"<取消>"}));
    EXPECT_EQ(tier.dressed, (std::vector<std::string>{"lblSchemeName", "chkShare", "cmdOk", "cmdCancel"}));
}

TEST(PageScroll, MovesThePagesByThreePixelsAStepInSixteenBits) {
    tests::NoComponents factory;
    ClosingPrompts prompts;
    Filter filter(factory, prompts);
    FilterControls& controls = filter.controls();
    controls.vsPage.setMaximum(1000);
    controls.vsPage.setValue(10);
    EXPECT_EQ(controls.picPage.topTwips(), -450);
    controls.vsPage.setValue(728);
    EXPECT_EQ(controls.picPage.topTwips(), -32760);
    try {
        controls.vsPage.setValue(729);
        FAIL() << "-32805 is no 16-bit number";
    } catch (const automation::AutomationError& error) {
        EXPECT_EQ(error.number(), automation::errorNumber::overflow);
    }
    EXPECT_EQ(controls.picPage.topTwips(), -32760);
}

TEST(SchemeEntry, WritesItsKeysInTheirOrder) {
    tests::NoComponents factory;
    ClosingPrompts prompts;
    Filter filter(factory, prompts);
    EXPECT_EQ(
        filter.get_dctProFileEntry().keys(),
        (std::vector<std::u16string>{u"OrderBy", u"Relation", u"RelationExt", u"ColWidth", u"ColHide", u"ColIndex",
                                     u"SelPage", u"cboTime", u"cboCheck", u"cboPost", u"IsShowAllHead"}));
    EXPECT_TRUE(filter.get_dctProFileEntry().get(u"cboTime").is<std::int16_t>());
    EXPECT_EQ(filter.get_dctProFile().keys(), (std::vector<std::u16string>{u"FSchemeID", u"FSchemeName", u"FTranType",
                                                                           u"FSysName", u"FStatus", u"FIsShare"}));
}

} // namespace
} // namespace orv::control
