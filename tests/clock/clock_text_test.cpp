#include "clock/clock_text.h"

#include "qt_printers.h"

#include <gtest/gtest.h>

namespace {

TEST(ClockText, FourPatterns) {
    struct Row {
        QTime time;
        bool h24, seconds;
        const char* text;
    };
    const Row rows[] = {
        {QTime(15, 7, 9), false, true, "03 : 07 : 09  PM"}, {QTime(15, 7, 9), false, false, "03 : 07  PM"},
        {QTime(15, 7, 9), true, true, "15 : 07 : 09"},      {QTime(15, 7, 9), true, false, "15 : 07"},
        {QTime(0, 5, 0), false, true, "12 : 05 : 00  AM"},  {QTime(0, 5, 0), true, false, "00 : 05"},
        {QTime(12, 0, 1), false, false, "12 : 00  PM"},     {QTime(11, 59, 59), false, true, "11 : 59 : 59  AM"},
    };
    for (const Row& r : rows)
        EXPECT_EQ(ClockTimeText(r.time, r.h24, r.seconds), QString::fromLatin1(r.text));
}

TEST(ClockText, DateWithAbbreviatedNames) {
    EXPECT_EQ(ClockDateText(QDate(2026, 11, 19), QLocale::c()), QStringLiteral("Thu. 19 Nov 2026"));
    EXPECT_EQ(ClockDateText(QDate(2002, 5, 1), QLocale::c()), QStringLiteral("Wed. 01 May 2002"));
}

} // namespace
