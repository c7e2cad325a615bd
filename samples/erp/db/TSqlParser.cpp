#include "erp/db/TSqlParser.h"

#include "automation/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace orv::erp {

namespace {

/// Words that cannot be the name of a column, a table or an alias.
bool isReserved(const Token& token) {
    static constexpr std::array<std::string_view, 50> words = {
        "all",    "and",    "any",      "as",   "asc",   "begin",  "between",   "by",     "case",  "cross",
        "delete", "desc",   "distinct", "else", "end",   "except", "exec",      "exists", "from",  "full",
        "group",  "having", "if",       "in",   "inner", "insert", "intersect", "into",   "is",    "join",
        "left",   "like",   "not",      "null", "on",    "or",     "order",     "outer",  "over",  "percent",
        "right",  "select", "set",      "then", "top",   "union",  "update",    "values", "where", "with"};
    return std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.isWord(word); });
}

} // namespace

Translation translate(std::u16string_view tsql, const Catalogue& catalogue, std::span<const SqlType> parameterTypes) {
    return TSqlParser(tokenize(tsql), catalogue, parameterTypes).statement();
}

TSqlParser::TSqlParser(std::vector<Token> tokens, const Catalogue& catalogue, std::span<const SqlType> parameterTypes)
    : tokens_(std::move(tokens)), closing_(tokens_.size()), catalogue_(catalogue), parameterTypes_(parameterTypes) {
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
        if (tokens_[i].isSymbol("("))
            open.push_back(i);
        if (tokens_[i].isSymbol(")") && !open.empty()) {
            closing_[open.back()] = i;
            open.pop_back();
        }
    }
}

Translation TSqlParser::statement() {
    Translation translation;
    if (peek().isWord("select")) {
        Select query = select();
        translation = {std::move(query.sql), true, std::move(query.columns)};
    } else if (acceptWord("insert")) {
        translation.sql = insertStatement();
    } else if (acceptWord("update")) {
        translation.sql = updateStatement();
    } else if (acceptWord("delete")) {
        translation.sql = deleteStatement();
    } else {
        failHere();
    }
    if (peek().kind != TokenKind::end)
        failHere();
    if (parametersUsed_ != parameterTypes_.size())
        fail(sqlError::command, "The statement has " + std::to_string(parametersUsed_) + " parameters, but " +
                                    std::to_string(parameterTypes_.size()) + " values were given.");
    return translation;
}

const Token& TSqlParser::peek(std::size_t ahead) const {
    return tokens_[std::min(at_ + ahead, tokens_.size() - 1)];
}

Token TSqlParser::take() {
    const Token& token = peek();
    if (token.kind == TokenKind::end)
        failHere();
    ++at_;
    return token;
}

bool TSqlParser::acceptWord(std::string_view keyword) {
    if (!peek().isWord(keyword))
        return false;
    ++at_;
    return true;
}

bool TSqlParser::acceptSymbol(std::string_view symbol) {
    if (!peek().isSymbol(symbol))
        return false;
    ++at_;
    return true;
}

void TSqlParser::expectWord(std::string_view keyword) {
    if (!acceptWord(keyword))
        failHere();
}

void TSqlParser::expectSymbol(std::string_view symbol) {
    if (!acceptSymbol(symbol))
        failHere();
}

bool TSqlParser::atName() const {
    return peek().kind == TokenKind::quotedName || (peek().kind == TokenKind::name && !isReserved(peek()));
}

std::string TSqlParser::takeName() {
    if (!atName())
        failHere();
    return take().content;
}

int TSqlParser::takeWholeNumber() {
    const Token& token = peek();
    int value = 0;
    const char* end = token.content.data() + token.content.size();
    const auto [stop, fault] = std::from_chars(token.content.data(), end, value);
    if (token.kind != TokenKind::number || fault != std::errc{} || stop != end)
        failHere();
    ++at_;
    return value;
}

std::size_t TSqlParser::closingBracket(std::size_t open) const {
    if (closing_[open] == 0)
        fail(sqlError::command, "Incorrect syntax: a bracket is not closed.");
    return closing_[open];
}

void TSqlParser::failHere() const {
    const Token& token = peek();
    if (token.kind == TokenKind::end)
        fail(sqlError::command, "Incorrect syntax: the statement ends too early.");
    fail(sqlError::command, (isReserved(token) ? "Incorrect syntax near the keyword '" : "Incorrect syntax near '") +
                                token.content + "'.");
}

void TSqlParser::fail(std::int32_t number, const std::string& description) {
    throw makeSqlError(number, automation::fromUtf8(description));
}

} // namespace orv::erp
