#include "automation/Text.h"
#include "support/PairList.h"

#include <gtest/gtest.h>

#include <random>

namespace orv::support {
namespace {

using automation::toUtf8;

/// Texts of a few letters and both signs: keys then stand within longer ones, without value, twice, across items.
std::u16string randomText(std::mt19937& random, std::size_t longest) {
    static constexpr std::u16string_view letters = u"ab=|";
    std::u16string text(random() % (longest + 1), u' ');
    for (char16_t& unit : text)
        unit = letters[random() % letters.size()];
    return text;
}

TEST(PairIndex, GivesWhatASearchOfTheTextGives) {
    std::mt19937 random(20240229);
    std::size_t found = 0;
    for (int i = 0; i < 3000; ++i) {
        const std::u16string text = randomText(random, 40);
        PairIndex index(text);
        for (int j = 0; j < 20; ++j) {
            const std::u16string key = randomText(random, 4);
            const std::u16string_view expected = lookupPair(text, key);
            ASSERT_EQ(toUtf8(index.value(key)), toUtf8(expected)) << toUtf8(key) << " in " << toUtf8(text);
            found += expected.empty() ? 0U : 1U;
        }
    }
    EXPECT_GT(found, 10000U) << "hardly any key occurs: nothing was compared";
}

TEST(PairIndex, ReadsListsWithAnotherSeparator) {
    PairIndex index(u"UserID=7;Language=CHS", propsSeparator);
    EXPECT_EQ(index.value(u"UserID"), u"7");
    EXPECT_EQ(index.value(u"Language"), u"CHS");
    EXPECT_EQ(index.value(u"Name"), u"");
}

} // namespace
} // namespace orv::support
