#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace orv::erp {

enum class TokenKind {
    name,       ///< word that may be a keyword
    quotedName, ///< [name] or "name": never a keyword
    text,       ///< 'text' or N'text'
    number,     ///< whole or decimal, without sign
    symbol,     ///< operator or punctuation
    parameter,  ///< ?
    end,
};

/// One token of a statement. `content` is UTF-8: of a name or text without its quotes, doubled quotes undone.
struct Token {
    TokenKind kind = TokenKind::end;
    std::string content;

    bool isWord(std::string_view keyword) const noexcept;
    bool isSymbol(std::string_view symbol) const noexcept { return kind == TokenKind::symbol && content == symbol; }
};

/// Splits a T-SQL statement; the last token is `end`. Raises AutomationError for what is no token of the accepted
/// language: comments, variables, unclosed quotes, unknown characters.
std::vector<Token> tokenize(std::u16string_view tsql);

} // namespace orv::erp
