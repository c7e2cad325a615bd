#include "erp/db/TSqlParser.h"

#include "automation/Text.h"

#include <algorithm>
#include <charconv>

// Values: literals, columns, functions, arithmetic.
namespace orv::erp {

Typed TSqlParser::expression() {
    const Depth depth(*this);
    Typed left = product();
    while (peek().isSymbol("+") || peek().isSymbol("-")) {
        const char operation = take().content.front();
        left = arithmetic(left, operation, product());
    }
    return left;
}

Typed TSqlParser::product() {
    Typed left = factor();
    while (acceptSymbol("*"))
        left = arithmetic(left, '*', factor());
    return left;
}

Typed TSqlParser::arithmetic(const Typed& left, char operation, const Typed& right) {
    const SqlType common = commonType(left.type, right.type);
    if (common.is(SqlKind::text) && operation == '+')
        return {"(" + left.sql + " || " + right.sql + ")", SqlType{SqlKind::text}, {}};
    if (!common.isNumber())
        fail(sqlError::command, std::string("The operator '") + operation + "' is not accepted for these data types.");
    const SqlType integer{SqlKind::integer};
    const SqlType operand = common.is(SqlKind::bit) ? integer : common;
    const std::string sql =
        "(" + convertImplicit(left, operand) + " " + operation + " " + convertImplicit(right, operand) + ")";
    if (operand.is(SqlKind::integer))
        return {sql, operand, {}};
    // Decimals are doubles underneath: rounding takes away what binary fractions add.
    SqlType result = operand;
    if (operation == '*')
        result.scale = left.type.scale + right.type.scale;
    return {"round(" + sql + ", " + std::to_string(result.scale) + ")", result, {}};
}

Typed TSqlParser::factor() {
    while (acceptSymbol("+")) {
    }
    if (acceptSymbol("-")) {
        const Depth depth(*this);
        const Typed value = factor();
        if (!value.type.isNumber())
            fail(sqlError::command, "The operator '-' is not accepted for this data type.");
        return {"(-" + value.sql + ")", value.type, {}};
    }
    const Token& token = peek();
    switch (token.kind) {
    case TokenKind::number:
        return number();
    case TokenKind::text:
        return text();
    case TokenKind::parameter:
        return parameter();
    default:
        break;
    }
    if (acceptWord("null"))
        return {"NULL", SqlType{}, {}};
    if (token.isSymbol("(")) {
        if (peek(1).isWord("select"))
            return scalarSelect();
        ++at_;
        Typed inner = expression();
        expectSymbol(")");
        return {"(" + inner.sql + ")", inner.type, {}};
    }
    return token.kind == TokenKind::name && peek(1).isSymbol("(") ? call() : column();
}

Typed TSqlParser::text() {
    const std::string content = take().content;
    const std::size_t length = automation::fromUtf8(content).size();
    // The shortest text type of the server has one character.
    return {quoteText(content), SqlType{SqlKind::text, static_cast<int>(std::max<std::size_t>(length, 1))}, {}};
}

Typed TSqlParser::number() {
    const std::string digits = take().content;
    const auto point = digits.find('.');
    const auto exponent = digits.find('E');
    if (point == std::string::npos && exponent == std::string::npos) {
        int value = 0;
        const bool fits = std::from_chars(digits.data(), digits.data() + digits.size(), value).ec == std::errc{};
        // Beyond 32 bits a whole number is a decimal.
        return {fits ? digits : digits + ".0", SqlType{fits ? SqlKind::integer : SqlKind::decimal}, {}};
    }
    const std::size_t decimals = point == std::string::npos ? 0 : std::min(exponent, digits.size()) - point - 1;
    const int scale = exponent != std::string::npos ? 10 : static_cast<int>(std::min<std::size_t>(decimals, 28));
    return {digits, SqlType{SqlKind::decimal, 0, false, scale}, {}};
}

Typed TSqlParser::parameter() {
    take();
    if (parametersUsed_ == parameterTypes_.size())
        fail(sqlError::command, "The statement has more parameters than values were given.");
    const SqlType& type = parameterTypes_[parametersUsed_++];
    return {"?" + std::to_string(parametersUsed_), type, {}};
}

Typed TSqlParser::column() {
    std::string name = takeName();
    std::string alias;
    if (acceptSymbol(".")) {
        alias = std::move(name);
        name = takeName();
    }
    for (const Scope* scope = scope_; scope != nullptr; scope = scope->outer) {
        const Source* home = nullptr;
        const ColumnInfo* found = nullptr;
        for (const Source& source : scope->sources) {
            if (!alias.empty() && !sameName(source.alias, alias))
                continue;
            const ColumnInfo* candidate = source.table->find(name);
            if (candidate != nullptr && found != nullptr)
                fail(sqlError::command, "Ambiguous column name '" + name + "'.");
            if (candidate != nullptr) {
                found = candidate;
                home = &source;
            }
        }
        if (found != nullptr) {
            if (!scope_->insideAggregate)
                ++scope_->plainColumns;
            return {quoteName(home->alias) + "." + quoteName(found->name), found->type, found->name};
        }
    }
    if (!alias.empty())
        fail(sqlError::command, "The multi-part identifier \"" + alias + "." + name + "\" could not be bound.");
    fail(sqlError::command, "Invalid column name '" + name + "'.");
}

Typed TSqlParser::call() {
    const Token name = peek();
    if (name.isWord("convert"))
        return convertCall();
    if (name.isWord("cast"))
        return castCall();
    if (name.isWord("isnull"))
        return isnullCall();
    if (name.isWord("getdate")) {
        at_ += 2;
        expectSymbol(")");
        return {"tsql_now()", SqlType{SqlKind::datetime}, {}};
    }
    for (const char* known : {"count", "sum", "min", "max"}) {
        if (name.isWord(known))
            return aggregate(known);
    }
    fail(sqlError::command, "'" + name.content + "' is not an accepted function.");
}

SqlType TSqlParser::typeName() {
    const std::string name = takeName();
    std::optional<int> first;
    std::optional<int> second;
    if (acceptSymbol("(")) {
        first = takeWholeNumber();
        if (acceptSymbol(","))
            second = takeWholeNumber();
        expectSymbol(")");
    }
    const auto type = makeType(name, first, second);
    if (!type)
        fail(sqlError::command, "Type " + name + " is not an accepted data type.");
    return *type;
}

Typed TSqlParser::convertCall() {
    at_ += 2;
    const SqlType target = typeName();
    expectSymbol(",");
    const Typed value = expression();
    std::optional<int> style;
    if (acceptSymbol(","))
        style = takeWholeNumber();
    expectSymbol(")");
    return {convertExplicit(value, target, style), target, {}};
}

Typed TSqlParser::castCall() {
    at_ += 2;
    const Typed value = expression();
    expectWord("as");
    const SqlType target = typeName();
    expectSymbol(")");
    return {convertExplicit(value, target, std::nullopt), target, {}};
}

Typed TSqlParser::isnullCall() {
    at_ += 2;
    const Typed value = expression();
    expectSymbol(",");
    const Typed fallback = expression();
    expectSymbol(")");
    // The result has the type of the first argument; a longer text is cut to its length.
    const SqlType type = value.type.is(SqlKind::null) ? fallback.type : value.type;
    const std::string other = type.is(SqlKind::text)
                                  ? convertExplicit(fallback, {SqlKind::text, type.length}, std::nullopt)
                                  : convertImplicit(fallback, type);
    return {"ifnull(" + value.sql + ", " + other + ")", type, {}};
}

Typed TSqlParser::aggregate(const std::string& name) {
    at_ += 2;
    if (scope_->insideAggregate)
        fail(sqlError::command, "An aggregate must not stand inside of another one.");
    ++scope_->aggregates;
    scope_->insideAggregate = true;
    if (name == "count" && acceptSymbol("*")) {
        expectSymbol(")");
        scope_->insideAggregate = false;
        return {"count(*)", SqlType{SqlKind::integer}, {}};
    }
    const bool distinct = acceptWord("distinct");
    const Typed value = expression();
    scope_->insideAggregate = false;
    expectSymbol(")");
    const std::string sql = name + (distinct ? "(DISTINCT " : "(") + collated(value.sql, value.type) + ")";
    if (name == "count")
        return {sql, SqlType{SqlKind::integer}, {}};
    if (name != "sum")
        return {sql, value.type, {}};
    if (!value.type.is(SqlKind::integer) && !value.type.is(SqlKind::decimal))
        fail(sqlError::command, "Operand data type is invalid for sum.");
    return {value.type.is(SqlKind::decimal) ? "round(" + sql + ", " + std::to_string(value.type.scale) + ")" : sql,
            value.type,
            {}};
}

Typed TSqlParser::scalarSelect() {
    expectSymbol("(");
    const Select query = select();
    expectSymbol(")");
    if (query.columns.size() != 1)
        fail(sqlError::command, "Only one expression can be specified in the select list of a sub-select.");
    return {"(" + query.sql + ")", query.columns.front().type, {}};
}

} // namespace orv::erp
