#include "clock/clock_face.h"

#include <gtest/gtest.h>

namespace {

struct Density {
    int32_t dpi;
    float tpp;
};
constexpr Density k96{96, 15}, k120{120, 12}, k144{144, 10};

ClockFace loaded(Density d, bool matched, int32_t stored) {
    ClockFace face;
    ApplyStoredClockSize(face, matched, stored);
    ApplyDensityCorrections(face, d.dpi, DpiOffset(d.dpi, d.tpp), stored, d.tpp);
    return face;
}

TEST(ClockFace, DpiOffsetIsTheDistanceFromTwelveOutsideTheDesignBand) {
    EXPECT_EQ(DpiOffset(96, 15), 3);
    EXPECT_EQ(DpiOffset(72, 20), 8);
    EXPECT_EQ(DpiOffset(110, 1440.0f / 110), 0);
    EXPECT_EQ(DpiOffset(120, 12), 0);
    EXPECT_EQ(DpiOffset(144, 10), 2);
    EXPECT_EQ(DpiOffset(192, 7.5f), 4); // 4.5 rounds to even
    EXPECT_EQ(DpiOffset(168, 1440.0f / 168), 3);
}

TEST(ClockFace, DensityCorrectionsPutTheLabelOnTheSamePixels) {
    struct Row {
        Density d;
        float left, width, closeLeft, fontSize;
    };
    for (const Row& r :
         {Row{k96, 150, 1965, 2100, 9}, Row{k120, 120, 1572, 1680, 9}, Row{k144, 120, 1310, 1400, 7.5f}}) {
        const ClockFace face = loaded(r.d, false, 0);
        EXPECT_FLOAT_EQ(face.lblLeft, r.left) << r.d.dpi;
        EXPECT_FLOAT_EQ(face.lblWidth, r.width) << r.d.dpi;
        EXPECT_FLOAT_EQ(face.closeLeft, r.closeLeft) << r.d.dpi;
        EXPECT_FLOAT_EQ(face.lblFontSize, r.fontSize) << r.d.dpi;
        EXPECT_FLOAT_EQ(face.lblTop, 0) << r.d.dpi;
    }
    // 110 dots per inch: no correction though the twips per pixel are not 12.
    const ClockFace at110 = loaded({110, 1440.0f / 110}, false, 0);
    EXPECT_FLOAT_EQ(at110.lblWidth, 1572);
    EXPECT_FLOAT_EQ(at110.closeLeft, 1680);
}

TEST(ClockFace, StoredSizeAtLoad) {
    struct Row {
        Density d;
        bool matched;
        int32_t stored;
        float fontSize, top;
    };
    const Row rows[] = {
        {k120, false, 0, 9, 0},    {k120, true, 8, 8, 36},
        {k120, true, 9, 9, 24},    {k120, true, 10, 10, 12},
        {k120, true, 11, 11, 0},   {k120, true, 12, 12, 0},
        {k120, true, 7, 9, 0},     {k120, true, 13, 9, 0},
        {k120, false, 8, 9, 0},    {k96, true, 10, 10, 42},
        {k96, true, 11, 11, 30},   {k96, true, 9, 9, 24},
        {k96, true, 12, 12, 0},    {k144, true, 8, 8 - 8.0f * 2 / 12, 26},
        {k144, true, 9, 7.5f, 24},
    };
    for (const Row& r : rows) {
        const ClockFace face = loaded(r.d, r.matched, r.stored);
        EXPECT_FLOAT_EQ(face.lblFontSize, r.fontSize) << r.d.dpi << " stored " << r.stored;
        EXPECT_FLOAT_EQ(face.lblTop, r.top) << r.d.dpi << " stored " << r.stored;
    }
}

TEST(ClockFace, MenuChoiceEqualsWhatTheNextLoadBuildsAndDoesNotPileUp) {
    for (Density d : {k96, k120, k144}) {
        for (int32_t size = 8; size <= 11; ++size) {
            ClockFace face = loaded(d, false, 0);
            const float width = face.lblWidth, closeLeft = face.closeLeft;
            ChooseClockSize(face, size, d.dpi, DpiOffset(d.dpi, d.tpp), d.tpp);
            ChooseClockSize(face, size, d.dpi, DpiOffset(d.dpi, d.tpp), d.tpp);
            const ClockFace next = loaded(d, true, size);
            EXPECT_FLOAT_EQ(face.lblFontSize, next.lblFontSize) << d.dpi << " size " << size;
            EXPECT_FLOAT_EQ(face.lblTop, next.lblTop) << d.dpi << " size " << size;
            EXPECT_FLOAT_EQ(face.lblWidth, width);
            EXPECT_FLOAT_EQ(face.closeLeft, closeLeft);
        }
    }
    ClockFace face;
    ChooseClockSize(face, 9, 120, 0, 12);
    EXPECT_FLOAT_EQ(face.lblTop, 24); // two design pixels below the unsized start
}

} // namespace
