#include "control/Geometry.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace orv::control {
namespace {

using ui::Rect;

using Named = std::vector<std::pair<std::string, Placement>>;

/// What stands on the control itself; the contents of containers are checked against their containers.
Named onControl(const Geometry& g) {
    Named all{{"lblClassType", g.lblClassType},
              {"cboClassType", g.cboClassType},
              {"lblProject", g.lblProject},
              {"tlbProject", g.tlbProject},
              {"lvwProject", g.lvwProject},
              {"tbFilter", g.tbFilter},
              {"vsFilter", g.vsFilter},
              {"cmdInsert", g.cmdInsert},
              {"cmdDel", g.cmdDel},
              {"cmdDelAll", g.cmdDelAll},
              {"lblTime", g.lblTime},
              {"cboTime", g.cboTime},
              {"lblCheck", g.lblCheck},
              {"cboCheck", g.cboCheck},
              {"lblPost", g.lblPost},
              {"cboPost", g.cboPost},
              {"PicPan", g.PicPan},
              {"picPageBase", g.picPageBase},
              {"vsPage", g.vsPage},
              {"picOrder", g.picOrder},
              {"vsHideColumn", g.vsHideColumn},
              {"chkIsShowAll", g.chkIsShowAll}};
    for (std::size_t i = 0; i < g.cmdHide.size(); ++i)
        all.emplace_back("cmdHide(" + std::to_string(i) + ")", g.cmdHide[i]);
    return all;
}

Named numbered(const char* name, const std::vector<Placement>& placements) {
    Named all;
    for (std::size_t i = 0; i < placements.size(); ++i)
        all.emplace_back(name + std::to_string(i), placements[i]);
    return all;
}

bool isEmpty(const Rect& r) {
    return r.width <= 0 || r.height <= 0;
}

bool overlap(const Rect& a, const Rect& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
}

void expectApartWithin(const Named& placements, int width, int height) {
    for (std::size_t i = 0; i < placements.size(); ++i) {
        const auto& [name, placement] = placements[i];
        const Rect& r = placement.bounds;
        if (!placement.visible || isEmpty(r))
            continue;
        EXPECT_TRUE(r.left >= 0 && r.top >= 0 && r.left + r.width <= width && r.top + r.height <= height)
            << name << " leaves its container";
        for (std::size_t k = i + 1; k < placements.size(); ++k) {
            const Placement& other = placements[k].second;
            EXPECT_FALSE(other.visible && !isEmpty(other.bounds) && overlap(r, other.bounds))
                << name << " over " << placements[k].first;
        }
    }
}

TEST(Geometry, NothingOverlapsOrLeavesTheControl) {
    const std::pair<int, int> sizes[] = {{320, 240}, {400, 300}, {640, 400}, {333, 777}, {1024, 260}, {1600, 900}};
    for (const auto& [width, height] : sizes)
        for (const TabPage page : {TabPage::conditions, TabPage::sort, TabPage::columns})
            for (const bool schemes : {false, true})
                for (const bool options : {false, true})
                    for (const int boxes : {0, 1, 2, 4, 30})
                        for (const int pairs : {0, 1, 3, 20})
                            for (const auto& [scale, text] :
                                 {std::pair{1.0, 0}, {1.0, 90}, {1.25, 0}, {1.5, 500}, {2.0, 0}, {2.0, 130}}) {
                                const auto px = [factor = scale](int v) { return static_cast<int>(v * factor); };
                                GeometryInput input{
                                    {px(width), px(height), scale}, page, schemes, options, boxes, pairs};
                                input.pairLabelText = input.pageBoxText = text;
                                const Geometry g = computeGeometry(input);
                                SCOPED_TRACE(testing::Message() << width << "x" << height << " scale " << scale
                                                                << " page " << static_cast<int>(page) << " schemes "
                                                                << schemes << " options " << options << " pages "
                                                                << boxes << " pairs " << pairs << " text " << text);
                                expectApartWithin(onControl(g), px(width), px(height));
                                auto panel = numbered("label", g.lblFilter);
                                const auto panelBoxes = numbered("box", g.cmbFilter);
                                panel.insert(panel.end(), panelBoxes.begin(), panelBoxes.end());
                                expectApartWithin(panel, g.PicPan.bounds.width, g.PicPan.bounds.height);
                                expectApartWithin(numbered("page", g.chkPage), g.picPage.bounds.width,
                                                  g.picPage.bounds.height);
                                const Placement& main = page == TabPage::conditions ? g.vsFilter
                                                        : page == TabPage::sort     ? g.vsOrder
                                                                                    : g.vsHideColumn;
                                ASSERT_TRUE(main.visible);
                                ASSERT_GE(main.bounds.height, px(36)) << "the grid shows a heading and a line";
                                ASSERT_GE(main.bounds.width, px(100));
                            }
}

TEST(Geometry, ShowsOnlyTheSelectedPage) {
    for (const TabPage page : {TabPage::conditions, TabPage::sort, TabPage::columns}) {
        const Geometry g = computeGeometry({{640, 400, 1}, page, true, true, 3, 2});
        const bool conditions = page == TabPage::conditions;
        for (const Placement* p : {&g.vsFilter, &g.cmdInsert, &g.cboTime, &g.lblPost, &g.PicPan, &g.picPageBase})
            EXPECT_EQ(p->visible, conditions);
        EXPECT_EQ(g.picOrder.visible, page == TabPage::sort);
        EXPECT_EQ(g.vsHideColumn.visible, page == TabPage::columns);
        EXPECT_EQ(g.cmdHide[4].visible, page == TabPage::columns);
        EXPECT_TRUE(g.lvwProject.visible);
    }
    const Geometry plain = computeGeometry({{640, 400, 1}, TabPage::conditions, false, false, 0, 0});
    EXPECT_FALSE(plain.lvwProject.visible || plain.cboTime.visible || plain.picPageBase.visible);
}

TEST(Geometry, GivesTheGridTheSpaceThatIsLeft) {
    const Geometry comfortable = computeGeometry({{640, 400, 1}, TabPage::conditions, true, true, 3, 2});
    EXPECT_GE(comfortable.vsFilter.bounds.height, 180);
    EXPECT_GE(comfortable.vsFilter.bounds.width, 440);
    const Geometry wide = computeGeometry({{1600, 900, 1}, TabPage::conditions, true, true, 3, 2});
    EXPECT_GE(wide.vsFilter.bounds.width, 1300);
    EXPECT_GE(wide.vsFilter.bounds.height, 700);
}

TEST(Geometry, MakesRoomForLongerCaptions) {
    for (const auto& [width, widest] : {std::pair{900, 105}, {320, 300}}) {
        GeometryInput input{{width, 400, 1}, TabPage::columns};
        input.classTypeLabelText = input.hideButtonText = widest;
        const Geometry g = computeGeometry(input);
        expectApartWithin(onControl(g), width, 400);
        EXPECT_GE(g.cboClassType.bounds.width, 120);
        EXPECT_GE(g.vsHideColumn.bounds.width, 120);
        if (width == 900) {
            EXPECT_GE(g.lblClassType.bounds.width, widest);
            EXPECT_GE(g.cmdHide[4].bounds.width, widest);
        }
    }
    EXPECT_LE(captionWidth(u"单据类型"), 60) << "the usual labels keep their places";

    GeometryInput input{{900, 400, 1}, TabPage::conditions, true, true, 5, 4};
    const int usualLabel = computeGeometry(input).lblFilter[0].bounds.width;
    input.pairLabelText = captionWidth(u"收款类型");
    EXPECT_EQ(computeGeometry(input).lblFilter[0].bounds.width, usualLabel) << "four Chinese letters fit anyway";
    input.pairLabelText = input.pageBoxText = 130;
    for (const int width : {900, 480}) {
        input.size.width = width;
        const Geometry g = computeGeometry(input);
        EXPECT_GE(g.lblFilter[0].bounds.width, 130) << width;
        EXPECT_GE(g.lblTime.bounds.width, 130) << width;
        EXPECT_GE(g.cmbFilter[0].bounds.width, 40) << width;
        EXPECT_GE(g.chkPage[4].bounds.width, 150) << width;
        EXPECT_GE(g.vsFilter.bounds.height, 66) << width;
    }
}

TEST(Geometry, ScrollsPagesThatDoNotFit) {
    const Geometry few = computeGeometry({{640, 400, 1}, TabPage::conditions, false, false, 5, 0});
    EXPECT_FALSE(few.vsPage.visible);
    EXPECT_EQ(few.pageScrollMaximum, 0);
    const Geometry many = computeGeometry({{640, 400, 1}, TabPage::conditions, false, false, 30, 0});
    ASSERT_TRUE(many.vsPage.visible);
    // One step moves the page area by 45 twips, which are 3 pixels.
    EXPECT_EQ(many.pageScrollMaximum * 3, many.picPage.bounds.height - many.picPageBase.bounds.height);
}

} // namespace
} // namespace orv::control
