#include "windows/views/Clipboard.h"
#include "UserInput.h"
#include "automation/Text.h"
#include "ui/Spread.h"

#include <gtest/gtest.h>

namespace orv::windows {
namespace {

using namespace testing;
using Block = std::vector<std::vector<std::u16string>>;

TEST(ClipboardBlock, ReadsWhatSpreadsheetProgramsWrite) {
    struct Case {
        const char* name;
        std::u16string text;
        Block block;
    };
    const Case cases[] = {
        {"nothing", u"", {}},
        {"one cell", u"a", {{u"a"}}},
        {"a row", u"a\tb\t\tc", {{u"a", u"b", u"", u"c"}}},
        {"rows with a last line end", u"a\tb\r\nc\td\r\n", {{u"a", u"b"}, {u"c", u"d"}}},
        {"line feeds alone", u"a\nb", {{u"a"}, {u"b"}}},
        {"an empty row", u"a\r\n\r\nb", {{u"a"}, {u""}, {u"b"}}},
        {"a quoted line end", u"\"a\nb\"\tc", {{u"a\nb", u"c"}}},
        {"doubled quotation marks", u"\"say \"\"hi\"\"\"", {{u"say \"hi\""}}},
        {"a quotation mark within", u"5\" pipe", {{u"5\" pipe"}}},
        {"a lonely quotation mark", u"\"a\tb", {{u"\"a", u"b"}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(parseBlock(c.text), c.block);
        EXPECT_EQ(parseBlock(formatBlock(c.block)), c.block) << "what is copied is pasted";
    }
}

TEST(ClipboardBlock, IsPastedIntoTheConditionGridLineByLine) {
    Stage stage;
    stage.openClassType(1000201);
    pump(stage);
    ui::Spread& grid = stage.filter->controls().vsFilter;
    SetFocus(stage.windowOf(grid));
    grid.setActiveCell(2, 1);
    putOnClipboard(stage.frame(), u"单据编号\t等于\tSK-1\t)\t或\r\n日期\t等于\t2024-02-10\r\n");
    press(stage, 'V', {VK_CONTROL});
    EXPECT_EQ(automation::toUtf8(grid.text(4, 1)), "SK-1");
    EXPECT_EQ(automation::toUtf8(grid.text(7, 1)), ")") << "the value's span takes one cell of the block";
    EXPECT_EQ(automation::toUtf8(grid.text(8, 1)), "或");
    EXPECT_EQ(automation::toUtf8(grid.text(4, 2)), "02102024");
    EXPECT_EQ(grid.activeCell(), (ui::CellRef{2, 1}));
}

TEST(ClipboardBlock, EndsWithTheGrid) {
    Stage stage;
    stage.openClassType(1000201);
    ui::Spread& columns = stage.filter->controls().vsHideColumn;
    stage.filter->controls().tbFilter.select(3);
    pump(stage);
    columns.setFocus();
    const int last = columns.maxRows();
    columns.setActiveCell(4, last - 1);
    putOnClipboard(stage.frame(), u"11\ttoo far\r\n\"12\r\n\"\r\n13\r\n14\r\n");
    press(stage, 'V', {VK_CONTROL});
    EXPECT_EQ(columns.text(4, last - 1), u"11");
    EXPECT_EQ(columns.text(4, last), u"12 ") << "a line end within a cell is a blank";
    EXPECT_EQ(columns.maxRows(), last);
}

} // namespace
} // namespace orv::windows
