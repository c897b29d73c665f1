#include "engine/alarm_tick.h"
#include "engine/command_line.h"
#include "served_engine.h"

#include <QFileInfo>

#include <gtest/gtest.h>

// What a script is told: every refusal with its reason and nothing stored, and a list it can trust.
namespace {

struct CommandScriptsTest : ::testing::Test, ServedEngine {
    CommandScriptsTest() { clock.set(2002, 5, 1, 17, 59, 58); }

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

TEST_F(CommandScriptsTest, RefusalsGiveTheirReasonAndStoreNothing) {
    const QString tooLong = QStringLiteral("Message longer than 626 characters");
    const struct {
        const char* arguments;
        QString message;
        QString refusal;
    } cases[] = {
        {"add --date 2002/04/30 --time 09:00", "", "Day was passed"},
        {"add --date 2002/05/02 --time 09:00", QString::fromUtf8("emoji 😀 end"),
         QString::fromUtf8("These characters cannot be stored: 😀")},
        {"add --time 19:00", QString::fromUtf8("会议 \u0085"),
         QString::fromUtf8("These characters cannot be stored: 会 议 U+0085")},
        {"add --time 19:00", QString(627, QChar(0xE9)), tooLong},
        {"add --time 19:00", QString(314, QChar(0xE9)) + QString(313, QChar('\n')), tooLong},
    };
    for (const auto& c : cases) {
        const QJsonObject answer = send(c.arguments, c.message);
        EXPECT_FALSE(answer.value("ok").toBool()) << c.arguments;
        EXPECT_EQ(answer.value("error").toString(), c.refusal) << c.arguments;
    }
    EXPECT_FALSE(QFileInfo::exists(ctx.folder + "future.dat"));
    EXPECT_TRUE(ctx.today.alarms.isEmpty());
    EXPECT_TRUE(ctx.eventList.rows.isEmpty());
    // Every character the code page holds counts one, as the file counts it.
    EXPECT_TRUE(send("add --date 2002/05/02 --time 09:00", QString(626, QChar(0x20AC))).value("ok").toBool());
    EXPECT_EQ(QFileInfo(ctx.folder + "future.dat").size(), 2 + 626 + 22 + 2);
}

TEST(CommandClient, MessagesOfAnyLengthAndArgumentsNotUtf8AreRefusedBeforeTheProgramIsAsked) {
    command_protocol::Request request;
    request.command = "add";
    request.inSeconds = 60;
    for (const QString& message : {QString(70000, 'm'), QString::fromUtf8("😀").repeated(627)}) {
        request.message = message;
        const auto answer = command_client::refusedHere(request);
        ASSERT_TRUE(answer);
        EXPECT_EQ(answer->exitCode, 1);
        EXPECT_EQ(answer->err, "bellwick: Message longer than 626 characters\n");
    }
    request.message = QString::fromUtf8("on 会");
    EXPECT_EQ(command_client::refusedHere(request).value_or(command_line::Answer()).err,
              QString::fromUtf8("bellwick: These characters cannot be stored: 会\n"));
    request.message = QString(626, 'm');
    EXPECT_FALSE(command_client::refusedHere(request));

    const auto bad = command_line::notUtf8({"add", "--message", "caf\xe9", "x\xff"});
    ASSERT_TRUE(bad);
    EXPECT_EQ(bad->exitCode, 1);
    EXPECT_EQ(bad->err, QString::fromUtf8("bellwick: argument 3 is not valid UTF-8: 'caf\uFFFD'\n"));
    EXPECT_FALSE(command_line::notUtf8({"add", "--message", "café 😀"}));
}

TEST(CommandProtocol, ListLinesEscapeEveryControlCharacter) {
    const struct {
        QString message;
        QString line;
    } cases[] = {
        {"a\\b\nc\rd", "a\\\\b\\nc\\rd"},
        {"\x1b]0;owned\x07\x1b[2J", "\\u001b]0;owned\\u0007\\u001b[2J"},
        {QString("t\tnul") + QChar(0) + "del\x7f", "t\\u0009nul\\u0000del\\u007f"},
        {QString(QChar(0x85)) + QChar(0x9B) + QChar(0x9F), "\\u0085\\u009b\\u009f"},
        {QString::fromUtf8("é € – \u00A0 😀"), QString::fromUtf8("é € – \u00A0 😀")}, // printable: as typed
    };
    for (const auto& c : cases)
        EXPECT_EQ(command_protocol::eventLine({"2002/05/01", "18:00:00", "once", c.message}),
                  "2002/05/01 18:00:00 once " + c.line);
}

TEST_F(CommandScriptsTest, ListPairsMessagesWithTheAlarmsOfOneTimeAsTheyRing) {
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
