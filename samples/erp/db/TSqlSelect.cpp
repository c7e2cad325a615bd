#include "erp/db/TSqlParser.h"

// SELECT statements, on their own and inside of others.
namespace orv::erp {

TSqlParser::Select TSqlParser::select() {
    const Depth depth(*this);
    expectWord("select");
    Scope own{{}, scope_};
    scope_ = &own;

    // The types of the select list come from the FROM clause, so that one is read first.
    const std::size_t listStart = at_;
    const std::size_t from = findFrom();
    std::string fromSql;
    std::size_t rest = from;
    if (tokens_[from].isWord("from")) {
        at_ = from + 1;
        fromSql = fromClause();
        rest = at_;
        at_ = listStart;
    }

    const bool distinct = acceptWord("distinct");
    std::optional<int> top;
    if (acceptWord("top")) {
        const bool bracketed = acceptSymbol("(");
        top = takeWholeNumber();
        if (bracketed)
            expectSymbol(")");
    }
    const std::vector<Item> items = selectList();
    if (at_ != from)
        failHere();
    at_ = rest;

    Select query;
    query.sql = distinct ? "SELECT DISTINCT " : "SELECT ";
    for (const Item& item : items) {
        query.sql += (query.columns.empty() ? "" : ", ") + (distinct ? collated(item.sql, item.column.type) : item.sql);
        query.columns.push_back(item.column);
    }
    query.sql += fromSql;
    query.sql += whereClause();
    query.sql += orderBy(items);
    if (top)
        query.sql += " LIMIT " + std::to_string(*top);
    scope_ = own.outer;
    return query;
}

/// The position of this select's FROM, or of the token that ends it when it has none.
std::size_t TSqlParser::findFrom() const {
    int depth = 0;
    for (std::size_t i = at_; i < tokens_.size(); ++i) {
        const Token& token = tokens_[i];
        if (token.isSymbol("("))
            ++depth;
        if (token.kind == TokenKind::end || (token.isSymbol(")") && --depth < 0))
            return i;
        if (depth == 0 && (token.isWord("from") || token.isWord("where") || token.isWord("order")))
            return i;
    }
    return tokens_.size() - 1;
}

std::string TSqlParser::fromClause() {
    std::string sql = " FROM " + source();
    for (;;) {
        if (acceptSymbol(",")) {
            sql += ", " + source();
            continue;
        }
        if (acceptWord("cross")) {
            expectWord("join");
            sql += " CROSS JOIN " + source();
            continue;
        }
        if (acceptWord("left")) {
            acceptWord("outer");
            expectWord("join");
            sql += " LEFT OUTER JOIN ";
        } else if (acceptWord("inner")) {
            expectWord("join");
            sql += " INNER JOIN ";
        } else if (acceptWord("join")) {
            sql += " INNER JOIN ";
        } else {
            return sql;
        }
        sql += source();
        expectWord("on");
        sql += " ON " + condition();
    }
}

std::string TSqlParser::source() {
    const TableInfo& table = takeTable();
    std::string alias = table.name;
    if (acceptWord("as") || atName())
        alias = takeName();
    for (const Source& other : scope_->sources) {
        if (sameName(other.alias, alias))
            fail(sqlError::command, "The objects '" + other.alias + "' and '" + alias +
                                        "' in the FROM clause have the same exposed names.");
    }
    scope_->sources.push_back({alias, &table});
    return quoteName(table.name) + " AS " + quoteName(alias);
}

std::vector<TSqlParser::Item> TSqlParser::selectList() {
    scope_->plainColumns = 0; // the FROM clause has been read before
    std::vector<Item> items;
    do {
        if (acceptSymbol("*")) {
            starItems(items, {});
            continue;
        }
        if (peek(1).isSymbol(".") && peek(2).isSymbol("*")) {
            const std::string alias = takeName();
            at_ += 2;
            starItems(items, alias);
            continue;
        }
        const Typed value = expression();
        std::string name = value.name;
        if (acceptWord("as") || atName())
            name = peek().kind == TokenKind::text ? take().content : takeName();
        items.push_back({value.sql, {name, value.type}});
    } while (acceptSymbol(","));
    if (scope_->aggregates > 0 && scope_->plainColumns > 0)
        fail(sqlError::command, "A select list must not mix aggregates and columns outside of them.");
    return items;
}

void TSqlParser::starItems(std::vector<Item>& items, std::string_view alias) const {
    bool found = false;
    for (const Source& from : scope_->sources) {
        if (!alias.empty() && !sameName(from.alias, alias))
            continue;
        found = true;
        for (const ColumnInfo& column : from.table->columns)
            items.push_back({quoteName(from.alias) + "." + quoteName(column.name), {column.name, column.type}});
    }
    if (!found)
        fail(sqlError::command, "The select list asks for all columns of a table that the FROM clause does not name.");
}

std::string TSqlParser::whereClause() {
    return acceptWord("where") ? " WHERE " + condition() : std::string();
}

std::string TSqlParser::orderBy(const std::vector<Item>& items) {
    if (!acceptWord("order"))
        return {};
    expectWord("by");
    std::string sql;
    do {
        const bool alone = peek(1).kind == TokenKind::end || peek(1).isSymbol(",") || peek(1).isSymbol(")") ||
                           peek(1).isWord("asc") || peek(1).isWord("desc");
        const Item* item = nullptr;
        if (alone && peek().kind == TokenKind::number) {
            const int position = takeWholeNumber();
            if (position < 1 || static_cast<std::size_t>(position) > items.size())
                fail(sqlError::command,
                     "The ORDER BY position number " + std::to_string(position) + " is out of range.");
            item = &items[static_cast<std::size_t>(position - 1)];
        } else if (alone && atName()) {
            for (const Item& candidate : items) {
                if (item == nullptr && !candidate.column.name.empty() &&
                    sameName(candidate.column.name, peek().content))
                    item = &candidate;
            }
            if (item != nullptr)
                take();
        }
        const Typed key = item ? Typed{item->sql, item->column.type, {}} : expression();
        sql += (sql.empty() ? " ORDER BY " : ", ") + collated(key.sql, key.type);
        if (acceptWord("desc"))
            sql += " DESC";
        else
            acceptWord("asc");
    } while (acceptSymbol(","));
    return sql;
}

} // namespace orv::erp
