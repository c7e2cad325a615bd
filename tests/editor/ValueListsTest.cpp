#include "metadata/Records.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Text.h"
#include "editor/ValueLists.h"
#include "support/PaddedItem.h"
#include "support/Pieces.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace orv::editor {
namespace {

using automation::Arguments;
using automation::AutomationError;
using automation::InvokeKind;
using automation::ObjectRef;
using automation::Value;
using Rows = std::vector<std::vector<std::u16string>>;

/// A column of a recordset's current record.
class Field final : public automation::Object {
  public:
    explicit Field(Value value) : value_(std::move(value)) {}
    Value invoke(std::u16string_view, InvokeKind, Arguments) override { return value_; }

  private:
    Value value_;
};

class Records final : public automation::Object {
  public:
    explicit Records(Rows rows) : rows_(std::move(rows)) {}
    Value invoke(std::u16string_view member, InvokeKind, Arguments arguments) override {
        if (member == u"EOF")
            return position_ >= rows_.size();
        if (member == u"RecordCount")
            return static_cast<std::int32_t>(rows_.size());
        if (member == u"MoveNext") {
            ++position_;
            return {};
        }
        const auto column = static_cast<std::size_t>(automation::toInt32(arguments[0].value()));
        return Value(ObjectRef(std::make_shared<Field>(rows_.at(position_).size() > column
                                                           ? Value(rows_[position_][column])
                                                           : throw AutomationError(3265, u"ADODB", u"no column"))));
    }

  private:
    Rows rows_;
    std::size_t position_ = 0;
};

/// Answers `GetData` of data service and class information alike, and remembers the statement.
class Source final : public automation::Object {
  public:
    Value invoke(std::u16string_view member, InvokeKind, Arguments arguments) override {
        if (member == u"ClassTypeID")
            return std::int32_t{1000201};
        sql = automation::toText(arguments[0].value());
        argumentCount = arguments.size();
        if (fails)
            throw AutomationError(1000, u"Source", u"no connection");
        return Value(ObjectRef(std::make_shared<Records>(rows)));
    }
    Rows rows;
    std::u16string sql;
    std::size_t argumentCount = 0;
    bool fails = false;
};

class ValueLists : public testing::Test, public automation::ObjectFactory {
  protected:
    ObjectRef create(std::u16string_view progId) override {
        if (progId != u"ORVMClass.ClassInfo")
            throw AutomationError::runtime(automation::errorNumber::cannotCreateObject);
        return source;
    }
    ObjectRef shared(std::u16string_view progId) override { return create(progId); }

    /// "caption=key" of each item.
    static std::vector<std::string> itemsOf(const std::u16string& list) {
        std::vector<std::string> items;
        support::PieceReader reader(list, u"\t");
        for (std::u16string_view item; reader.next(item);)
            items.push_back(automation::toUtf8(support::SplitLookupText(item, false)) + "=" +
                            automation::toUtf8(support::SplitLookupText(item, true)));
        return items;
    }
    std::vector<std::string> build(Value type, const char16_t* dataSource, const char16_t* parameters = u"",
                                   const char16_t* lookUpList = u"") {
        conditions::CompareEntry entry;
        entry.FDataSourceType = std::move(type);
        entry.FDataSource = dataSource;
        entry.FValue = parameters;
        const metadata::FieldRecord field(
            tests::record({{u"FFieldName", u"t.FName"}, {u"FTableName", u"t_Item t"}, {u"FLookUpList", lookUpList}}));
        failure.clear();
        return itemsOf(BuildValueList(entry, field, {source, *this, u"UserID=1"}, &failure));
    }
    using Items = std::vector<std::string>;

    std::shared_ptr<Source> source = std::make_shared<Source>();
    std::u16string failure;
};

TEST_F(ValueLists, ListAFixedTextUpToItsFirstEmptyPiece) {
    EXPECT_EQ(build(0, u"现金;1,支票;2"), (Items{"现金=现金;1", "支票=支票;2"}));
    EXPECT_EQ(build(0, u"现金,,支票"), (Items{"现金=现金"}));
    EXPECT_EQ(build(0, u""), Items{});
    EXPECT_EQ(build(7, u"现金;1"), Items{}) << "an unknown kind of source";
    EXPECT_EQ(build(u"x", u"现金;1"), Items{}) << "a kind that is no number ends in the trap";
    EXPECT_FALSE(failure.empty());
}

TEST_F(ValueLists, CutLongCaptions) {
    const std::u16string caption(300, u'长');
    conditions::CompareEntry entry;
    entry.FDataSourceType = std::int32_t{0};
    entry.FDataSource = caption + u";1";
    const metadata::FieldRecord field(tests::record({}));
    const std::u16string list = BuildValueList(entry, field, {source, *this, u""});
    EXPECT_EQ(list, std::u16string(255, u'长') + caption + u";1");
}

TEST_F(ValueLists, ShowTheFirstColumnOfAQueryAndKeepTheSecond) {
    source->rows = {{u"红", u"R"}, {u"绿", u"G"}};
    EXPECT_EQ(build(1, u"SELECT FName, FCode FROM t_Color"), (Items{"红=R", "绿=G"}));
    EXPECT_EQ(source->sql, u"SELECT FName, FCode FROM t_Color");
    EXPECT_EQ(source->argumentCount, 1U);
    source->rows = {{u"红", u"R"}, {u"绿"}, {u"蓝", u"B"}};
    EXPECT_EQ(build(1, u"SELECT ..."), (Items{"红=R"})) << "a missing column ends the list there";
    EXPECT_EQ(failure, u"no column");
    source->fails = true;
    EXPECT_EQ(build(1, u"SELECT ..."), Items{});
    EXPECT_EQ(failure, u"no connection");
}

TEST_F(ValueLists, AskForTheDistinctValuesOfTheFieldsColumn) {
    source->rows = {{u"北京"}};
    EXPECT_EQ(build(2, u"ignored"), Items{}) << "a query of one column lists nothing";
    EXPECT_EQ(source->sql, u"SELECT DISTINCT t.FName FROM  t_Item t");
}

TEST_F(ValueLists, ReplaceTheClassTypeInAQuery) {
    source->rows = {{u"甲", u"1"}};
    EXPECT_EQ(build(4, u"SELECT a, b FROM c WHERE d=@fclasstypeid OR e=@FClassTypeID", u"@fClassTypeId;"),
              (Items{"甲=1"}));
    EXPECT_EQ(source->sql, u"SELECT a, b FROM c WHERE d=1000201 OR e=1000201");
    EXPECT_EQ(build(4, u"SELECT 1", u"@FClassTypeID;@FOther"), Items{});
    EXPECT_EQ(failure, u"动态构造取数SQL错误：参数中使用了未知的变量 @FOther");
}

TEST_F(ValueLists, ReadTheFieldsOwnLookUpList) {
    EXPECT_EQ(build(3, u"", u"", u"VALUELIST{1=现金,2=支票}"), (Items{"现金=1", "支票=2"}));
    EXPECT_EQ(build(3, u"", u"", u"OTHER{1=现金}"), Items{});
    EXPECT_EQ(build(3, u"", u"", u""), Items{});
    source->rows = {{u"R", u"红"}};
    EXPECT_EQ(build(3, u"", u"", u"SQL{SELECT FCode, FName FROM t_Color}tail"), (Items{"红=R"}))
        << "here the second column is shown";
    EXPECT_EQ(source->sql, u"SELECT FCode, FName FROM t_Color");
    EXPECT_EQ(source->argumentCount, 2U) << "the class information wants the user properties, too";
}

TEST_F(ValueLists, CutALookUpQueryAfter101Records) {
    for (int i = 1; i <= 150; ++i) {
        const std::u16string number = automation::numberToText(i);
        source->rows.push_back({number, u"n" + number});
    }
    const Items items = build(3, u"", u"", u"SQL{SELECT 1}");
    ASSERT_EQ(items.size(), 101U);
    EXPECT_EQ(items.back(), "n101=101");
}

} // namespace
} // namespace orv::editor
