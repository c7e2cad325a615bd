#include "erp/db/TSqlLexer.h"

#include "automation/Text.h"
#include "erp/db/Catalogue.h"
#include "erp/db/SqlError.h"

#include <array>

namespace orv::erp {

namespace {

[[noreturn]] void refuse(const std::string& description) {
    throw makeSqlError(sqlError::command, automation::fromUtf8(description));
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
bool isNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}
bool isNamePart(char c) {
    return isNameStart(c) || isDigit(c) || c == '$' || c == '#';
}
bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

class Lexer {
  public:
    explicit Lexer(std::string_view source) : source_(source) {}

    std::vector<Token> run() {
        std::vector<Token> tokens;
        while (skipBlanks(), at_ < source_.size())
            tokens.push_back(next());
        tokens.push_back({});
        return tokens;
    }

  private:
    char peek(std::size_t ahead = 0) const { return at_ + ahead < source_.size() ? source_[at_ + ahead] : '\0'; }

    void skipBlanks() {
        while (isBlank(peek()))
            ++at_;
    }

    Token next() {
        const char c = peek();
        if ((c == 'N' || c == 'n') && peek(1) == '\'')
            ++at_;
        if (peek() == '\'')
            return {TokenKind::text, quoted('\'')};
        if (c == '"')
            return {TokenKind::quotedName, quoted('"')};
        if (c == '[')
            return {TokenKind::quotedName, quoted(']')};
        if (isNameStart(c))
            return {TokenKind::name, whileTrue(isNamePart)};
        if (isDigit(c) || (c == '.' && isDigit(peek(1))))
            return {TokenKind::number, number()};
        if (c == '?') {
            ++at_;
            return {TokenKind::parameter, "?"};
        }
        return {TokenKind::symbol, symbol()};
    }

    std::string quoted(char close) {
        const std::size_t open = at_++;
        std::string content;
        for (; at_ < source_.size(); ++at_) {
            if (source_[at_] != close) {
                content.push_back(source_[at_]);
            } else if (peek(1) == close) {
                content.push_back(close);
                ++at_;
            } else {
                ++at_;
                return content;
            }
        }
        refuse("Unclosed quotation mark after the character string '" + std::string(source_.substr(open + 1)) + "'.");
    }

    template <class Predicate>
    std::string whileTrue(Predicate belongs) {
        const std::size_t start = at_;
        while (at_ < source_.size() && belongs(source_[at_]))
            ++at_;
        return std::string(source_.substr(start, at_ - start));
    }

    std::string number() {
        std::string digits = whileTrue(isDigit);
        if (peek() == '.') {
            ++at_;
            digits += "." + whileTrue(isDigit);
        }
        const bool sign = peek(1) == '+' || peek(1) == '-';
        if ((peek() == 'e' || peek() == 'E') && isDigit(peek(sign ? 2 : 1))) {
            digits += "E";
            ++at_;
            if (sign)
                digits.push_back(source_[at_++]);
            digits += whileTrue(isDigit);
        }
        return digits;
    }

    std::string symbol() {
        static constexpr std::array<std::string_view, 20> symbols = {
            "<>", "!=", "<=", ">=", "!<", "!>", "--", "/*", "=", "<", ">", "(", ")", ",", ".", "*", "+", "-", "/", "%"};
        for (const auto known : symbols) {
            if (!source_.substr(at_).starts_with(known))
                continue;
            if (known == "--" || known == "/*")
                refuse("Comments are not accepted.");
            at_ += known.size();
            return std::string(known);
        }
        refuse("Incorrect syntax near '" + std::string(source_.substr(at_, 1)) + "'.");
    }

    std::string_view source_;
    std::size_t at_ = 0;
};

} // namespace

bool Token::isWord(std::string_view keyword) const noexcept {
    return kind == TokenKind::name && sameName(content, keyword);
}

std::vector<Token> tokenize(std::u16string_view tsql) {
    if (tsql.find(u'\0') != std::u16string_view::npos)
        refuse("A statement must not hold the character 0.");
    const std::string source = automation::toUtf8(tsql);
    return Lexer(source).run();
}

} // namespace orv::erp
