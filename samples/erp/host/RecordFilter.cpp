#include "erp/host/RecordFilter.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/Object.h"
#include "erp/host/RecordsetObject.h"
#include "support/Letters.h"

#include <algorithm>
#include <compare>
#include <optional>

namespace orv::erp {

using automation::AutomationError;
using automation::Value;
using Comparison = RecordFilter::Comparison;
using Operation = RecordFilter::Operation;

namespace {

[[noreturn]] void failParsing() {
    throw AutomationError(adoError::wrongArgument, u"ADODB.Recordset",
                          u"参数类型不正确，或不在可以接受的范围之内，或与其他参数冲突");
}

bool isNameUnit(char16_t unit) {
    return unit == u'_' || unit == u'.' || (unit >= u'0' && unit <= u'9') || (unit >= u'a' && unit <= u'z') ||
           (unit >= u'A' && unit <= u'Z') || unit > 0x7F;
}

std::partial_ordering compare(const Value& left, const Value& right) {
    if (right.isText() || left.isText()) {
        const std::u16string a = support::toUpper(automation::toText(left));
        const std::u16string b = support::toUpper(automation::toText(right));
        return a.compare(b) <=> 0;
    }
    return automation::toNumber(left) <=> automation::toNumber(right);
}

/// "*" and "%" stand for any characters at either end of the pattern.
bool isLike(std::u16string text, std::u16string pattern) {
    text = support::toUpper(text);
    pattern = support::toUpper(pattern);
    const auto isWildcard = [](char16_t unit) { return unit == u'*' || unit == u'%'; };
    std::u16string_view core = pattern;
    const bool openStart = !core.empty() && isWildcard(core.front());
    if (openStart)
        core.remove_prefix(1);
    const bool openEnd = !core.empty() && isWildcard(core.back());
    if (openEnd)
        core.remove_suffix(1);
    if (openStart && openEnd)
        return text.find(core) != std::u16string::npos;
    if (openStart)
        return text.ends_with(core);
    return openEnd ? text.starts_with(core) : text == core;
}

bool holds(const Comparison& comparison, const Value& cell) {
    if (comparison.value.isMissing())
        return false;
    if (comparison.value.isNull() || cell.isNull()) {
        const bool bothNull = comparison.value.isNull() && cell.isNull();
        return comparison.operation == Operation::equal      ? bothNull
               : comparison.operation == Operation::notEqual ? !bothNull && comparison.value.isNull()
                                                             : false;
    }
    if (comparison.operation == Operation::like)
        return isLike(automation::toText(cell), automation::toText(comparison.value));
    const auto order = compare(cell, comparison.value);
    switch (comparison.operation) {
    case Operation::equal:
        return order == 0;
    case Operation::notEqual:
        return order != 0;
    case Operation::less:
        return order < 0;
    case Operation::lessOrEqual:
        return order <= 0;
    case Operation::greater:
        return order > 0;
    case Operation::greaterOrEqual:
        return order >= 0;
    case Operation::like:
        break;
    }
    return false;
}

} // namespace

/// Recursive descent; brackets are multiplied out, so that the result is a list of alternatives.
class RecordFilterParser {
  public:
    RecordFilterParser(std::u16string_view text, const std::vector<std::u16string>& columns)
        : text_(text), columns_(columns) {}

    RecordFilter::Alternatives parse() {
        auto result = parseOr();
        skipBlanks();
        if (position_ != text_.size())
            failParsing();
        return result;
    }

  private:
    using Alternatives = RecordFilter::Alternatives;
    static constexpr std::size_t mostAlternatives = 1000;
    static constexpr int deepestBrackets = 50;

    Alternatives parseOr() {
        Alternatives all = parseAnd();
        while (takeWord(u"OR"))
            for (auto& further : parseAnd())
                all.push_back(std::move(further));
        return all;
    }

    Alternatives parseAnd() {
        Alternatives all = parseItem();
        while (takeWord(u"AND")) {
            const Alternatives right = parseItem();
            if (all.size() * right.size() > mostAlternatives)
                failParsing();
            Alternatives product;
            for (const auto& a : all)
                for (const auto& b : right) {
                    auto& both = product.emplace_back(a);
                    both.insert(both.end(), b.begin(), b.end());
                }
            all = std::move(product);
        }
        return all;
    }

    Alternatives parseItem() {
        if (!take(u"("))
            return {{parseComparison()}};
        if (++brackets_ > deepestBrackets)
            failParsing();
        Alternatives inner = parseOr();
        if (!take(u")"))
            failParsing();
        --brackets_;
        return inner;
    }

    Comparison parseComparison() {
        Comparison comparison;
        comparison.column = parseColumn();
        comparison.operation = parseOperation();
        comparison.value = parseValue();
        return comparison;
    }

    std::size_t parseColumn() {
        std::u16string_view name;
        if (take(u"[")) {
            const std::size_t end = text_.find(u']', position_);
            if (end == std::u16string_view::npos)
                failParsing();
            name = text_.substr(position_, end - position_);
            position_ = end + 1;
        } else {
            name = takeName();
        }
        const auto found = std::ranges::find_if(
            columns_, [name](const std::u16string& column) { return automation::sameMember(column, name); });
        if (found == columns_.end())
            failParsing();
        return static_cast<std::size_t>(found - columns_.begin());
    }

    Operation parseOperation() {
        // The longer signs first: "<=" must not be read as "<".
        static constexpr std::pair<std::u16string_view, Operation> signs[] = {
            {u"<=", Operation::lessOrEqual}, {u">=", Operation::greaterOrEqual},
            {u"<>", Operation::notEqual},    {u"=", Operation::equal},
            {u"<", Operation::less},         {u">", Operation::greater},
        };
        for (const auto& [sign, operation] : signs)
            if (take(sign))
                return operation;
        if (takeWord(u"LIKE"))
            return Operation::like;
        failParsing();
    }

    Value parseValue() {
        skipBlanks();
        if (position_ == text_.size() || text_[position_] == u')' || isWord(u"AND") || isWord(u"OR"))
            return automation::Missing{};
        if (take(u"'"))
            return parseText();
        if (take(u"#")) {
            const std::size_t end = text_.find(u'#', position_);
            if (end == std::u16string_view::npos)
                failParsing();
            const std::u16string date(text_.substr(position_, end - position_));
            position_ = end + 1;
            if (!automation::isDate(date))
                failParsing();
            return automation::toDate(date);
        }
        if (takeWord(u"Null"))
            return automation::Null{};
        if (takeWord(u"True"))
            return true;
        if (takeWord(u"False"))
            return false;
        return parseNumber();
    }

    Value parseText() {
        std::u16string content;
        for (;;) {
            if (position_ == text_.size())
                failParsing();
            const char16_t unit = text_[position_++];
            if (unit != u'\'') {
                content += unit;
            } else if (position_ < text_.size() && text_[position_] == u'\'') {
                content += unit;
                ++position_;
            } else {
                return content;
            }
        }
    }

    Value parseNumber() {
        const std::size_t start = position_;
        if (position_ < text_.size() && (text_[position_] == u'-' || text_[position_] == u'+'))
            ++position_;
        while (position_ < text_.size() && isNameUnit(text_[position_]))
            ++position_;
        const std::u16string_view literal = text_.substr(start, position_ - start);
        if (literal.find_first_not_of(u"+-0123456789.") != std::u16string_view::npos || !automation::isNumeric(literal))
            failParsing();
        return automation::toNumber(Value(literal));
    }

    void skipBlanks() {
        while (position_ < text_.size() && text_[position_] == u' ')
            ++position_;
    }

    bool take(std::u16string_view sign) {
        skipBlanks();
        if (!text_.substr(position_).starts_with(sign))
            return false;
        position_ += sign.size();
        return true;
    }

    bool isWord(std::u16string_view word) {
        skipBlanks();
        const std::size_t end = position_ + word.size();
        return automation::sameMember(text_.substr(position_, word.size()), word) &&
               (end >= text_.size() || !isNameUnit(text_[end]));
    }

    bool takeWord(std::u16string_view word) {
        if (!isWord(word))
            return false;
        position_ += word.size();
        return true;
    }

    std::u16string_view takeName() {
        skipBlanks();
        const std::size_t start = position_;
        while (position_ < text_.size() && isNameUnit(text_[position_]))
            ++position_;
        if (position_ == start)
            failParsing();
        return text_.substr(start, position_ - start);
    }

    std::u16string_view text_;
    const std::vector<std::u16string>& columns_;
    std::size_t position_ = 0;
    int brackets_ = 0;
};

RecordFilter::RecordFilter(std::u16string_view criterion, const std::vector<std::u16string>& columns)
    : everything_(criterion.find_first_not_of(u' ') == std::u16string_view::npos) {
    if (!everything_)
        alternatives_ = RecordFilterParser(criterion, columns).parse();
}

bool RecordFilter::accepts(const std::vector<Value>& row) const {
    return everything_ || std::ranges::any_of(alternatives_, [&row](const auto& all) {
               return std::ranges::all_of(
                   all, [&row](const Comparison& comparison) { return holds(comparison, row[comparison.column]); });
           });
}

} // namespace orv::erp
