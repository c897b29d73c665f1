#include "alarmset/add_entry.h"
#include "alarmset/alarm_set_links.h"
#include "engine/alarm_tick.h"
#include "engine/command_line.h"
#include "platform/command_channel.h"
#include "served_engine.h"

#include <QEventLoop>
#include <QFileInfo>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

struct CommandServiceTest : ::testing::Test, ServedEngine {
    command_service::WaitingAdds waiting{ctx};

    CommandServiceTest() { waitingAdds = &waiting; }

    QByteArray schedule() const { return readBytes(ctx.folder + "future.dat"); }
    // The listed events without their day and time: "plays message".
    QStringList listedPairs() {
        QStringList pairs;
        for (const QString& line : listed())
            pairs.append(line.section(' ', 2));
        return pairs;
    }
    // Runs the tick up to the given time, and gives for each alarm that rang its play word and the message
    // window it brought. Four ticks a second, so that every alarm of one second rings in it.
    QStringList ringUntil(int h, int m, int s) {
        AlarmTick tick(ctx);
        QStringList rang;
        const QDateTime end(clock.now().date(), QTime(h, m, s));
        while (clock.now() < end) {
            const qsizetype sounds = sound.played.size();
            const qsizetype shown = windows.alarmWindows.size();
            tick.onTick();
            clock.advanceMs(250);
            if (sound.played.size() == sounds)
                continue;
            const QString message = windows.alarmWindows.size() > shown ? windows.alarmWindows.last().chopped(12) : "";
            rang.append((sound.played.last().section('|', 0, 0) + ' ' + message).trimmed());
        }
        return rang;
    }
};

} // namespace

TEST_F(CommandServiceTest, RefusesWhatTheWindowRefusesWithItsWordsAndShowsNothing) {
    const QString tooLong = QStringLiteral("Message longer than 626 characters");
    // The words, a message given apart, and the refusal (empty: accepted, for contrast).
    const std::tuple<const char*, QString, QString> cases[] = {
        {"add --time 07:59:59", "", "Time was passed or next day"},
        {"add --in 2h --plays twice", "", ""},
        {"add --time 24:00:00", "", "Invalid input"},
        {"add --time 99:00", "", "Invalid input"},
        {"add --time 08:60:00", "", "Invalid input"},
        {"add --time 08:00:60", "", "Invalid input"},
        {"add --date 2002/02/30 --time 09:00", "", "Invalid input of date"},
        {"add --date 2002/13/01 --time 09:00", "", "Invalid input of date"},
        {"add --in 87840h", "", "Invalid input of date"}, // ten years on from 9999 has no four-digit year
        {"add --date 2002/04/30 --time 09:00", "", "Day was passed"},
        {"add --date 2002/05/02 --time 09:00", QString::fromUtf8("emoji 😀 end"),
         QString::fromUtf8("These characters cannot be stored: 😀")},
        {"add --time 19:00", QString::fromUtf8("会议 \u0085"),
         QString::fromUtf8("These characters cannot be stored: 会 议 U+0085")},
        {"add --time 19:00", QString(627, QChar(0xE9)), tooLong},
        {"add --time 09:00", QString(625, 'm') + '\n', tooLong}, // a line break counts two, as in the message box
        {"add --time 09:00", QString(624, 'm') + '\n', ""},
    };
    for (const auto& [arguments, message, refusal] : cases) {
        if (QString(arguments) == "add --in 87840h")
            clock.set(9999, 1, 1, 8, 0, 0);
        const QJsonObject answer = send(arguments, message);
        clock.set(2002, 5, 1, 8, 0, 0);
        EXPECT_EQ(answer.value("ok").toBool(), refusal.isEmpty()) << arguments;
        EXPECT_EQ(answer.value("error").toString(), refusal) << arguments;
    }
    EXPECT_TRUE(windows.warnings.isEmpty());
    EXPECT_EQ(windows.beeps, 0);
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"once 09:00:00", "twice 10:00:00"}));
    EXPECT_FALSE(QFileInfo::exists(ctx.folder + "future.dat"));
    // Every character the code page holds counts one, as the file counts it.
    EXPECT_TRUE(send("add --date 2002/05/02 --time 09:00", QString(626, QChar(0x20AC))).value("ok").toBool());
    EXPECT_EQ(QFileInfo(ctx.folder + "future.dat").size(), 2 + 626 + 22 + 2);

    // The window's own Add still speaks through the windows.
    EntryControls controls;
    controls.hourBox = "13";
    addEntry(ctx, controls, ctx.entry.lastPlayWord, AlarmSetLinks());
    EXPECT_EQ(windows.warnings, QStringList({"Invalid input"}));
}

// Through the window's twelve-hour entry and back.
TEST_F(CommandServiceTest, TwentyFourHourTimesBecomeTheWindowsEntryAndItsRules) {
    clock.set(2002, 5, 1, 0, 0, 0);
    const std::pair<const char*, const char*> cases[] = {
        {"00:05:00", "00:05:00"}, {"12:05:00", "12:05:00"}, {"13:05:00", "13:05:00"}, {"23:59:59", "23:59:59"},
        {"7:5:9", "07:05:09"},    {"09:30", "09:30:00"},    {"11:05:00", "11:05:00"}};
    for (const auto& [time, stored] : cases) {
        const QJsonObject event = send(QStringLiteral("add --time ") + time).value("event").toObject();
        EXPECT_EQ(event.value("time").toString(), stored) << time;
        EXPECT_EQ(event.value("date").toString(), "2002/05/01") << time;
    }
    EXPECT_EQ(ctx.today.alarms.count(), 7);

    // No-second mode drops the seconds before the test, as the window does: the present second is still accepted.
    clock.set(2002, 5, 1, 9, 0, 0);
    ctx.options.noSecond = true;
    EXPECT_EQ(send("add --time 09:00:30").value("event").toObject().value("time").toString(), "09:00:00");
    EXPECT_EQ(send("add --in 5s").value("event").toObject().value("time").toString(), "09:00:00");
    clock.set(2002, 5, 1, 9, 0, 30);
    EXPECT_EQ(send("add --in 5s").value("error").toString(), "Time was passed or next day");
}

TEST_F(CommandServiceTest, TodaysEventIsArmedAndRingsWithItsMessage) {
    clock.set(2002, 5, 1, 21, 15, 30, 300);
    const QJsonObject answer = send("add --in 2s --plays twice", "Tea \"now\"\nand cake");
    ASSERT_TRUE(answer.value("ok").toBool()) << answer.value("error").toString().toStdString();
    EXPECT_EQ(command_protocol::eventLine(command_protocol::eventFromJson(answer.value("event").toObject())),
              "2002/05/01 21:15:32 twice Tea 'now'\\nand cake");
    EXPECT_EQ(ctx.today.messages.items(), QStringList({"Tea 'now'\r\nand cake at 21:15:32"}));

    EXPECT_EQ(ringUntil(21, 15, 34), QStringList{"twice Tea 'now'\r\nand cake"});
}

TEST_F(CommandServiceTest, LeavesTheEventTheUserIsEnteringAlone) {
    ctx.touchAlarmSet();
    // The user added 10:00 with a message and the Input Message window stands open on that row; an event for
    // another day waits there for its text too.
    ctx.today.alarms.addItem("once 10:00:00");
    ctx.today.alarms.selectOnly(0);
    ctx.newEvent.time = "11:00:00";
    ctx.newEvent.playWord = "thri";
    ctx.newEvent.mark = "#";
    ctx.entry.lastPlayWord = "repeat";

    ASSERT_TRUE(send("add --time 09:00 --plays twice").value("ok").toBool());
    ASSERT_TRUE(send("add --time 10:30").value("ok").toBool());
    ASSERT_TRUE(send("add --date 2002/05/03 --time 07:00", "Dentist").value("ok").toBool());
    ASSERT_TRUE(send("add --date 2002/05/02 --time 07:00 --plays repeat").value("ok").toBool());

    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"twice 09:00:00", "once 10:00:00", "once 10:30:00"}));
    EXPECT_EQ(ctx.today.alarms.currentIndex(), 1);
    EXPECT_EQ(ctx.today.alarms.selectedCount(), 1);
    EXPECT_EQ(QStringList({ctx.newEvent.time, ctx.newEvent.playWord, ctx.newEvent.mark}),
              QStringList({"11:00:00", "thri", "#"}));
    EXPECT_EQ(ctx.entry.lastPlayWord, "repeat");
    EXPECT_EQ(schedule(), "\"Dentist2002/05/03once07:00:00\"\r\n\"2002/05/02repe07:00:00\"\r\n");
    EXPECT_EQ(ctx.eventList.rows.count(), 2);
    EXPECT_EQ(ctx.eventList.highlightedCount(), 0);
}

TEST_F(CommandServiceTest, ListsTodaysArmedEventsThenLaterDaysInTimeOrder) {
    clock.set(2002, 5, 1, 12, 0, 0);
    writeBytes(ctx.folder + "future.dat",
               quotedRecord("Gone2002/05/01once11:00:00") + quotedRecord("Lunch2002/05/01twic12:30:00") +
                   quotedRecord("2002/06/01repe06:00:00") + quotedRecord("Old2001/01/01once06:00:00") +
                   quotedRecord("Soon2002/05/02thri06:00:00"));
    // Listing is a first touch: the schedule is read and today's coming events armed.
    EXPECT_EQ(listed(), QStringList({"2002/05/01 12:30:00 twice Lunch", "2002/05/02 06:00:00 thrice Soon",
                                     "2002/06/01 06:00:00 repeat"}));
    // Messages of one time are paired with their alarms in the scripts' test below.
    send("add --date 2002/05/02 --time 05:00", "back\\slash\r\nnext");
    EXPECT_EQ(listed(), QStringList({"2002/05/01 12:30:00 twice Lunch", "2002/05/02 05:00:00 once back\\\\slash\\nnext",
                                     "2002/05/02 06:00:00 thrice Soon", "2002/06/01 06:00:00 repeat"}));
    EXPECT_TRUE(windows.warnings.isEmpty());
}

TEST_F(CommandServiceTest, ChannelIsPrivateAndAnswersAtOnceWhileABoxStands) {
    QTemporaryDir run;
    const QString path = run.path() + "/bellwick.socket";
    CommandServer server([&](const QByteArray& line) { return command_service::serve(ctx, route, line, waiting); });
    QString error;
    ASSERT_TRUE(server.listen(path, error)) << error.toStdString();
    EXPECT_EQ(QFileInfo(path).permissions() & (QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther |
                                               QFile::WriteOther | QFile::ExeGroup | QFile::ExeOther),
              QFile::Permissions());

    command_protocol::Request request = *command_protocol::parse({"add", "--time", "9:00", "--plays", "twice"}).request;
    const QByteArray addLine = command_protocol::toLine(command_protocol::toJson(request));
    const QByteArray listLine =
        command_protocol::toLine(command_protocol::toJson(*command_protocol::parse({"list"}).request));
    auto exchange = [&](const QByteArray& line) {
        return std::async(std::launch::async,
                          [&path, line] { return command_channel::exchange(path, line, 2000, 5000); });
    };
    // The sound error box: the tick is held and a modal loop runs until the box is answered, which here
    // comes only once both answers are in. Neither may wait for it.
    command_channel::Exchange added, listedWhileBox;
    QStringList listedAfter;
    QEventLoop program;
    QTimer::singleShot(0, [&] {
        ctx.front.trayEnabled = false;
        QEventLoop box;
        auto addReply = exchange(addLine);
        auto listReply = exchange(listLine);
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (addReply.wait_for(std::chrono::milliseconds(0)) == std::future_status::ready &&
                listReply.wait_for(std::chrono::milliseconds(0)) == std::future_status::ready)
                box.quit();
        });
        poll.start(10);
        QTimer::singleShot(5000, &box, &QEventLoop::quit);
        box.exec();
        added = addReply.get();
        listedWhileBox = listReply.get();
        ctx.front.trayEnabled = true;
        // Armed once the work the box held has ended, not while it still runs.
        EXPECT_FALSE(listed().contains("2002/05/01 09:00:00 twice"));
        QTimer::singleShot(1000, &program, &QEventLoop::quit);
    });
    program.exec();
    ASSERT_TRUE(added.connected && listedWhileBox.connected);
    const command_line::Answer printed = command_client::answerFor(request, added.answer);
    EXPECT_EQ(std::tuple(printed.exitCode, printed.out, printed.err),
              std::tuple(0, "2002/05/01 09:00:00 twice\n", "bellwick: queued until the box is answered\n"));
    EXPECT_TRUE(command_protocol::fromLine(listedWhileBox.answer).value("ok").toBool());
    EXPECT_TRUE(listed().contains("2002/05/01 09:00:00 twice"));
    EXPECT_TRUE(windows.warnings.isEmpty());

    // A refusal of two warnings prints both, each as its own line on standard error.
    const command_line::Answer refused = command_client::answerFor(request, R"({"ok":false,"error":"one\ntwo"})"
                                                                            "\n");
    EXPECT_EQ(std::tuple(refused.exitCode, refused.err), std::tuple(1, "bellwick: one\nbellwick: two\n"));
    EXPECT_FALSE(command_channel::exchange(run.path() + "/none.socket", addLine, 200, 200).connected);
}

TEST(CommandClient, MessagesOfAnyLengthAndArgumentsNotUtf8AreRefusedBeforeTheProgramIsAsked) {
    command_protocol::Request request;
    request.command = "add";
    request.inSeconds = 60;
    // The desktop command line run refuses 70000 characters; each of these counts one though it takes two in UTF-16.
    request.message = QString::fromUtf8("😀").repeated(627);
    const auto answer = command_client::refusedHere(request);
    ASSERT_TRUE(answer);
    EXPECT_EQ(std::tuple(answer->exitCode, answer->err),
              std::tuple(1, "bellwick: Message longer than 626 characters\n"));
    request.message = QString::fromUtf8("on 会");
    EXPECT_EQ(command_client::refusedHere(request).value_or(command_line::Answer()).err,
              QString::fromUtf8("bellwick: These characters cannot be stored: 会\n"));
    request.message = QString(626, 'm');
    EXPECT_FALSE(command_client::refusedHere(request));

    const auto bad = command_line::notUtf8({"add", "--message", "caf\xe9", "x\xff"});
    ASSERT_TRUE(bad);
    EXPECT_EQ(std::tuple(bad->exitCode, bad->err),
              std::tuple(1, QString::fromUtf8("bellwick: argument 3 is not valid UTF-8: 'caf\uFFFD'\n")));
    EXPECT_FALSE(command_line::notUtf8({"add", "--message", "café 😀"}));
}

TEST(CommandProtocol, ListLinesEscapeEveryControlCharacter) {
    const std::pair<QString, QString> cases[] = {
        {"a\\b\nc\rd", "a\\\\b\\nc\\rd"},
        {"\x1b]0;owned\x07\x1b[2J", "\\u001b]0;owned\\u0007\\u001b[2J"},
        {QString("t\tnul") + QChar(0) + "del\x7f", "t\\u0009nul\\u0000del\\u007f"},
        {QString(QChar(0x85)) + QChar(0x9B) + QChar(0x9F), "\\u0085\\u009b\\u009f"},
        {QString::fromUtf8("é € – \u00A0 😀"), QString::fromUtf8("é € – \u00A0 😀")}, // printable: as typed
    };
    for (const auto& [message, line] : cases)
        EXPECT_EQ(command_protocol::eventLine({"2002/05/01", "18:00:00", "once", message}),
                  "2002/05/01 18:00:00 once " + line);
}

// What a script is told: a list it can trust.
TEST_F(CommandServiceTest, ListPairsMessagesWithTheAlarmsOfOneTimeAsTheyRing) {
    clock.set(2002, 5, 1, 17, 59, 58);
    // The newest alarm of a second rings first and takes the oldest message of that second.
    send("add --time 18:00 --plays twice", "first msg");
    send("add --time 18:00 --plays repeat", "second msg");
    send("add --time 18:00 --plays thrice");
    const QStringList listed = listedPairs();
    EXPECT_EQ(listed, QStringList({"thrice first msg", "repeat second msg", "twice"}));
    EXPECT_EQ(ringUntil(18, 0, 1), listed);

    // Without seconds an alarm takes the first message of its minute.
    ctx.options.noSecond = true;
    ctx.today.messages.addItem("half past at 18:05:30");
    send("add --time 18:05 --plays twice", "own");
    const QStringList minute = listedPairs();
    EXPECT_EQ(minute, QStringList({"twice half past"}));
    EXPECT_EQ(ringUntil(18, 5, 1), minute);
}
