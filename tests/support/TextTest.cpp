#include "automation/Text.h"
#include "support/Letters.h"
#include "support/PaddedItem.h"
#include "support/PairList.h"
#include "support/Pieces.h"
#include "support/PropsString.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace orv::support::tests {
namespace {

using automation::toUtf8;

TEST(Pieces, AreCountedFromOneAndEmptyBeyondTheLast) {
    const struct {
        const char16_t* text;
        const char16_t* delimiter;
        std::vector<std::u16string> pieces;
    } cases[] = {
        {u"a,b,c", u",", {u"a", u"b", u"c"}},
        {u"a", u",", {u"a"}},
        {u"", u",", {}},
        {u",", u",", {u"", u""}},
        {u"1, 2,,3", u",", {u"1", u" 2", u"", u"3"}},
        {u"S12|7|1", u"|", {u"S12", u"7", u"1"}},
        {u"a##<&b##<&", u"##<&", {u"a", u"b", u""}},
        {u"a|||b", u"||", {u"a", u"|b"}},
        {u"a#b", u"##", {u"a#b"}},
        {u"ab", u"", {u"ab"}},
        {u"表头+日期", u"+", {u"表头", u"日期"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(toUtf8(c.text) + " split at " + toUtf8(c.delimiter));
        EXPECT_EQ(countPieces(c.text, c.delimiter), c.pieces.size());
        const auto count = static_cast<std::ptrdiff_t>(c.pieces.size());
        for (std::ptrdiff_t n = 1; n <= count; ++n)
            EXPECT_EQ(GetPiece(c.text, n, c.delimiter), c.pieces[static_cast<std::size_t>(n) - 1]) << "piece " << n;
        for (const std::ptrdiff_t n : {std::ptrdiff_t{-1}, std::ptrdiff_t{0}, count + 1, count + 100})
            EXPECT_EQ(GetPiece(c.text, n, c.delimiter), u"") << "piece " << n;
    }
}

TEST(Trim, TakesBlanksOnly) {
    EXPECT_EQ(Trim(u"  a b  "), u"a b");
    EXPECT_EQ(Trim(u"    "), u"");
    EXPECT_EQ(Trim(u""), u"");
    EXPECT_EQ(Trim(u"\ta\r\n"), u"\ta\r\n");
    EXPECT_EQ(Trim(u"\u3000a\u00A0"), u"\u3000a\u00A0");
}

TEST(Letters, HaveAnUpperCaseInLatinScriptsOnly) {
    const struct {
        const char16_t* text;
        const char16_t* upper;
    } cases[] = {
        {u"azAZ09_`{@[", u"AZAZ09_`{@["}, {u"àöøþÿ÷×ß", u"ÀÖØÞŸ÷×ß"}, {u"āđĸĺňŉŋŸźžſı", u"ĀĐĸĹŇŉŊŸŹŽSI"},
        {u"ａｚ１", u"ＡＺ１"},           {u"收款单据", u"收款单据"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(toUtf8(toUpper(c.text)), toUtf8(c.upper));
        EXPECT_EQ(toUtf8(toUpper(c.upper)), toUtf8(c.upper)) << "upper case changed again";
        EXPECT_TRUE(equalIgnoringCase(c.text, c.upper)) << toUtf8(c.text);
    }
    EXPECT_FALSE(equalIgnoringCase(u"ab", u"abc"));
    EXPECT_FALSE(equalIgnoringCase(u"ab", u"ac"));
}

TEST(Letters, AreSoughtInEitherCase) {
    constexpr std::size_t npos = std::u16string_view::npos;
    EXPECT_EQ(findIgnoringCase(u"3 and 5 AND 7", u"AND"), 2U);
    EXPECT_EQ(findIgnoringCase(u"3 and 5 AND 7", u"and", 3), 8U);
    EXPECT_EQ(findIgnoringCase(u"an", u"AND"), npos);
    EXPECT_EQ(findIgnoringCase(u"xand", u"AND"), 1U);
    EXPECT_EQ(findIgnoringCase(u"a", u"", 1), 1U);
    EXPECT_EQ(findIgnoringCase(u"a", u"", 2), npos);
    EXPECT_EQ(findIgnoringCase(u"", u"a"), npos);
}

TEST(Letters, AreReplacedEverywhereOnce) {
    EXPECT_EQ(replaceAll(u"O'Neil's", u"'", u"''"), u"O''Neil''s");
    EXPECT_EQ(replaceAll(u"aaa", u"aa", u"b"), u"ba");
    EXPECT_EQ(replaceAll(u"Ab ab", u"ab", u"x"), u"Ab x");
    EXPECT_EQ(replaceAll(u"abc", u"", u"x"), u"abc");
    EXPECT_EQ(replaceAll(u"abc", u"abc", u""), u"");
    EXPECT_EQ(replaceAllIgnoringCase(u"@field>0 OR @FIELD<@Field", u"@Field", u"t.F"), u"t.F>0 OR t.F<t.F");
    EXPECT_EQ(replaceAllIgnoringCase(u"xX", u"x", u"xx"), u"xxxx");
}

TEST(PaddedItem, HidesTheKeyBehind255Characters) {
    const std::u16string item = PadItem(u"日期", u"FDate");
    EXPECT_EQ(item.size(), captionWidth + 5);
    EXPECT_EQ(item.substr(0, 3), u"日期 ");
    EXPECT_EQ(SplitLookupText(item, false), u"日期");
    EXPECT_EQ(SplitLookupText(item, true), u"FDate");

    const std::u16string cut = PadItem(std::u16string(300, u'x'), u" k ");
    EXPECT_EQ(cut, std::u16string(255, u'x') + u" k ");
    EXPECT_EQ(SplitLookupText(cut, true), u" k ") << "the key is not trimmed";

    EXPECT_EQ(SplitLookupText(u"", true), u"");
    EXPECT_EQ(SplitLookupText(u"", false), u"");
    EXPECT_EQ(SplitLookupText(u"  short ", false), u"short");
    EXPECT_EQ(SplitLookupText(u"short", true), u"");
    EXPECT_EQ(SplitLookupText(std::u16string(255, u' '), true), u"");
}

TEST(PairList, IsSearchedForTheFirstKeyAndEqualsSign) {
    const struct {
        const char* name;
        const char16_t* text;
        const char16_t* key;
        const char16_t* value;
    } cases[] = {
        {"an item", u"FDate=1|FQty=5|", u"FQty", u"5"},
        {"the end of a longer key", u"FQty=5|Qty=3|", u"Qty", u"5"},
        {"a key that goes on", u"QtyMax=9|Qty=3|", u"Qty", u"3"},
        {"another letter case", u"fqty=5|", u"FQty", u""},
        {"a list without its last separator", u"FDate=1|FQty=5", u"FQty", u"5"},
        {"an empty value", u"FDate=|FQty=5|", u"FDate", u""},
        {"a value with an equals sign", u"F=a=b|", u"F", u"a=b"},
        {"an absent key", u"FDate=1|", u"FQty", u""},
        {"an empty list", u"", u"FQty", u""},
        {"an empty key", u"FDate=1|", u"", u"1"},
        {"a key with the separator in it", u"a|b=1|", u"a|b", u""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(toUtf8(lookupPair(c.text, c.key)), toUtf8(c.value)) << c.name;
    EXPECT_EQ(lookupPair(u"UserID=7;Language=chs", u"Language", propsSeparator), u"chs");
}

TEST(PairList, IsWrittenWithAClosingSeparator) {
    std::u16string list;
    appendPair(list, u"FDate", u"升序");
    appendPair(list, u"FQty", -1440);
    appendPair(list, u"FNote", u"");
    EXPECT_EQ(list, u"FDate=升序|FQty=-1440|FNote=|");
    EXPECT_EQ(lookupPair(list, u"FQty"), u"-1440");
}

TEST(PropsString, GivesValuesAsTheyStandOrUpperCased) {
    const PropsString props(u"UserID=16394;UserName=Li Lei;Language=cht");
    EXPECT_EQ(props.value(u"UserName"), u"Li Lei");
    EXPECT_EQ(props.GetPropsValue(u"UserName"), u"LI LEI");
    EXPECT_EQ(props.GetPropsValue(u"Language"), u"CHT");
    EXPECT_EQ(props.value(u"ItemNaming"), u"");
    EXPECT_EQ(PropsString().GetPropsValue(u"Language"), u"");
}

} // namespace
} // namespace orv::support::tests
