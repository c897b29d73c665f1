#include "clock/window_region.h"

#include <gtest/gtest.h>

namespace {

QRegion regionOf(ShapeControl shape, int16_t xOffset = 0, int16_t yOffset = 0) {
    std::vector<ShapeControl> shapes{shape};
    return MakeWindowRegion(shapes, xOffset, yOffset);
}

TEST(WindowRegion, ClockPillIs155By21PixelsWithRoundEnds) {
    std::vector<ShapeControl> shapes = ClockBorderShapes();
    const QRegion pill = MakeWindowRegion(shapes, 0, 0);
    EXPECT_EQ(pill.boundingRect(), QRect(1, 1, 155, 21));

    for (QPoint inside : {QPoint(11, 11), QPoint(1, 11), QPoint(155, 11), QPoint(80, 1), QPoint(80, 20), QPoint(11, 21),
                          QPoint(145, 21), QPoint(22, 11)})
        EXPECT_TRUE(pill.contains(inside)) << inside.x() << "," << inside.y();
    // Row 0 and column 0 lie outside, the bar stops at row 20, the circles' corners are cut.
    for (QPoint outside :
         {QPoint(0, 11), QPoint(80, 0), QPoint(80, 21), QPoint(156, 11), QPoint(1, 1), QPoint(155, 21), QPoint(2, 20)})
        EXPECT_FALSE(pill.contains(outside)) << outside.x() << "," << outside.y();
}

TEST(WindowRegion, EveryShapeKindTakesItsBox) {
    // A box of 600 x 360 twips at 120, 240: 50 x 30 pixels at 10, 20.
    EXPECT_EQ(regionOf({0, 120, 240, 600, 360}), QRegion(10, 20, 50, 30));
    EXPECT_EQ(regionOf({1, 120, 240, 600, 360}), QRegion(20, 20, 30, 30));
    EXPECT_EQ(regionOf({1, 120, 240, 360, 600}), QRegion(10, 30, 30, 30)); // taller than wide

    const QRegion oval = regionOf({2, 120, 240, 600, 360});
    EXPECT_EQ(oval.boundingRect(), QRect(10, 20, 50, 30));
    EXPECT_FALSE(oval.contains(QPoint(10, 20)));
    EXPECT_TRUE(oval.contains(QPoint(10, 35)));

    const QRegion circle = regionOf({3, 120, 240, 600, 360});
    EXPECT_EQ(circle.boundingRect(), QRect(20, 20, 30, 30));
    EXPECT_FALSE(circle.contains(QPoint(21, 21)));

    // Rounded corners are 28 pixels across whatever the box, so only the very corners are cut.
    const QRegion rounded = regionOf({4, 120, 240, 600, 360});
    EXPECT_EQ(rounded.boundingRect(), QRect(10, 20, 50, 30));
    EXPECT_FALSE(rounded.contains(QPoint(10, 20)));
    EXPECT_TRUE(rounded.contains(QPoint(10, 35)));
    EXPECT_TRUE(rounded.contains(QPoint(35, 20)));
    EXPECT_FALSE(rounded.contains(QPoint(12, 22)));
    EXPECT_TRUE(rounded.contains(QPoint(16, 26)));

    const QRegion roundedSquare = regionOf({5, 120, 240, 600, 360});
    EXPECT_EQ(roundedSquare.boundingRect(), QRect(20, 20, 30, 30));
    EXPECT_FALSE(roundedSquare.contains(QPoint(20, 20)));
}

TEST(WindowRegion, UnknownKindBecomesAnOval) {
    std::vector<ShapeControl> shapes{{7, 120, 240, 600, 360}};
    const QRegion region = MakeWindowRegion(shapes, 0, 0);
    EXPECT_EQ(shapes[0].Shape, 2);
    EXPECT_EQ(region, regionOf({2, 120, 240, 600, 360}));
}

TEST(WindowRegion, TwipsRoundHalfToEvenAtTheDesignDensityPlusOffsets) {
    // 18/12 = 1.5 -> 2, 30/12 = 2.5 -> 2, 42/12 = 3.5 -> 4, 54/12 = 4.5 -> 4.
    EXPECT_EQ(regionOf({0, 18, 30, 24, 24}), QRegion(2, 2, 2, 2));
    EXPECT_EQ(regionOf({0, 120, 240, 600, 360}, 5, -1), QRegion(15, 19, 50, 30));
}

} // namespace
