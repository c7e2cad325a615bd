#include "control/Filter.h"
#include "metadata/Records.h"

#include <gtest/gtest.h>

namespace orv::control {
namespace {

class NoPrompts final : public ui::Prompts {
  public:
    ui::MessageAnswer message(const std::u16string&, std::int32_t, const std::u16string&) override {
        return ui::MessageAnswer::ok;
    }
    void log(const std::u16string&) override {}
};

TEST(ColumnButtons, AClickOnARowEnablesTheMoveButtons) {
    tests::NoComponents factory;
    NoPrompts prompts;
    Filter filter(factory, prompts);
    FilterControls& controls = filter.controls();
    controls.vsHideColumn.setMaxRows(2);
    controls.cmdHide(0).setEnabled(false);
    controls.cmdHide(1).setEnabled(false);
    controls.cmdHide(2).setEnabled(false);
    controls.vsHideColumn.userClick(1, 0);
    EXPECT_FALSE(controls.cmdHide(0).enabled()) << "the heading is no row";
    controls.vsHideColumn.userClick(1, 2);
    EXPECT_TRUE(controls.cmdHide(0).enabled());
    EXPECT_TRUE(controls.cmdHide(1).enabled());
    EXPECT_FALSE(controls.cmdHide(2).enabled()) << "the other buttons have nothing to do with the row";
}

} // namespace
} // namespace orv::control
