#include "fake_screen.h"

#include <QPointF>
#include <gtest/gtest.h>

namespace {

// A pointer that drags a control lying at the window's top left corner; positions in screen twips.
struct DragRig {
    FakeScreen screen;
    FakeDockWindow win{screen};
    DockingHandler dock{screen};
    float px = 0, py = 0;

    explicit DragRig(int32_t dpi = 120, float left = 3600, float top = 3000) : screen(dpi) {
        win.left = left;
        win.top = top;
        dock.setWindow(&win);
    }
    void press(float dxInControl = 600, float dyInControl = 120) {
        px = win.left + dxInControl;
        py = win.top + dyInControl;
        dock.startDrag(px - win.left, py - win.top);
    }
    void pull(float dx, float dy) {
        px += dx;
        py += dy;
        dock.updateDrag(px - win.left, py - win.top);
    }
};

TEST(DockingHandler, TopEdgeSnapsWithinTheDistanceOnEitherSide) {
    // At 12 twips a pixel: proposed top 120 snaps, 132 stays free, -120 snaps as well.
    for (const auto [startTop, pull, expectTop, held] :
         {std::tuple{1200.f, -1080.f, 0, true}, {1200.f, -1068.f, 132, false}, {600.f, -720.f, 0, true}}) {
        DragRig rig(120, 4000, startTop);
        rig.press();
        rig.pull(0.4f, -0.4f); // rounds to no step: the window is not touched
        EXPECT_TRUE(rig.win.calls.empty());
        rig.pull(-0.4f, pull + 0.4f);
        ASSERT_EQ(rig.win.calls.size(), 1u);
        EXPECT_EQ(rig.dock.dockedTop(), held) << pull;
        EXPECT_EQ(rig.win.calls[0],
                  (FakeDockWindow::Call{DockingHandler::kHwndNoTopmost, 4000 / 12, int(expectTop / 12), 250, 85}))
            << pull;
    }
}

TEST(DockingHandler, HeldWindowNeedsAPullPastTheDistanceAndFlagsOutliveTheDrag) {
    DragRig rig(120, 3600, 600);
    rig.press();
    rig.pull(0, -600); // snaps to the top
    ASSERT_TRUE(rig.dock.dockedTop());

    // A new press keeps the flag; pulls of up to 120 either way leave it at 0 while it slides along.
    rig.press();
    rig.pull(24, -120);
    EXPECT_EQ(std::tuple(rig.win.top, rig.win.left), std::tuple(0, 3624));
    rig.pull(0, 240);
    EXPECT_EQ(std::tuple(rig.win.top, rig.dock.dockedTop()), std::tuple(0, true));

    // 132 upward from the grip: lets go and the window jumps the whole pull, out of the work area.
    rig.pull(0, -252);
    EXPECT_EQ(std::tuple(rig.dock.dockedTop(), rig.win.top, rig.win.calls.back().y), std::tuple(false, -132, -11));
}

TEST(DockingHandler, BottomEdgeRestsShortOfFlushByTheStepThatReachedIt) {
    // Work area bottom 8640: flush top would be 7620. A step of 500 proposing 7500 lands at 7000 + 120.
    DragRig rig(120, 4000, 7000);
    rig.press();
    rig.pull(0, 500);
    EXPECT_TRUE(rig.dock.dockedBottom());
    EXPECT_EQ(rig.win.calls.back().y, 593); // 7120 twips
    // The pointer ran 384 ahead inside the label: within reach the window stays put.
    rig.pull(0, 12);
    EXPECT_EQ(std::tuple(rig.win.calls.back().y, rig.dock.dockedBottom()), std::tuple(593, true));
    // Moving up by 200 leaves the pointer 196 below its grip, out of reach: it lets go and drops to it.
    rig.pull(0, -200);
    EXPECT_FALSE(rig.dock.dockedBottom());
    EXPECT_EQ(rig.win.calls.back().y, 609); // 7116 + 196 twips
}

TEST(DockingHandler, SideEdgesAndAnOffsetWorkAreaAtBothDensities) {
    for (int dpi : {120, 96}) {
        const float tpp = 1440.0f / dpi;
        // The whole window counts at the right edge: flush means its right side on the work area's.
        DragRig right(dpi, 6000, 3000);
        right.press();
        right.pull(1024 * tpp - 3000 - 6000 - 100, 0);
        EXPECT_TRUE(right.dock.dockedRight()) << dpi;
        EXPECT_EQ(right.win.calls.back().x, 1024 - roundHalfEven(3000 / tpp)) << dpi;

        DragRig left(dpi, 2000, 3000);
        left.screen.workArea = {40, 30, 1024, 720}; // task bars along the left and the top
        left.press();
        left.pull(40 * tpp + 60 - 2000, 30 * tpp - 60 - 3000); // 60 twips inside and outside
        EXPECT_EQ(std::tuple(left.dock.dockedTop(), left.dock.dockedLeft()), std::tuple(true, true));
        EXPECT_EQ(QPoint(left.win.calls.back().x, left.win.calls.back().y), QPoint(40, 30)) << dpi;
    }
}

TEST(DockingHandler, BothEdgesOfAnAxisNearGivesTopAndLeft) {
    DragRig rig(120, 400, 400);
    rig.screen.workArea = {0, 0, 260, 90}; // 3120 x 1080 twips, barely more than the window
    rig.press();
    rig.pull(-350, -350);
    EXPECT_TRUE(rig.dock.dockedTop() && rig.dock.dockedBottom() && rig.dock.dockedLeft() && rig.dock.dockedRight());
    EXPECT_EQ(QPointF(rig.win.left, rig.win.top), QPointF(0, 0));
}

TEST(DockingHandler, StaleFlagFallsOnTheFirstStepAfterAMoveByOtherMeans) {
    DragRig rig(120, 4000, 600);
    rig.press();
    rig.pull(0, -600);
    ASSERT_TRUE(rig.dock.dockedTop());
    rig.win.top = 3000; // moved elsewhere, say by a restore
    rig.press();
    rig.pull(0, 36);
    EXPECT_EQ(std::tuple(rig.dock.dockedTop(), rig.win.top), std::tuple(false, 3036));
}

TEST(DockingHandler, SnapsWithinTenPixelsAndRestacksInPlaceOnlyWithAWindow) {
    FakeScreen screen(120);
    FakeDockWindow win(screen);
    DockingHandler dock(screen);
    dock.setAlwaysOnTop(true);
    EXPECT_TRUE(win.calls.empty());
    dock.startDrag(0, 0);
    dock.updateDrag(50, 50); // no window: nothing moves

    win.left = 1200;
    win.top = 240;
    dock.setWindow(&win);
    dock.setAlwaysOnTop(true);
    EXPECT_EQ(win.calls, (std::vector<FakeDockWindow::Call>{{DockingHandler::kHwndTopmost, 100, 20, 250, 85}}));
    dock.startDrag(0, 0);
    dock.updateDrag(0, 1200);
    EXPECT_EQ(win.calls.back().insertAfter, DockingHandler::kHwndTopmost);
    dock.setAlwaysOnTop(false);
    EXPECT_EQ(win.calls.back().insertAfter, DockingHandler::kHwndNoTopmost);
}

} // namespace
