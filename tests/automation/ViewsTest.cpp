#include "automation/Views.h"

#include "ErrorOf.h"
#include "automation/Coercion.h"

#include <gtest/gtest.h>

#include <memory>
#include <utility>
#include <vector>

namespace orv::automation::tests {
namespace {

/// A recordset of one column, "FName", with the values given.
class Rows final : public Object {
  public:
    explicit Rows(std::vector<Value> values) : values_(std::move(values)) {}
    Value invoke(std::u16string_view member, InvokeKind kind, Arguments arguments) override {
        if (member == u"EOF" && kind == InvokeKind::get)
            return Value(row_ >= values_.size());
        if (member == u"RecordCount" && kind == InvokeKind::get)
            return Value(static_cast<std::int32_t>(values_.size()));
        if (member == u"MoveNext" && kind == InvokeKind::method)
            return ++row_, Value();
        if (member == u"Filter" && kind == InvokeKind::let)
            return values_.assign(1, arguments[0].value()), Value();
        if (member == u"Fields" && (arguments[0].value() == Value(u"FName") || arguments[0].value() == Value(0)))
            return Value(ObjectRef(std::make_shared<Column>(values_.at(row_))));
        throw AutomationError::runtime(errorNumber::memberNotFound);
    }

  private:
    class Column final : public Object {
      public:
        explicit Column(Value value) : value_(std::move(value)) {}
        Value invoke(std::u16string_view member, InvokeKind, Arguments) override {
            return member == u"Value" ? value_ : throw AutomationError::runtime(errorNumber::memberNotFound);
        }

      private:
        Value value_;
    };
    std::vector<Value> values_;
    std::size_t row_ = 0;
};

TEST(Recordset, IsReadForwardByNameOrPosition) {
    const Recordset rows(std::make_shared<Rows>(std::vector<Value>{u"a", Null{}}));
    EXPECT_EQ(rows.recordCount(), 2);
    EXPECT_FALSE(rows.eof());
    EXPECT_EQ(rows.field(u"FName"), Value(u"a"));
    rows.moveNext();
    EXPECT_EQ(rows.field(0), Value(Null{}));
    rows.moveNext();
    EXPECT_TRUE(rows.eof());
    EXPECT_EQ(errorOf([&] { rows.field(u"FNumber"); }), errorNumber::memberNotFound);
    rows.setFilter(u"FName='b'");
    EXPECT_EQ(rows.recordCount(), 1);
}

TEST(Argument, WritesBackWhatComesByReference) {
    class Doubler final : public Object {
      public:
        Value invoke(std::u16string_view, InvokeKind, Arguments arguments) override {
            for (Argument& argument : arguments)
                argument.assign(toNumber(argument.value()) * 2);
            return Value(arguments[0].isByReference());
        }
    };
    Value variable(4.0);
    const Value other(4.0);
    EXPECT_EQ(call(std::make_shared<Doubler>(), u"Double", Argument::byReference(variable), other), Value(true));
    EXPECT_EQ(variable, Value(8.0));
    EXPECT_EQ(other, Value(4.0));
}

} // namespace
} // namespace orv::automation::tests
