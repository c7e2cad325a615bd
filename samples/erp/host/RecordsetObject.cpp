#include "erp/host/RecordsetObject.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "erp/host/RecordFilter.h"

#include <numeric>

namespace orv::erp {

using automation::Arguments;
using automation::AutomationError;
using automation::ObjectRef;
using automation::Value;

namespace {

AutomationError adoFailure(std::int32_t number) {
    const char16_t* text = number == adoError::noCurrentRecord ? u"BOF 或 EOF 中有一个是“真”，或者当前的记录已被删除"
                           : number == adoError::itemNotFound ? u"在对应所需名称或序数的集合中，未找到项目"
                           : number == adoError::wrongArgument
                               ? u"变量类型不正确、不在可以接受的范围之内或与其它数据冲突"
                               : u"对象关闭时，不允许操作";
    return {number, u"ADODB.Recordset", text};
}

/// One column; it shows the record on which the recordset stands.
class FieldObject final : public MemberObject {
  public:
    FieldObject(std::shared_ptr<RecordsetObject> owner, std::size_t column)
        : owner_(std::move(owner)), column_(column) {}
    std::span<const Member> members() const override {
        static constexpr Member table[] = {
            asDefault(readOnly<&FieldObject::value>(u"Value")),
            readOnly<&FieldObject::name>(u"Name"),
        };
        return table;
    }
    std::u16string_view typeName() const override { return u"ADODB.Field"; }

  private:
    Value value(Arguments) { return owner_->currentValue(column_); }
    Value name(Arguments) { return owner_->columnName(column_); }

    std::shared_ptr<RecordsetObject> owner_;
    std::size_t column_;
};

/// All columns.
class FieldsObject final : public MemberObject {
  public:
    explicit FieldsObject(std::shared_ptr<RecordsetObject> owner) : owner_(std::move(owner)) {}
    std::span<const Member> members() const override {
        static constexpr Member table[] = {
            asDefault(readOnly<&FieldsObject::item>(u"Item", 1, 1)),
            readOnly<&FieldsObject::count>(u"Count"),
        };
        return table;
    }
    std::u16string_view typeName() const override { return u"ADODB.Fields"; }

  private:
    Value item(Arguments arguments) {
        return ObjectRef(std::make_shared<FieldObject>(owner_, owner_->columnOf(arguments[0].value())));
    }
    Value count(Arguments) { return static_cast<std::int32_t>(owner_->columnCount()); }

    std::shared_ptr<RecordsetObject> owner_;
};

} // namespace

std::shared_ptr<RecordsetObject> RecordsetObject::make(ResultSet content) {
    return std::shared_ptr<RecordsetObject>(new RecordsetObject(std::move(content)));
}

RecordsetObject::RecordsetObject(ResultSet content)
    : content_(std::make_shared<const ResultSet>(std::move(content))), selected_(content_->rows.size()),
      filter_(std::u16string()) {
    std::iota(selected_.begin(), selected_.end(), std::size_t{0});
}

std::span<const Member> RecordsetObject::members() const {
    static constexpr Member table[] = {
        asDefault(readOnly<&RecordsetObject::fields>(u"Fields", 0, 1)),
        readOnly<&RecordsetObject::collect>(u"Collect", 1, 1),
        readOnly<&RecordsetObject::recordCount>(u"RecordCount"),
        readOnly<&RecordsetObject::eof>(u"EOF"),
        readOnly<&RecordsetObject::bof>(u"BOF"),
        method<&RecordsetObject::moveFirst>(u"MoveFirst", 0),
        method<&RecordsetObject::moveNext>(u"MoveNext", 0),
        method<&RecordsetObject::movePrevious>(u"MovePrevious", 0),
        method<&RecordsetObject::moveLast>(u"MoveLast", 0),
        property<&RecordsetObject::getPosition, &RecordsetObject::setPosition>(u"AbsolutePosition"),
        property<&RecordsetObject::getFilter, &RecordsetObject::setFilter>(u"Filter"),
        method<&RecordsetObject::close>(u"Close", 0),
        readOnly<&RecordsetObject::state>(u"State"),
    };
    return table;
}

std::size_t RecordsetObject::columnOf(const Value& nameOrPosition) const {
    expectOpen();
    if (const auto* name = nameOrPosition.getIf<std::u16string>()) {
        for (std::size_t column = 0; column < content_->columns.size(); ++column)
            if (automation::sameMember(content_->columns[column], *name))
                return column;
        throw adoFailure(adoError::itemNotFound);
    }
    const std::int32_t position = automation::toInt32(nameOrPosition);
    if (position < 0 || static_cast<std::size_t>(position) >= content_->columns.size())
        throw adoFailure(adoError::itemNotFound);
    return static_cast<std::size_t>(position);
}

const Value& RecordsetObject::currentValue(std::size_t column) const {
    expectOpen();
    if (position_ < 0 || static_cast<std::size_t>(position_) >= selected_.size())
        throw adoFailure(adoError::noCurrentRecord);
    return content_->rows[selected_[static_cast<std::size_t>(position_)]][column];
}

void RecordsetObject::expectOpen() const {
    if (!content_)
        throw adoFailure(adoError::objectClosed);
}

Value RecordsetObject::fields(Arguments arguments) {
    expectOpen();
    const auto self = std::static_pointer_cast<RecordsetObject>(shared_from_this());
    if (arguments.empty())
        return ObjectRef(std::make_shared<FieldsObject>(self));
    return ObjectRef(std::make_shared<FieldObject>(self, columnOf(arguments[0].value())));
}

Value RecordsetObject::collect(Arguments arguments) {
    return currentValue(columnOf(arguments[0].value()));
}

Value RecordsetObject::recordCount(Arguments) {
    expectOpen();
    return static_cast<std::int32_t>(selected_.size());
}

Value RecordsetObject::eof(Arguments) {
    expectOpen();
    return static_cast<std::size_t>(position_) == selected_.size() || selected_.empty();
}

Value RecordsetObject::bof(Arguments) {
    expectOpen();
    return position_ < 0 || selected_.empty();
}

void RecordsetObject::moveFirst(Arguments) {
    expectOpen();
    if (selected_.empty())
        throw adoFailure(adoError::noCurrentRecord);
    position_ = 0;
}

void RecordsetObject::moveNext(Arguments) {
    expectOpen();
    if (selected_.empty() || static_cast<std::size_t>(position_) == selected_.size())
        throw adoFailure(adoError::noCurrentRecord);
    ++position_;
}

void RecordsetObject::movePrevious(Arguments) {
    expectOpen();
    if (selected_.empty() || position_ < 0)
        throw adoFailure(adoError::noCurrentRecord);
    --position_;
}

void RecordsetObject::moveLast(Arguments) {
    expectOpen();
    if (selected_.empty())
        throw adoFailure(adoError::noCurrentRecord);
    position_ = static_cast<std::ptrdiff_t>(selected_.size()) - 1;
}

/// 1-based; ADO's -2 stands for BOF, -3 for EOF, -1 for a recordset without records.
Value RecordsetObject::getPosition(Arguments) {
    expectOpen();
    if (selected_.empty())
        return std::int32_t{-1};
    if (position_ < 0)
        return std::int32_t{-2};
    return static_cast<std::size_t>(position_) == selected_.size() ? std::int32_t{-3}
                                                                   : static_cast<std::int32_t>(position_ + 1);
}

void RecordsetObject::setPosition(Arguments arguments) {
    expectOpen();
    const std::int32_t position = automation::toInt32(arguments[0].value());
    if (position < 1 || static_cast<std::size_t>(position) > selected_.size())
        throw adoFailure(adoError::wrongArgument);
    position_ = position - 1;
}

Value RecordsetObject::getFilter(Arguments) {
    return filter_;
}

void RecordsetObject::setFilter(Arguments arguments) {
    expectOpen();
    const Value& wanted = arguments[0].value();
    // 0 and the empty text both mean no filter.
    const std::u16string criterion =
        wanted.isText() || automation::toNumber(wanted) != 0 ? automation::toText(wanted) : std::u16string();
    const RecordFilter filter(criterion, content_->columns);
    std::vector<std::size_t> selected;
    for (std::size_t row = 0; row < content_->rows.size(); ++row)
        if (filter.accepts(content_->rows[row]))
            selected.push_back(row);
    selected_ = std::move(selected);
    position_ = 0;
    filter_ = criterion;
}

void RecordsetObject::close(Arguments) {
    expectOpen();
    content_.reset();
    selected_.clear();
}

Value RecordsetObject::state(Arguments) {
    return content_ ? std::int32_t{1} : std::int32_t{0};
}

} // namespace orv::erp
