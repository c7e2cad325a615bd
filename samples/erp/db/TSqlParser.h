#pragma once

#include "erp/db/SqlConvert.h"
#include "erp/db/SqlError.h"
#include "erp/db/TSqlLexer.h"
#include "erp/db/TSqlTranslator.h"

#include <optional>
#include <string>
#include <vector>

// The one-pass parser behind `translate`: it reads tokens and appends SQLite text, resolving names on the way.
namespace orv::erp {

/// A table of a FROM clause under the name by which the statement knows it.
struct Source {
    std::string alias;
    const TableInfo* table;
};

/// The tables that names may refer to; a sub-select sees those of the statement around it.
struct Scope {
    std::vector<Source> sources;
    Scope* outer = nullptr;
    /// Of the select list being read: a list may not mix aggregates and columns outside of them.
    bool insideAggregate = false;
    int aggregates = 0;
    int plainColumns = 0;
};

class TSqlParser {
  public:
    TSqlParser(std::vector<Token> tokens, const Catalogue& catalogue, std::span<const SqlType> parameterTypes);

    Translation statement();

  private:
    struct Select {
        std::string sql;
        std::vector<ResultColumn> columns;
    };
    /// One item of a select list: its SQL text is kept for ORDER BY.
    struct Item {
        std::string sql;
        ResultColumn column;
    };

    // Cursor (TSqlParser.cpp)
    const Token& peek(std::size_t ahead = 0) const;
    Token take();
    bool acceptWord(std::string_view keyword);
    bool acceptSymbol(std::string_view symbol);
    void expectWord(std::string_view keyword);
    void expectSymbol(std::string_view symbol);
    std::string takeName();
    int takeWholeNumber();
    bool atName() const;
    std::size_t closingBracket(std::size_t open) const;
    [[noreturn]] void failHere() const;
    [[noreturn]] static void fail(std::int32_t number, const std::string& description);

    // Changes (TSqlChange.cpp)
    std::string insertStatement();
    std::string updateStatement();
    std::string deleteStatement();
    const TableInfo& takeTable();
    const ColumnInfo& takeColumnOf(const TableInfo& table);

    // Queries (TSqlSelect.cpp)
    Select select();
    std::size_t findFrom() const;
    std::string fromClause();
    std::string source();
    std::vector<Item> selectList();
    void starItems(std::vector<Item>& items, std::string_view alias) const;
    std::string orderBy(const std::vector<Item>& items);
    std::string whereClause();

    // Conditions (TSqlCondition.cpp)
    std::string condition();
    std::string conjunction();
    std::string negation();
    std::string predicate();
    std::string inPredicate(const Typed& operand);
    bool opensCondition(std::size_t open) const;
    static std::string comparison(const Typed& left, std::string_view operation, const Typed& right);

    // Expressions (TSqlExpression.cpp)
    Typed expression();
    Typed product();
    Typed factor();
    Typed number();
    Typed text();
    Typed parameter();
    Typed column();
    Typed call();
    Typed convertCall();
    Typed castCall();
    Typed isnullCall();
    Typed aggregate(const std::string& name);
    Typed scalarSelect();
    SqlType typeName();
    static Typed arithmetic(const Typed& left, char operation, const Typed& right);

    /// Counts nesting; statements beyond it would exhaust the stack.
    class Depth {
      public:
        explicit Depth(TSqlParser& parser) : parser_(parser) {
            if (++parser_.depth_ > 200) {
                --parser_.depth_; // no destructor runs
                fail(sqlError::command, "Some part of your SQL statement is nested too deeply.");
            }
        }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;
        ~Depth() { --parser_.depth_; }

      private:
        TSqlParser& parser_;
    };

    std::vector<Token> tokens_;
    std::vector<std::size_t> closing_; ///< of each "(" the position of its ")", 0 when it has none
    std::size_t at_ = 0;
    const Catalogue& catalogue_;
    std::span<const SqlType> parameterTypes_;
    std::size_t parametersUsed_ = 0;
    Scope* scope_ = nullptr;
    int depth_ = 0;
};

} // namespace orv::erp
