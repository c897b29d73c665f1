#include "engine/command_line.h"
#include "engine/command_protocol.h"

#include <gtest/gtest.h>

namespace {

std::optional<command_line::Answer> answerFor(const QString& line) {
    return command_line::answer(line.split(QLatin1Char(' '), Qt::SkipEmptyParts), QStringLiteral("1.2.3"));
}

} // namespace

TEST(CommandLine, HelpAndVersionAnswerWithExitZero) {
    const QString help = command_line::helpText(), version = QStringLiteral("bellwick 1.2.3\n");
    const QStringList helpLines = {"--help",     "-h",      "-platform xcb --help",
                                   "add --help", "list -h", "add --time 07:00 --help"};
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

TEST(CommandLine, AnythingElseIsRefusedWithExitTwo) {
    const struct {
        const char* line;
        const char* said;
    } cases[] = {
        {"--alarm", "unknown option '--alarm'"},
        {"-x", "unknown option '-x'"},
        {"-reverse=1", "unknown option '-reverse=1'"},
        {"tomorrow", "unexpected argument 'tomorrow'"},
        {"-", "unexpected argument '-'"},
        {"-platform", "option '-platform' needs a value"},
        {"-style fusion extra", "unexpected argument 'extra'"},
    };
    for (const auto& c : cases) {
        const auto answer = answerFor(QLatin1String(c.line));
        ASSERT_TRUE(answer) << c.line;
        EXPECT_EQ(answer->exitCode, 2) << c.line;
        EXPECT_TRUE(answer->out.isEmpty());
        EXPECT_EQ(
            answer->err,
            QStringLiteral("bellwick: %1\nTry 'bellwick --help' for more information.\n").arg(QLatin1String(c.said)))
            << c.line;
    }
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
        EXPECT_EQ(request->command, arguments.first());
        EXPECT_EQ(request->date, c.date) << c.line;
        EXPECT_EQ(request->time, c.time) << c.line;
        EXPECT_EQ(request->inSeconds, c.in) << c.line;
        EXPECT_EQ(request->plays, c.plays) << c.line;
        EXPECT_EQ(request->message, c.message) << c.line;
        EXPECT_EQ(request->json, c.json) << c.line;
    }
    EXPECT_TRUE(command_line::helpText().contains("bellwick add --in DELAY"));
}

TEST(CommandLine, SubCommandArgumentsOfTheWrongShapeAreRefusedWithExitTwo) {
    const struct {
        const char* line;
        const char* said;
    } cases[] = {
        {"add", "add: give --time (and --date), or --in"},
        {"add --date 2030/01/02", "add: give --time (and --date), or --in"},
        {"add --in 5s --time 07:00:00", "add: --in goes without --date and --time"},
        {"add --in 0s", "add: the delay '0s' is not"},
        {"add --in 5d", "add: the delay '5d' is not"},
        {"add --in -5m", "add: the delay '-5m' is not"},
        {"add --in 99999h", "add: the delay '99999h' is not"},
        {"add --in 316224001s", "add: the delay '316224001s' is not"}, // ten years of 366 days and a second
        {"add --time 7", "add: the time '7' is not HH:MM:SS"},
        {"add --time 07:30:00:00", "add: the time '07:30:00:00' is not HH:MM:SS"},
        {"add --time 7:30pm", "add: the time '7:30pm' is not HH:MM:SS"},
        {"add --time 07:30 --date 2030-01-02", "add: the date '2030-01-02' is not YYYY/MM/DD"},
        {"add --time 07:30 --plays often", "add: plays 'often' is not once, twice, thrice or repeat"},
        {"add --time 07:30 --time 08:00", "add: option '--time' given twice"},
        {"add --time 07:30 --message", "add: option '--message' needs a value"},
        {"add --time 07:30 --json", "add: unknown option '--json'"},
        {"add --time 07:30 tomorrow", "add: unexpected argument 'tomorrow'"},
        {"list --json extra", "list: unexpected argument 'extra'"},
        {"list --date 2030/01/02", "list: unknown option '--date'"},
    };
    for (const auto& c : cases) {
        const auto answer = answerFor(QLatin1String(c.line));
        ASSERT_TRUE(answer) << c.line;
        EXPECT_EQ(answer->exitCode, 2) << c.line;
        EXPECT_TRUE(answer->out.isEmpty());
        EXPECT_TRUE(answer->err.startsWith(QStringLiteral("bellwick: ") + c.said))
            << c.line << ": " << answer->err.toStdString();
        EXPECT_TRUE(answer->err.endsWith("Try 'bellwick --help' for more information.\n")) << c.line;
    }
    // A sub-command only counts as the first argument; after Qt's options it is an argument like any other.
    EXPECT_EQ(answerFor("-platform xcb add --in 5s")->exitCode, 2);
}
