#include "../ViewsFixture.h"

#include "automation/Text.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>

// Brings the control on the sample host into the states that the guides show, one after another:
//   guide_pictures FOLDER
// For each it prints "NAME WIDTH HEIGHT" and waits until FOLDER has NAME.png: docs/make-screenshots takes the pictures.
namespace orv::windows::testing {
namespace {

constexpr int width = 860;
constexpr int height = 500;
constexpr int milliseconds = 20'000; ///< for a picture to be taken

class Pictures {
  public:
    explicit Pictures(std::u16string folder) : folder_(std::move(folder)) { stage_.openClassType(1000201); }

    void show() {
        enterConditions();
        present("conditions");
        openList(1, 2, "fields");
        openList(5, 4, "calendar");
        controls().tbFilter.userSelect(2);
        ui::Spread& sort = controls().vsOrder;
        choose(sort, 1, 1, u"金额+原币");
        sort.userToggle(3, 1);
        choose(sort, 1, 2, u"单据编号");
        present("sort");
        controls().tbFilter.userSelect(3);
        controls().vsHideColumn.userToggle(3, 1);
        present("columns");
    }

  private:
    control::FilterControls& controls() { return stage_.filter->controls(); }
    ui::Spread& grid() { return controls().vsFilter; }

    static void choose(ui::Spread& grid, int column, int row, std::u16string_view caption) {
        const auto& items = grid.comboItems(column, row);
        const auto found = std::ranges::find_if(items, [caption](const std::u16string& item) {
            return item.starts_with(caption) && (item.size() == caption.size() || item[caption.size()] == u' ');
        });
        if (found == items.end() || !grid.userChoose(column, row, static_cast<int>(found - items.begin()))) {
            std::fprintf(stderr, "no item %s\n", automation::toUtf8(caption).c_str());
            std::exit(1);
        }
    }

    void enter(int row, std::u16string_view field, std::u16string_view comparison, std::u16string_view value) {
        choose(grid(), 2, row, field);
        choose(grid(), 3, row, comparison);
        if (!value.empty())
            grid().userType(4, row, std::u16string(value));
    }

    void enterConditions() {
        choose(grid(), 1, 1, u"(");
        enter(1, u"日期", u"本周", u"");
        choose(grid(), 8, 1, u"或");
        enter(2, u"日期", u"介于", u"2024-02-01 AND 2024-02-09");
        choose(grid(), 7, 2, u")");
        choose(grid(), 8, 2, u"并且");
        enter(3, u"金额+原币", u"大于等于", u"50000");
        choose(grid(), 8, 3, u"并且");
        enter(4, u"客户", u"包含", u"公司");
        controls().cboCheck.userSelect(0);
        grid().userMoveTo(4, 4);
    }

    /// Opens what drops down from the cell of a line, and leaves the line as it was.
    void openList(int row, int column, const char* name) {
        if (name == std::string_view("calendar")) {
            enter(row, u"日期", u"大于等于", u"2024-02-29");
        }
        grid().userMoveTo(column, row);
        const HWND window = stage_.windowOf(grid());
        SetFocus(window);
        pump(stage_);
        PostMessageW(window, WM_KEYDOWN, VK_F4, 0);
        present(name);
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_ESCAPE, 0);
        pumpFor(stage_, 300);
    }

    void present(const char* name) {
        pumpFor(stage_, 700);
        std::printf("%s %d %d\n", name, width, height);
        std::fflush(stdout);
        const std::u16string file = folder_ + u"/" + automation::fromUtf8(name) + u".png";
        for (int waited = 0; waited < milliseconds; waited += 100) {
            if (GetFileAttributesW(reinterpret_cast<const wchar_t*>(file.c_str())) != INVALID_FILE_ATTRIBUTES)
                return;
            pumpFor(stage_, 100);
        }
        std::fprintf(stderr, "nobody took %s\n", name);
        std::exit(1);
    }

    Stage stage_{96, width, height};
    std::u16string folder_;
};

} // namespace
} // namespace orv::windows::testing

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "guide_pictures FOLDER\n");
        return 2;
    }
    orv::windows::testing::Pictures(orv::automation::fromUtf8(arguments[1])).show();
    return 0;
}
