#include "engine/command_recurring.h"
#include "served_engine.h"

#include <gtest/gtest.h>

namespace {

struct CommandRecurringTest : ::testing::Test, ServedEngine {
    CommandRecurringTest() { clock.set(2026, 11, 25, 8, 0, 0); } // a Wednesday
};

} // namespace

TEST_F(CommandRecurringTest, EveryTurnsIntoItsRuleAndItsFirstDay) {
    struct Case {
        const char* every;
        const char* until;
        int count;
        const char* rule;
        QDate first; // from Wednesday 2026/11/25 with the time gone
    };
    const Case cases[] = {
        {"day", "", 0, "FREQ=DAILY", QDate(2026, 11, 26)},
        {"weekdays", "", 0, "FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR", QDate(2026, 11, 26)},
        {"weekends", "2026/12/31", 0, "FREQ=WEEKLY;BYDAY=SA,SU;UNTIL=20261231T235959", QDate(2026, 11, 28)},
        {"fri,mon,fri", "", 4, "FREQ=WEEKLY;BYDAY=MO,FR;COUNT=4", QDate(2026, 11, 27)},
        {"month", "", 0, "FREQ=MONTHLY", QDate(2026, 11, 25)},
    };
    for (const Case& c : cases) {
        const QString rule = command_recurring::ruleFor(c.every, c.until, c.count);
        EXPECT_EQ(rule, QLatin1String(c.rule)) << c.every;
        EXPECT_EQ(command_recurring::firstDay(c.every, QDate(2026, 11, 25), true), c.first) << c.every;
    }
    EXPECT_EQ(command_recurring::everyOf("FREQ=WEEKLY;UNTIL=20261231T235959;BYDAY=SA,SU"), "weekends until 2026/12/31");
    EXPECT_EQ(command_recurring::everyOf("FREQ=WEEKLY;BYDAY=MO,FR;COUNT=4"), "mon,fri count 4");
    EXPECT_EQ(command_recurring::everyOf("FREQ=DAILY;INTERVAL=2"), "FREQ=DAILY;INTERVAL=2");
    EXPECT_FALSE(command_protocol::parse({"add", "--time", "07:00", "--every", "fortnight"}).refusal.isEmpty());
    EXPECT_FALSE(command_protocol::parse({"add", "--time", "07:00", "--count", "3"}).refusal.isEmpty());
    EXPECT_FALSE(command_protocol::parse({"add", "--in", "5s", "--every", "day"}).refusal.isEmpty());
}

TEST_F(CommandRecurringTest, AddListAndRemove) {
    const QJsonObject added =
        send({"add", "--time", "08:00:05", "--every", "weekdays", "--plays", "twice", "--message", "Stand-up"});
    ASSERT_TRUE(added.value("ok").toBool()) << qPrintable(added.value("error").toString());
    EXPECT_EQ(added.value("event").toObject().value("next").toString(), "2026/11/25 08:00:05");
    EXPECT_EQ(ctx.today.alarms.items(), QStringList{"twice 08:00:05"}); // armed at once
    ASSERT_TRUE(send({"add", "--time", "09:00", "--message", "One-off"}).value("ok").toBool());
    ASSERT_TRUE(send({"add", "--date", "2026/11/30", "--time", "09:00", "--message", "Later"}).value("ok").toBool());

    const QJsonArray shown = events();
    ASSERT_EQ(shown.size(), 3); // today's occurrence shows as its alarm, not a second time
    EXPECT_EQ(shown[0].toObject().value("every").toString(), "weekdays");
    EXPECT_EQ(shown[1].toObject().value("message").toString(), "One-off");
    EXPECT_FALSE(shown[1].toObject().contains("every"));
    const QString laterId = shown[2].toObject().value("id").toString();
    EXPECT_EQ(events()[2].toObject().value("id").toString(), laterId); // stable

    // Three alarms at 09:00: a choice by time alone is refused with each named.
    ASSERT_TRUE(send({"add", "--time", "09:00", "--every", "day"}).value("ok").toBool());
    const QJsonObject ambiguous = send({"remove", "--time", "9:00"});
    EXPECT_FALSE(ambiguous.value("ok").toBool());
    EXPECT_EQ(ambiguous.value("error").toString().count('\n'), 3);

    ASSERT_TRUE(send({"remove", "--id", laterId}).value("ok").toBool());
    EXPECT_TRUE(readBytes(ctx.folder + "future.dat").isEmpty());
    ASSERT_TRUE(send({"remove", "--message", "Stand-up"}).value("ok").toBool());
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"once 09:00:00", "once 09:00:00"}));
    EXPECT_EQ(ctx.today.messages.items(), QStringList{"One-off at 09:00:00"});
    EXPECT_FALSE(readBytes(ctx.folder + "recurring.ics").contains("Stand-up"));
    EXPECT_FALSE(send({"remove", "--message", "Stand-up"}).value("ok").toBool());
    EXPECT_EQ(listed().size(), 2);
}
