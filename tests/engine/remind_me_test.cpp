#include "engine/remind_me.h"
#include "qt_printers.h"

#include <gtest/gtest.h>

namespace {
QDateTime at(int h, int m, int s) {
    return QDateTime(QDate(2002, 5, 1), QTime(h, m, s));
}
} // namespace

TEST(RemindMe, OkDecidesBetweenClosingRefusingAndCounting) {
    RemindMe r;
    EXPECT_EQ(r.ok("", "", at(8, 0, 0)), RemindMe::OkResult::Close);
    EXPECT_EQ(r.ok("0", "", at(8, 0, 0)), RemindMe::OkResult::ZeroRefused);
    EXPECT_EQ(r.ok("00", "", at(8, 0, 0)), RemindMe::OkResult::ZeroRefused);
    EXPECT_FALSE(r.blnCounting);
    EXPECT_EQ(r.ok("2", "", at(8, 0, 0)), RemindMe::OkResult::Counting);
    EXPECT_EQ(r.strTimesOfPlay, "once");
    EXPECT_EQ(r.ok("2", "repeat", at(8, 0, 0)), RemindMe::OkResult::Counting);
    EXPECT_EQ(r.strTimesOfPlay, "repeat");
}

TEST(RemindMe, CountsChangesOfTheMinuteAndStampsTheTimeWhenItRings) {
    RemindMe r;
    r.ok("1", "", at(8, 0, 59));
    QString text = "Dentist at 08:00:05";
    EXPECT_FALSE(r.step(at(8, 0, 59), text));
    // Set at second 59, one minute rings a second later.
    EXPECT_TRUE(r.step(at(8, 1, 0), text));
    EXPECT_EQ(text, "Dentist at 08:01:00");
    EXPECT_FALSE(r.blnCounting);
    EXPECT_FALSE(r.step(at(8, 2, 0), text));

    r.ok("3", "", at(9, 10, 0));
    text = "alarm at 09:00:00";
    EXPECT_FALSE(r.step(at(9, 11, 0), text));
    EXPECT_FALSE(r.step(at(9, 12, 30), text));
    EXPECT_TRUE(r.step(at(9, 13, 0), text));
    EXPECT_EQ(text, "alarm at 09:13:00");
}

TEST(RemindMe, KeyRulesAndTitle) {
    EXPECT_TRUE(RemindMe::keyAllowed(QLatin1Char('7')));
    EXPECT_TRUE(RemindMe::keyAllowed(QChar(8)));
    EXPECT_FALSE(RemindMe::keyAllowed(QLatin1Char('a')));
    EXPECT_FALSE(RemindMe::keyAllowed(QChar(0x0663))); // an Arabic-Indic digit
    EXPECT_TRUE(RemindMe::tooLong("100"));
    EXPECT_FALSE(RemindMe::tooLong("99"));
    EXPECT_EQ(RemindMe::title(at(20, 30, 0)), "Message  01 May 2002 / 08:30 PM");
}
