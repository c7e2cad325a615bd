#include "schemes/SchemeManager.h"
#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Records.h"
#include "automation/Text.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace orv::schemes {
namespace {

using automation::Arguments;
using automation::Dictionary;
using automation::InvokeKind;
using automation::ObjectRef;
using automation::toUtf8;
using automation::Value;

/// An object whose members are one function.
class Scripted final : public automation::Object {
  public:
    using Answer = std::function<Value(std::u16string_view member, Arguments arguments)>;
    explicit Scripted(Answer answer) : answer_(std::move(answer)) {}
    Value invoke(std::u16string_view member, InvokeKind, Arguments arguments) override {
        return answer_(member, arguments);
    }

  private:
    Answer answer_;
};

ObjectRef scripted(Scripted::Answer answer) {
    return std::make_shared<Scripted>(std::move(answer));
}

/// A recordset of one row with one text in every column, or of none.
ObjectRef oneRow(const std::u16string& text) {
    return scripted([text](std::u16string_view member, Arguments) -> Value {
        if (member == u"EOF")
            return text.empty();
        if (member == u"Value")
            return text;
        return oneRow(text);
    });
}

struct Row {
    std::int32_t id;
    const char16_t* name;
    std::int32_t owner;
    std::int32_t share = 0;
};

/// The middle tier: what it is asked is kept, in words.
class Tier final : public automation::ObjectFactory {
  public:
    ObjectRef create(std::u16string_view progId) override {
        if (progId == u"ORVConnection.AppConnection")
            return scripted([this](std::u16string_view, Arguments arguments) -> Value {
                queries.push_back(toUtf8(automation::toText(arguments[0].value())));
                return oneRow(ownerName);
            });
        if (progId.starts_with(u"ORVMProfile."))
            return scripted([this](std::u16string_view member, Arguments a) { return profile(member, a); });
        throw automation::AutomationError::runtime(automation::errorNumber::cannotCreateObject);
    }
    ObjectRef shared(std::u16string_view progId) override { return create(progId); }

    std::vector<Row> rows;
    std::u16string lastUsed;
    std::u16string ownerName; ///< the answer to every owner query; "" is no row
    std::vector<std::string> queries;
    std::vector<std::string> saved; ///< headers, as "key=value" items in their order
    std::vector<std::int32_t> deleted;
    bool deletes = true; ///< the answer to a deletion

  private:
    Value profile(std::u16string_view member, Arguments arguments) {
        if (member == u"GetProfileList")
            return list();
        if (member == u"GetUserProfile")
            return lastUsed;
        if (member == u"SaveProfile")
            return save(arguments);
        if (member == u"DelProfile") {
            deleted.push_back(automation::toInt32(arguments[1].value()));
            return deletes;
        }
        throw automation::AutomationError::runtime(automation::errorNumber::memberNotFound);
    }

    Value list() const {
        const automation::Collection all = automation::makeCollection();
        for (const Row& row : rows) {
            const Dictionary record = automation::makeDictionary();
            record.set(u"FSchemeID", row.id);
            record.set(u"FSchemeName", row.name);
            record.set(u"FUserID", row.owner);
            record.set(u"FIsShare", row.share);
            all.add(record.object());
        }
        return all.object();
    }

    /// A new scheme gets the identifier 70, in a record that takes the place of the caller's.
    Value save(Arguments arguments) {
        const Dictionary header = Dictionary(automation::toObject(arguments[1].value())).cloneAll();
        std::string text;
        for (const std::u16string& key : header.keys())
            text += toUtf8(key) + "=" + toUtf8(automation::toText(header.get(key))) + " ";
        saved.push_back(text);
        if (automation::toInt32(header.get(u"FSchemeID")) == 0)
            header.set(u"FSchemeID", std::int32_t{70});
        arguments[1].assign(header.object());
        return {};
    }
};

/// The control and its user around the scheme manager. Questions are answered with Yes.
class Bench final : public SchemeHost, public ui::Prompts {
  public:
    explicit Bench(std::vector<Row> rows) {
        tier.rows = std::move(rows);
        manager.fillList();
    }

    automation::ObjectFactory& components() override { return tier; }
    ui::Messages& messages() override { return boxes_; }
    const support::Localisation& texts() override { return texts_; }
    std::u16string propsString() override { return u"UserID=1;UserName= Li ;Language=CHS"; }
    std::int32_t classTypeId() override { return 12; }
    bool schemesInUse() override { return true; }
    void captureEntry(const Dictionary&) override {}
    void applyEntry(const Dictionary&) override {}
    void clearGrids() override {}
    void showDialog(SaveSchemeForm& form) override {
        form.txtSchemeName.setText(typedName);
        form.cmdOk.press();
    }
    void log(std::u16string_view text) override { shown.push_back("log: " + toUtf8(text)); }
    void log(const std::u16string& text) override { log(std::u16string_view(text)); }
    ui::MessageAnswer message(const std::u16string& text, std::int32_t style, const std::u16string&) override {
        shown.push_back(toUtf8(text) + "/" + std::to_string(style));
        return ui::MessageAnswer::yes;
    }

    void select(std::u16string_view key) { list.setSelected(list.find(key)); }
    std::string selectedTag() const { return list.selectedItem() == nullptr ? "" : toUtf8(list.selectedItem()->tag); }

    Tier tier;
    ui::ListView list{u"lvwProject"};
    std::u16string typedName;
    std::vector<std::string> shown;

  private:
    support::Localisation texts_{tier, [this] { return propsString(); }};
    ui::Messages boxes_{*this, texts_};

  public:
    SchemeManager manager{list, *this};
};

using Texts = std::vector<std::string>;

TEST(SchemeManager, SelectsAtStart) {
    struct Case {
        const char* name;
        std::vector<Row> rows;
        const char16_t* lastUsed;
        std::string tag;
    };
    const Case cases[] = {
        {"no scheme", {}, u"3", ""},
        {"the one used last", {{1, u"Default Schema", 1}, {3, u"b", 2, 1}}, u"3", "3|2|1"},
        {"used last is gone: the default scheme", {{2, u"a", 1}, {1, u"Default Schema", 1}}, u"9", "1|1|0"},
        {"nothing used last: the default scheme", {{2, u"a", 1}, {1, u"Default Schema", 1}}, u"", "1|1|0"},
        {"neither: the first", {{2, u"a", 1}, {3, u"b", 1}}, u"", "2|1|0"},
        {"no part of an identifier counts", {{2, u"a", 1}, {33, u"b", 1}}, u"3", "2|1|0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Bench bench({});
        bench.tier.rows = c.rows;
        bench.tier.lastUsed = c.lastUsed;
        bench.manager.fillList();
        EXPECT_EQ(bench.selectedTag(), c.tag);
        EXPECT_EQ(bench.shown, Texts{});
    }
}

TEST(SchemeManager, WritesTheHeaderRecordInItsOrderAndTakesTheComponentsBack) {
    Bench bench({{1, u"Default Schema", 1}});
    bench.typedName = u"Li's";
    bench.manager.save(SaveMode::interactive, 0);
    EXPECT_EQ(bench.tier.saved, Texts{"FSchemeID=0 FSchemeName=Li''s FTranType=12 FSysName= FStatus=0 FIsShare=0 "});
    EXPECT_EQ(bench.selectedTag(), "70|1|0") << "the new scheme is listed under the identifier that it was given";
    EXPECT_EQ(toUtf8(bench.list.selectedItem()->key), "S70");
    EXPECT_EQ(bench.list.count(), 2);
}

TEST(SchemeManager, NeverSharesTheDefaultScheme) {
    Bench bench({{1, u"Default Schema", 1, 1}});
    bench.manager.save(SaveMode::silent, 1);
    EXPECT_EQ(bench.tier.saved,
              Texts{"FSchemeID=1 FSchemeName=Default Schema FTranType=12 FSysName= FStatus=1 FIsShare=0 "});
    EXPECT_EQ(bench.selectedTag(), "1|1|0");
}

TEST(SchemeManager, SavesByOwner) {
    constexpr const char* overwrite = "是否覆盖原方案?/68";
    constexpr const char* notYours = "该方案不是你设置的，将不会保存。/48";
    struct Case {
        const char* name;
        Row scheme;
        const char16_t* ownerName;
        SaveMode mode;
        std::int32_t status;
        Texts shown;
        bool saved;
    };
    const Case cases[] = {
        {"one's own", {5, u"a", 1, 1}, u"Li", SaveMode::interactive, 0, {overwrite}, true},
        {"names compare trimmed and without letter case", {5, u"a", 1}, u"lI  ", SaveMode::silent, 1, {}, true},
        {"another user's", {5, u"a", 2, 1}, u"Wu ", SaveMode::interactive, 0, {"不能覆盖Wu设置的方案。/48"}, false},
        {"another user's, status 1", {5, u"a", 2, 1}, u"Wu", SaveMode::interactive, 1, {}, false},
        {"another user's, silently", {5, u"a", 2, 1}, u"Wu", SaveMode::silent, 1, {}, false},
        {"an owner who is gone", {5, u"a", 2, 1}, u"", SaveMode::interactive, 0, {overwrite, notYours}, false},
        {"an owner who is gone, silently", {5, u"a", 2, 1}, u"", SaveMode::silent, 1, {}, false},
        {"without an owner", {5, u"a", 0}, u"", SaveMode::silent, 1, {}, true},
        {"the default scheme, whoever owns it", {5, u"Default Schema", 2}, u"Wu", SaveMode::silent, 1, {}, true},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        Bench bench({c.scheme});
        bench.tier.ownerName = c.ownerName;
        bench.manager.save(c.mode, c.status);
        EXPECT_EQ(bench.shown, c.shown);
        EXPECT_EQ(bench.tier.saved.size(), c.saved ? 1U : 0U);
        EXPECT_EQ(bench.tier.queries, Texts{"select Fname as Fname from t_user where Fuserid=(SELECT Fuserid  as "
                                            "Fuserid FROM ICClassProfile WHERE FSchemeID=5)"});
    }
}

TEST(SchemeManager, DeletesTheSelectedOfTwoSchemesWithOneName) {
    Bench bench({{1, u"Default Schema", 1}, {4, u"月报", 2, 1}, {6, u"月报", 1}});
    bench.select(u"S6");
    bench.manager.deleteSelected();
    EXPECT_EQ(bench.tier.deleted, std::vector<std::int32_t>{6});
    EXPECT_EQ(bench.shown, Texts{"是否要删除月报?/68"});
    EXPECT_GT(bench.list.find(u"S4"), 0) << "the other user's scheme stays";
    EXPECT_EQ(bench.list.find(u"S6"), 0);
    EXPECT_EQ(bench.selectedTag(), "1|1|0");
}

TEST(SchemeManager, TellsWhenTheComponentDoesNotDelete) {
    Bench bench({{6, u"月报", 1}});
    bench.tier.deletes = false;
    bench.manager.deleteSelected();
    EXPECT_EQ(bench.shown, (Texts{"是否要删除月报?/68", "删除方案 [月报] 失败！/48"}));
    EXPECT_EQ(bench.selectedTag(), "6|1|0");
}

TEST(SchemeManager, NeverDeletesTheDefaultSchemeUnderAnyName) {
    for (const char16_t* name : {u"Default Schema", u"默认方案", u"默認方案"}) {
        Bench bench({{3, name, 1}});
        bench.manager.deleteSelected();
        EXPECT_EQ(bench.tier.deleted, std::vector<std::int32_t>{});
        ASSERT_EQ(bench.shown.size(), 1U);
        EXPECT_TRUE(bench.shown[0].starts_with("不能删除默")) << bench.shown[0];
    }
}

} // namespace
} // namespace orv::schemes
