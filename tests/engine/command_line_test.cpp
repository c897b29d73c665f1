#include "engine/command_line.h"
#include "engine/command_protocol.h"
#include "engine/show_request.h"

#include <QJsonObject>

#include <gtest/gtest.h>

namespace {

QStringList words(const QString& line) {
    return line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
std::optional<command_line::Answer> answerFor(const QString& line) {
    return command_line::answer(words(line), QStringLiteral("1.2.3"));
}

} // namespace

TEST(CommandLine, HelpAndVersionAnswerWithExitZero) {
    const QString help = command_line::helpText(), version = QStringLiteral("bellwick 1.2.3\n");
    const QStringList helpLines = {
        "--help", "-h", "-platform xcb --help", "add --help", "list -h", "add --time 07:00 --help", "--show --help"};
    for (const auto& [lines, out] : {std::pair{helpLines, help}, {QStringList{"--version", "-v"}, version}})
        for (const QString& line : lines) {
            const auto answer = answerFor(line);
            ASSERT_TRUE(answer) << qPrintable(line);
            EXPECT_EQ(answer->exitCode, 0) << qPrintable(line);
            EXPECT_EQ(answer->out, out) << qPrintable(line);
            EXPECT_TRUE(answer->err.isEmpty()) << qPrintable(line);
        }
}

TEST(CommandLine, QtOptionsStartTheProgram) {
    for (const char* line : {"", "-platform offscreen", "--platform offscreen", "-style=fusion", "-reverse",
                             "-display :1 -session abc -sync"})
        EXPECT_FALSE(answerFor(QLatin1String(line))) << line;
}

TEST(CommandLine, SubCommandsGoToTheRunningProgramWithTheirValuesAsGiven) {
    const struct {
        const char* line;
        const char *date, *time;
        qint64 in;
        const char *plays, *message;
        bool json;
    } cases[] = {
        {"add --time 07:30:00", "", "07:30:00", 0, "once", "", false},
        {"add --time=7:30 --date 2030/01/02 --plays repeat", "2030/01/02", "7:30", 0, "repeat", "", false},
        {"add --in 20m --message tea", "", "", 1200, "once", "tea", false},
        {"add --in 90s --plays thrice", "", "", 90, "thrice", "", false},
        {"add --in 2h", "", "", 7200, "once", "", false},
        {"add --message --help --time 23:59", "", "23:59", 0, "once", "--help", false},
        {"list", "", "", 0, "once", "", false},
        {"list --json", "", "", 0, "once", "", true},
    };
    for (const auto& c : cases) {
        const QStringList arguments = QString(c.line).split(' ');
        EXPECT_FALSE(answerFor(c.line)) << c.line;
        const auto request = command_protocol::parse(arguments).request;
        ASSERT_TRUE(request) << c.line;
        const command_protocol::Request& r = *request;
        EXPECT_EQ(QStringList({r.command, r.date, r.time, QString::number(r.inSeconds), r.plays, r.message}),
                  QStringList({arguments.first(), c.date, c.time, QString::number(c.in), c.plays, c.message}));
        EXPECT_EQ(r.json, c.json) << c.line;
    }
}

TEST(CommandLine, AnythingElseIsRefusedWithExitTwo) {
    // A reason ending in a line break is the whole first line. The desktop run checks more of these as typed.
    const std::pair<const char*, const char*> cases[] = {
        {"-x", "unknown option '-x'\n"},
        {"-reverse=1", "unknown option '-reverse=1'\n"},
        {"-", "unexpected argument '-'\n"},
        {"-platform", "option '-platform' needs a value\n"},
        {"-style fusion extra", "unexpected argument 'extra'\n"},
        {"--show", "--show needs a window: alarm-set, settings or clock\n"},
        {"--show=", "--show: '' is not alarm-set, settings or clock\n"},
        {"--show Settings", "--show: 'Settings' is not alarm-set, settings or clock\n"},
        {"--show settings clock", "--show: unexpected argument 'clock'\n"},
        {"add --date 2030/01/02", "add: give --time (and --date), or --in"},
        {"add --in 0s", "add: the delay '0s' is not"},
        {"add --in 5d", "add: the delay '5d' is not"},
        {"add --in -5m", "add: the delay '-5m' is not"},
        {"add --in 99999h", "add: the delay '99999h' is not"},
        {"add --in 316224001s", "add: the delay '316224001s' is not"}, // ten years of 366 days and a second
        {"add --time 7", "add: the time '7' is not HH:MM:SS"},
        {"add --time 07:30:00:00", "add: the time '07:30:00:00' is not HH:MM:SS"},
        {"add --time 7:30pm", "add: the time '7:30pm' is not HH:MM:SS"},
        {"add --time 07:30 --date 2030-01-02", "add: the date '2030-01-02' is not YYYY/MM/DD"},
        {"add --time 07:30 --time 08:00", "add: option '--time' given twice"},
        {"add --time 07:30 --json", "add: unknown option '--json'"},
        {"add --time 07:30 tomorrow", "add: unexpected argument 'tomorrow'"},
        {"list --json extra", "list: unexpected argument 'extra'"},
        {"list --date 2030/01/02", "list: unknown option '--date'"},
        // A sub-command only counts as the first argument; after Qt's options it is an argument like any other.
        {"-platform xcb add --in 5s", "unexpected argument 'add'\n"},
    };
    for (const auto& [line, said] : cases) {
        const auto answer = answerFor(QLatin1String(line));
        ASSERT_TRUE(answer) << line;
        EXPECT_EQ(answer->exitCode, 2) << line;
        EXPECT_TRUE(answer->out.isEmpty());
        EXPECT_TRUE(answer->err.startsWith(QStringLiteral("bellwick: ") + said))
            << line << ": " << answer->err.toStdString();
        EXPECT_TRUE(answer->err.endsWith("Try 'bellwick --help' for more information.\n")) << line;
        if (QByteArray(said).endsWith('\n'))
            EXPECT_EQ(answer->err.count('\n'), 2) << line;
    }
}

TEST(ShowRequest, CommandLineNamesOneWindowForTheRunningProgram) {
    for (const auto& [line, window] :
         {std::pair{"--show alarm-set", "alarm-set"}, {"--show settings", "settings"}, {"--show=clock", "clock"}}) {
        EXPECT_FALSE(answerFor(line)) << line;
        EXPECT_EQ(show_request::parse(words(line)).window, QLatin1String(window));
    }
    EXPECT_FALSE(show_request::isShow(words("-platform xcb --show clock")));
}

TEST(ShowRequest, RunningProgramOpensTheWindowTheLineNames) {
    QStringList opened;
    QString refuse;
    auto show = [&](const QString& window) {
        opened << window;
        return refuse;
    };
    auto lineFor = [](const QString& window) {
        return command_protocol::toLine(command_protocol::toJson(show_request::request(window)));
    };
    EXPECT_EQ(show_request::serve(lineFor("settings"), show), command_protocol::toLine({{"ok", true}}));
    EXPECT_EQ(opened, QStringList{"settings"});

    refuse = QStringLiteral("an error box is open");
    const auto refused = show_request::serve(lineFor("alarm-set"), show);
    ASSERT_TRUE(refused);
    EXPECT_EQ(command_protocol::fromLine(*refused).value("error").toString(), refuse);

    // A window it does not have, and the other sub-commands, open nothing here.
    const auto unknown = show_request::serve(lineFor("about"), show);
    ASSERT_TRUE(unknown);
    EXPECT_FALSE(command_protocol::fromLine(*unknown).value("ok").toBool());
    command_protocol::Request list;
    list.command = QStringLiteral("list");
    EXPECT_FALSE(show_request::serve(command_protocol::toLine(command_protocol::toJson(list)), show));
    EXPECT_EQ(opened, QStringList({"settings", "alarm-set"}));
}
