#include "engine/command_recurring.h"
#include "served_engine.h"

#include <gtest/gtest.h>

namespace {

// A profile of its own on a Wednesday morning: its folder, its engine, the command service over it.
struct Profile : ServedEngine {
    Profile() { clock.set(2026, 11, 25, 8, 0, 0); } // a Wednesday
    QJsonObject import(const QByteArray& ics) {
        command_protocol::Request r;
        r.command = QStringLiteral("import");
        r.ics = QString::fromUtf8(ics);
        return serve(r);
    }
};

struct CommandRecurringTest : ::testing::Test, Profile {};

// Hand-made files in the shapes four calendar programs export.
const QByteArray kThunderbird = "BEGIN:VCALENDAR\r\nPRODID:-//Mozilla.org/NONSGML Mozilla Calendar V1.1//EN\r\n"
                                "VERSION:2.0\r\nBEGIN:VTIMEZONE\r\nTZID:Europe/Berlin\r\nBEGIN:STANDARD\r\n"
                                "TZOFFSETFROM:+0200\r\nTZOFFSETTO:+0100\r\nTZNAME:CET\r\nDTSTART:19701025T030000\r\n"
                                "RRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=10\r\nEND:STANDARD\r\nBEGIN:DAYLIGHT\r\n"
                                "TZOFFSETFROM:+0100\r\nTZOFFSETTO:+0200\r\nTZNAME:CEST\r\nDTSTART:19700329T020000\r\n"
                                "RRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=3\r\nEND:DAYLIGHT\r\nEND:VTIMEZONE\r\n"
                                "BEGIN:VEVENT\r\nCREATED:20261101T100000Z\r\nLAST-MODIFIED:20261101T100000Z\r\n"
                                "DTSTAMP:20261101T100000Z\r\nUID:6c1f3b52-1b8e-4d1e-9a53-0c2a0d6e3b11\r\n"
                                "SUMMARY:Dentist\r\nDTSTART;TZID=Europe/Berlin:20261130T100000\r\n"
                                "DTEND;TZID=Europe/Berlin:20261130T110000\r\nTRANSP:OPAQUE\r\n"
                                "X-MOZ-GENERATION:1\r\nBEGIN:VALARM\r\nACTION:DISPLAY\r\n"
                                "TRIGGER;VALUE=DURATION:-PT15M\r\nDESCRIPTION:Default Mozilla Description\r\n"
                                "END:VALARM\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
const QByteArray kGnome = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//GNOME//GNOME Calendar//EN\r\n"
                          "BEGIN:VTIMEZONE\r\nTZID:/freeassociation.sourceforge.net/Europe/Berlin\r\n"
                          "X-LIC-LOCATION:Europe/Berlin\r\nBEGIN:STANDARD\r\nTZNAME:CET\r\nDTSTART:19701025T030000\r\n"
                          "RRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=10\r\nTZOFFSETFROM:+0200\r\nTZOFFSETTO:+0100\r\n"
                          "END:STANDARD\r\nBEGIN:DAYLIGHT\r\nTZNAME:CEST\r\nDTSTART:19700329T020000\r\n"
                          "RRULE:FREQ=YEARLY;BYDAY=-1SU;BYMONTH=3\r\nTZOFFSETFROM:+0100\r\nTZOFFSETTO:+0200\r\n"
                          "END:DAYLIGHT\r\nEND:VTIMEZONE\r\nBEGIN:VEVENT\r\nUID:b0e4f1aa2c8d@example.org\r\n"
                          "DTSTAMP:20261120T090000Z\r\nDTSTART;TZID=/freeassociation.sourceforge.net/Europe/Berlin:"
                          "20261125T120000\r\nDTEND;TZID=/freeassociation.sourceforge.net/Europe/Berlin:"
                          "20261125T130000\r\nSUMMARY:Lunch with Ana\r\nBEGIN:VALARM\r\n"
                          "X-EVOLUTION-ALARM-UID:4f9c\r\nACTION:DISPLAY\r\n"
                          "TRIGGER;VALUE=DURATION;RELATED=START:-PT10M\r\nDESCRIPTION:Lunch with Ana\r\n"
                          "END:VALARM\r\nEND:VEVENT\r\nBEGIN:VEVENT\r\nUID:allday@example.org\r\n"
                          "DTSTAMP:20261120T090000Z\r\nDTSTART;VALUE=DATE:20261126\r\nDTEND;VALUE=DATE:20261127\r\n"
                          "SUMMARY:Holiday\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
const QByteArray kKdeAlarm = "BEGIN:VCALENDAR\r\nPRODID:-//K Desktop Environment//NONSGML alarm program 3.5//EN\r\n"
                             "VERSION:2.0\r\nX-KDE-ALARM-VERSION:3.5.0\r\nBEGIN:VEVENT\r\nDTSTAMP:20261101T080000Z\r\n"
                             "CREATED:20261101T080000Z\r\nUID:alarm-1733200000.101\r\n"
                             "LAST-MODIFIED:20261101T080000Z\r\nSUMMARY:Bins out\r\nDTSTART:20261102T061500Z\r\n"
                             "RRULE:FREQ=WEEKLY;BYDAY=MO,WE\r\nEXDATE:20261207T061500Z\r\nCATEGORIES:ACTIVE\r\n"
                             "BEGIN:VALARM\r\nDESCRIPTION:Bins out\r\nACTION:DISPLAY\r\n"
                             "TRIGGER;VALUE=DATE-TIME:20261102T061500Z\r\nX-KDE-ALARM-TYPE:MAIN\r\nEND:VALARM\r\n"
                             "BEGIN:VALARM\r\nACTION:AUDIO\r\nTRIGGER;VALUE=DATE-TIME:20261102T061500Z\r\n"
                             "X-KDE-ALARM-TYPE:SOUND\r\nEND:VALARM\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n";
const QByteArray kGoogle = "BEGIN:VCALENDAR\r\nPRODID:-//Google Inc//Google Calendar 70.9054//EN\r\nVERSION:2.0\r\n"
                           "CALSCALE:GREGORIAN\r\nMETHOD:PUBLISH\r\nX-WR-CALNAME:me@example.com\r\n"
                           "X-WR-TIMEZONE:Europe/Berlin\r\nBEGIN:VEVENT\r\nDTSTART:20261126T170000Z\r\n"
                           "DTEND:20261126T180000Z\r\nDTSTAMP:20261120T101010Z\r\nUID:3kq0v1pq@google.com\r\n"
                           "CREATED:20261120T101000Z\r\nDESCRIPTION:\r\nLAST-MODIFIED:20261120T101000Z\r\n"
                           "LOCATION:\r\nSEQUENCE:0\r\nSTATUS:CONFIRMED\r\nSUMMARY:Choir\r\nTRANSP:OPAQUE\r\n"
                           "BEGIN:VALARM\r\nACTION:EMAIL\r\nDESCRIPTION:This is an event reminder\r\n"
                           "SUMMARY:Alarm notification\r\nATTENDEE:mailto:me@example.com\r\n"
                           "TRIGGER:-P0DT1H0M0S\r\nEND:VALARM\r\nBEGIN:VALARM\r\nACTION:DISPLAY\r\n"
                           "DESCRIPTION:This is an event reminder\r\nTRIGGER:-P0DT0H30M0S\r\nEND:VALARM\r\n"
                           "END:VEVENT\r\nBEGIN:VEVENT\r\nDTSTART:20261128T090000Z\r\nDTEND:20261128T100000Z\r\n"
                           "DTSTAMP:20261120T101010Z\r\nUID:mailonly@google.com\r\nSUMMARY:Mail only\r\n"
                           "BEGIN:VALARM\r\nACTION:EMAIL\r\nDESCRIPTION:This is an event reminder\r\n"
                           "SUMMARY:Alarm notification\r\nATTENDEE:mailto:me@example.com\r\n"
                           "TRIGGER:-P0DT0H10M0S\r\nEND:VALARM\r\nEND:VEVENT\r\nBEGIN:VTODO\r\n"
                           "DTSTAMP:20261120T101010Z\r\nUID:todo@example.com\r\nSUMMARY:Pay rent\r\n"
                           "DUE:20261127T090000\r\nEND:VTODO\r\nEND:VCALENDAR\r\n";

} // namespace

TEST(CalendarImportTest, EachProgramsShapeArmsOrStoresItsAlarmsInLocalTime) {
    const LocalZone zone("Europe/Berlin");
    const std::tuple<const char*, QByteArray, QStringList, int> cases[] = {
        {"Thunderbird", kThunderbird, {"2026/11/30 09:45:00 once Dentist"}, 0},
        {"GNOME Calendar", kGnome, {"2026/11/25 11:50:00 once Lunch with Ana"}, 1},
        {"KDE alarm program", kKdeAlarm, {"2026/11/30 07:15:00 once (every mon,wed) Bins out"}, 0},
        {"Google Calendar", kGoogle, {"2026/11/26 17:30:00 once Choir", "2026/11/27 09:00:00 once Pay rent"}, 1},
    };
    for (const auto& [program, file, listed, skipped] : cases) {
        Profile p;
        const QJsonObject answer = p.import(file);
        ASSERT_TRUE(answer.value("ok").toBool()) << program << qPrintable(answer.value("error").toString());
        EXPECT_EQ(answer.value("skipped").toArray().size(), skipped) << program;
        EXPECT_EQ(p.listed(), listed) << program;
    }
    // The skipped occurrence of that series stays skipped.
    Profile k;
    k.import(kKdeAlarm);
    k.clock.set(2026, 12, 5, 8, 0, 0);
    EXPECT_EQ(k.listed(), QStringList{"2026/12/09 07:15:00 once (every mon,wed) Bins out"});
}

TEST(CalendarImportTest, ExportThenImportIntoAnEmptyProfileListsTheSame) {
    Profile first;
    ASSERT_TRUE(
        first.send({"add", "--time", "07:30", "--every", "weekdays", "--plays", "thrice", "--message", "Up\nnow"})
            .value("ok")
            .toBool());
    ASSERT_TRUE(first.send({"add", "--time", "18:00", "--message", "Today"}).value("ok").toBool());
    ASSERT_TRUE(
        first.send({"add", "--date", "2027/01/02", "--time", "06:00", "--plays", "repeat"}).value("ok").toBool());
    const QJsonObject exported = first.send("export");
    ASSERT_TRUE(exported.value("ok").toBool());

    Profile second;
    const QJsonObject imported = second.import(exported.value("ics").toString().toUtf8());
    ASSERT_TRUE(imported.value("ok").toBool()) << qPrintable(imported.value("error").toString());
    EXPECT_EQ(imported.value("imported").toInt(), 3);
    EXPECT_EQ(second.send("list --json").value("events"), first.send("list --json").value("events"));
}

TEST_F(CommandRecurringTest, EveryTurnsIntoItsRuleAndItsFirstDay) {
    // The first day from Wednesday 2026/11/25 with the time gone.
    const std::tuple<const char*, const char*, int, const char*, QDate> cases[] = {
        {"day", "", 0, "FREQ=DAILY", QDate(2026, 11, 26)},
        {"weekdays", "", 0, "FREQ=WEEKLY;BYDAY=MO,TU,WE,TH,FR", QDate(2026, 11, 26)},
        {"weekends", "2026/12/31", 0, "FREQ=WEEKLY;BYDAY=SA,SU;UNTIL=20261231T235959", QDate(2026, 11, 28)},
        {"fri,mon,fri", "", 4, "FREQ=WEEKLY;BYDAY=MO,FR;COUNT=4", QDate(2026, 11, 27)},
        {"month", "", 0, "FREQ=MONTHLY", QDate(2026, 11, 25)},
    };
    for (const auto& [every, until, count, rule, first] : cases) {
        EXPECT_EQ(command_recurring::ruleFor(every, until, count), QLatin1String(rule)) << every;
        EXPECT_EQ(command_recurring::firstDay(every, QDate(2026, 11, 25), true), first) << every;
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
