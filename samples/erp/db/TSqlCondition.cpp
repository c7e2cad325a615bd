#include "erp/db/TSqlParser.h"

#include <algorithm>
#include <array>

// Search conditions.
namespace orv::erp {

namespace {

/// T-SQL's comparison operators and SQLite's.
struct Comparison {
    std::string_view tsql, sqlite;
};
constexpr std::array<Comparison, 9> comparisons = {{{"=", "="},
                                                    {"<>", "<>"},
                                                    {"!=", "<>"},
                                                    {"<", "<"},
                                                    {"<=", "<="},
                                                    {">", ">"},
                                                    {">=", ">="},
                                                    {"!<", ">="},
                                                    {"!>", "<="}}};

const Comparison* findComparison(const Token& token) {
    const auto found = std::find_if(comparisons.begin(), comparisons.end(),
                                    [&](const Comparison& known) { return token.isSymbol(known.tsql); });
    return found == comparisons.end() ? nullptr : &*found;
}

bool marksCondition(const Token& token) {
    static constexpr std::array<std::string_view, 8> words = {"and",  "or",      "not", "in",
                                                              "like", "between", "is",  "exists"};
    return findComparison(token) != nullptr ||
           std::any_of(words.begin(), words.end(), [&](std::string_view word) { return token.isWord(word); });
}

} // namespace

std::string TSqlParser::condition() {
    const Depth depth(*this);
    std::string sql = conjunction();
    while (acceptWord("or"))
        sql += " OR " + conjunction();
    return sql;
}

std::string TSqlParser::conjunction() {
    std::string sql = negation();
    while (acceptWord("and"))
        sql += " AND " + negation();
    return sql;
}

std::string TSqlParser::negation() {
    if (acceptWord("not"))
        return "NOT (" + predicate() + ")";
    return predicate();
}

/// Whether the bracket at `open` holds a condition and not a value: a comparison stands in it, or another such
/// bracket is all that it holds.
bool TSqlParser::opensCondition(std::size_t open) const {
    for (;;) {
        const std::size_t close = closingBracket(open);
        if (tokens_[open + 1].isWord("select"))
            return false;
        for (std::size_t i = open + 1; i < close; ++i) {
            if (tokens_[i].isSymbol("("))
                i = closingBracket(i);
            else if (marksCondition(tokens_[i]))
                return true;
        }
        if (!tokens_[open + 1].isSymbol("(") || closingBracket(open + 1) != close - 1)
            return false;
        ++open;
    }
}

std::string TSqlParser::predicate() {
    if (acceptWord("exists")) {
        expectSymbol("(");
        const Select query = select();
        expectSymbol(")");
        return "EXISTS (" + query.sql + ")";
    }
    if (peek().isSymbol("(") && opensCondition(at_)) {
        ++at_;
        const std::string inner = condition();
        expectSymbol(")");
        return "(" + inner + ")";
    }
    const Typed operand = expression();
    if (const Comparison* found = findComparison(peek())) {
        ++at_;
        return comparison(operand, found->sqlite, expression());
    }
    if (acceptWord("is")) {
        const bool negated = acceptWord("not");
        expectWord("null");
        return "(" + operand.sql + (negated ? ") IS NOT NULL" : ") IS NULL");
    }
    const std::string negated = acceptWord("not") ? "NOT " : "";
    if (acceptWord("like")) {
        const SqlType text{SqlKind::text};
        const Typed pattern = expression();
        return negated + "tsql_like(" + convertImplicit(operand, text) + ", " + convertImplicit(pattern, text) + ")";
    }
    if (acceptWord("in"))
        return negated + "(" + inPredicate(operand) + ")";
    expectWord("between");
    const Typed low = expression();
    expectWord("and");
    const Typed high = expression();
    return negated + "(" + comparison(operand, ">=", low) + " AND " + comparison(operand, "<=", high) + ")";
}

std::string TSqlParser::inPredicate(const Typed& operand) {
    expectSymbol("(");
    if (peek().isWord("select")) {
        const Select query = select();
        expectSymbol(")");
        if (query.columns.size() != 1)
            fail(sqlError::command, "Only one expression can be specified in the select list of IN.");
        const SqlType& found = query.columns.front().type;
        if (found.kind != operand.type.kind && !(found.isNumber() && operand.type.isNumber()))
            fail(sqlError::command, "IN with a sub-select of another data type is not accepted.");
        return collated(operand.sql, operand.type) + " IN (" + query.sql + ")";
    }
    std::vector<Typed> values;
    SqlType common = operand.type;
    do {
        values.push_back(expression());
        common = commonType(common, values.back().type);
    } while (acceptSymbol(","));
    expectSymbol(")");
    std::string sql = collated(convertImplicit(operand, common), common) + " IN (";
    for (const Typed& value : values)
        sql += (&value == &values.front() ? "" : ", ") + convertImplicit(value, common);
    return sql + ")";
}

std::string TSqlParser::comparison(const Typed& left, std::string_view operation, const Typed& right) {
    const SqlType common = commonType(left.type, right.type);
    return collated(convertImplicit(left, common), common) + " " + std::string(operation) + " " +
           convertImplicit(right, common);
}

} // namespace orv::erp
