#include "erp/db/Collation.h"

#include <gtest/gtest.h>

#include <vector>

namespace orv::erp {

namespace {

char sign(std::weak_ordering order) {
    return order < 0 ? '<' : order > 0 ? '>' : '=';
}

TEST(DbCollation, ComparesTextsAsAChineseServerDoes) {
    struct Case {
        const char* left;
        char order;
        const char* right;
    };
    constexpr Case cases[] = {
        {"abc", '=', "ABC"},
        {"abc", '=', "abc   "},
        {"", '=', "  "},
        {"abc", '>', " abc"},
        {"abc", '<', "abcd"},
        {"a  b", '<', "a b"},
        {"a b", '<', "ab"},        // a blank inside counts, and sorts first
        {"ab c", '>', "ab"},       // padded with blanks, not cut
        {"ＡＢＣ１", '=', "abc1"}, // width
        {"a\u3000", '=', "a"},     // ideographic blank
        {"カ", '=', "か"},         // kana
        {"åse", '=', "ÅSE"},       // case beyond ASCII
        {"åse", '>', "ase"},       // accents count
        {"Ж", '=', "ж"},
        {"co-op", '>', "coop"}, // the hyphen only decides between equals
        {"co-op", '<', "cop"},  // ... and not before other letters do
        {"O'Brien", '>', "OBrien"},
        {"O'Brien", '<', "OC"},
        {"%", '<', "1"},
        {"9", '<', "a"},
        {"z", '<', "收"},
        {"付款", '<', "收款"}, // by code point, not by pronunciation
        {"2024-02-29", '>', "2024/02/29"},
        {"2024-02-28", '>', "2024/02/29"},
        {"2023-12-31", '<', "2024/02/01"},
        {"2024-02-29", '<', "2024-02-29 23:59:59"},
        {"2024-03-01", '>', "2024-02-29 23:59:59"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(c.order, sign(compareText(c.left, c.right))) << "'" << c.left << "' and '" << c.right << "'";
        const char reversed = c.order == '<' ? '>' : c.order == '>' ? '<' : '=';
        EXPECT_EQ(reversed, sign(compareText(c.right, c.left))) << "'" << c.right << "' and '" << c.left << "'";
    }
}

TEST(DbCollation, OrderIsConsistentWhateverIsCompared) {
    const std::vector<std::string_view> texts = {"",
                                                 " ",
                                                 "-",
                                                 "'",
                                                 "a-",
                                                 "-a",
                                                 "a",
                                                 "A",
                                                 "a'",
                                                 "a-b",
                                                 "ab",
                                                 "a b",
                                                 "a--b",
                                                 "a-'b",
                                                 "ab-",
                                                 "b",
                                                 "1",
                                                 "１",
                                                 "%",
                                                 "收",
                                                 "\xFF",
                                                 "a\xE6"
                                                 "b",
                                                 "\xE6",
                                                 "_",
                                                 "[a]",
                                                 "aa",
                                                 "ﾊ"};
    for (const auto a : texts) {
        for (const auto b : texts) {
            for (const auto c : texts) {
                if (compareText(a, b) <= 0 && compareText(b, c) <= 0) {
                    EXPECT_TRUE(compareText(a, c) <= 0) << a << ", " << b << ", " << c;
                }
            }
        }
    }
}

TEST(DbCollation, LikeKnowsTheWildcardsOfTheServer) {
    struct Case {
        const char* text;
        const char* pattern;
        bool matches;
    };
    constexpr Case cases[] = {
        {"abc", "ABC", true},       {"abc", "a%", true},      {"abc", "%C", true},
        {"abc", "%b%", true},       {"abc", "_b_", true},     {"abc", "_b", false},
        {"abc", "%", true},         {"", "%", true},          {"", "", true},
        {"", "_", false},           {"abc", "", false},       {"abc", "%%c%%", true},
        {"abcabd", "%ab_", true},   {"aXbXc", "%x%x%", true}, {"100%", "100[%]", true},
        {"1000", "100[%]", false},  {"a_b", "a[_]b", true},   {"axb", "a[_]b", false},
        {"[x]", "[[]x]", true},     {"b", "[a-c]", true},     {"B", "[a-c]", true},
        {"d", "[a-c]", false},      {"d", "[^a-c]", true},    {"b", "[^a-c]", false},
        {"-", "[a-]", true},        {"5", "[0-9]", true},     {"第5期", "第[0-9]期", true},
        {"收款单", "收_单", true},  {"x", "[", false},        {"[", "[", false},
        {"x", "%[", false},         {"x", "[]", false},       {"abc ", "abc", false},
        {"abc", "abc ", false},     {"abc ", "abc%", true},   {"Ａ1", "a1", true},
        {"O'Brien", "%o'b%", true}, {"co-op", "coop", false}, {"^", "[x^]", true},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.matches, matchesLike(c.text, c.pattern)) << "'" << c.text << "' LIKE '" << c.pattern << "'";
}

TEST(DbCollation, LikeOfManyPercentSignsIsQuick) {
    const std::string text(3000, 'a');
    std::string pattern;
    for (int i = 0; i < 200; ++i)
        pattern += "%a";
    EXPECT_TRUE(matchesLike(text, pattern));
    EXPECT_FALSE(matchesLike(text, pattern + "%b"));
}

} // namespace

} // namespace orv::erp
