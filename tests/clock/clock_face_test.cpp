#include "clock/clock_face.h"
#include "clock/clock_picture.h"
#include "clock/clock_text.h"
#include "clock/window_region.h"
#include "qt_printers.h"

#include <gtest/gtest.h>

namespace {

struct Density {
    int32_t dpi;
    float tpp;
};
constexpr Density k96{96, 15}, k120{120, 12}, k144{144, 10};

ClockFace loaded(Density d, bool matched, int32_t stored) {
    ClockFace face;
    applyStoredClockSize(face, matched, stored);
    applyDensityCorrections(face, d.dpi, dpiOffsetOf(d.dpi, d.tpp), stored, d.tpp);
    return face;
}

// 96, 120 and 144 are checked through the sizes they give below.
TEST(ClockFace, DpiOffsetIsTheDistanceFromTwelveOutsideTheDesignBand) {
    EXPECT_EQ(dpiOffsetOf(72, 20), 8);
    EXPECT_EQ(dpiOffsetOf(110, 1440.0f / 110), 0);
    EXPECT_EQ(dpiOffsetOf(192, 7.5f), 4); // 4.5 rounds to even
    EXPECT_EQ(dpiOffsetOf(168, 1440.0f / 168), 3);
}

TEST(ClockFace, StoredSizeAtLoad) {
    const std::tuple<Density, bool, int32_t, float, float> rows[] = {
        {k120, false, 0, 9, 0},    {k120, true, 8, 8, 36},
        {k120, true, 9, 9, 24},    {k120, true, 10, 10, 12},
        {k120, true, 11, 11, 0},   {k120, true, 12, 12, 0},
        {k120, true, 7, 9, 0},     {k120, true, 13, 9, 0},
        {k120, false, 8, 9, 0},    {k96, true, 10, 10, 42},
        {k96, true, 11, 11, 30},   {k96, true, 9, 9, 24},
        {k96, true, 12, 12, 0},    {k144, true, 8, 8 - 8.0f * 2 / 12, 26},
        {k144, true, 9, 7.5f, 24},
    };
    for (const auto& [d, matched, stored, fontSize, top] : rows) {
        const ClockFace face = loaded(d, matched, stored);
        EXPECT_FLOAT_EQ(face.labelFontSize, fontSize) << d.dpi << " stored " << stored;
        EXPECT_FLOAT_EQ(face.labelTop, top) << d.dpi << " stored " << stored;
    }
}

TEST(ClockFace, MenuChoiceEqualsWhatTheNextLoadBuildsAndDoesNotPileUp) {
    for (Density d : {k96, k120, k144}) {
        for (int32_t size = 8; size <= 11; ++size) {
            ClockFace face = loaded(d, false, 0);
            const float width = face.labelWidth, closeLeft = face.closeLeft;
            chooseClockSize(face, size, d.dpi, dpiOffsetOf(d.dpi, d.tpp), d.tpp);
            chooseClockSize(face, size, d.dpi, dpiOffsetOf(d.dpi, d.tpp), d.tpp);
            const ClockFace next = loaded(d, true, size);
            EXPECT_FLOAT_EQ(face.labelFontSize, next.labelFontSize) << d.dpi << " size " << size;
            EXPECT_FLOAT_EQ(face.labelTop, next.labelTop) << d.dpi << " size " << size;
            EXPECT_FLOAT_EQ(face.labelWidth, width);
            EXPECT_FLOAT_EQ(face.closeLeft, closeLeft);
        }
    }
}

TEST(ClockText, FourPatterns) {
    const std::tuple<QTime, bool, bool, const char*> rows[] = {
        {QTime(15, 7, 9), false, true, "03 : 07 : 09  PM"}, {QTime(15, 7, 9), false, false, "03 : 07  PM"},
        {QTime(15, 7, 9), true, true, "15 : 07 : 09"},      {QTime(15, 7, 9), true, false, "15 : 07"},
        {QTime(0, 5, 0), false, true, "12 : 05 : 00  AM"},  {QTime(0, 5, 0), true, false, "00 : 05"},
        {QTime(12, 0, 1), false, false, "12 : 00  PM"},     {QTime(11, 59, 59), false, true, "11 : 59 : 59  AM"},
    };
    for (const auto& [time, h24, seconds, text] : rows)
        EXPECT_EQ(clockTimeText(time, h24, seconds), QString::fromLatin1(text));
}

TEST(ClockText, DateWithAbbreviatedNames) {
    EXPECT_EQ(clockDateText(QDate(2026, 11, 19), QLocale::c()), QStringLiteral("Thu. 19 Nov 2026"));
    EXPECT_EQ(clockDateText(QDate(2002, 5, 1), QLocale::c()), QStringLiteral("Wed. 01 May 2002"));
}

// The program's only outline: two circles and a bar, on whole design pixels. The other shape kinds and offsets
// are never used.
TEST(WindowRegion, ClockPillIs155By21PixelsWithRoundEnds) {
    std::vector<ShapeControl> shapes = clockBorderShapes();
    const QRegion pill = windowRegion(shapes, 0, 0);
    EXPECT_EQ(pill.boundingRect(), QRect(1, 1, 155, 21));

    for (QPoint inside : {QPoint(11, 11), QPoint(1, 11), QPoint(155, 11), QPoint(80, 1), QPoint(80, 20), QPoint(11, 21),
                          QPoint(145, 21), QPoint(22, 11)})
        EXPECT_TRUE(pill.contains(inside)) << inside.x() << "," << inside.y();
    // Row 0 and column 0 lie outside, the bar stops at row 20, the circles' corners are cut.
    for (QPoint outside :
         {QPoint(0, 11), QPoint(80, 0), QPoint(80, 21), QPoint(156, 11), QPoint(1, 1), QPoint(155, 21), QPoint(2, 20)})
        EXPECT_FALSE(pill.contains(outside)) << outside.x() << "," << outside.y();
}

TEST(WindowRegion, TheFacePaintsEveryPixelOfTheOutline) {
    std::vector<ShapeControl> shapes = clockBorderShapes();
    const QImage face = clock_picture::pill();
    for (const QRect& band : windowRegion(shapes, 0, 0))
        for (int y = band.top(); y <= band.bottom(); ++y)
            for (int x = band.left(); x <= band.right(); ++x)
                ASSERT_GT(face.valid(x, y) ? qAlpha(face.pixel(x, y)) : 0, 0) << "no face at " << x << "," << y;
}

} // namespace
