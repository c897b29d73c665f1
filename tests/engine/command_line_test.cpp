#include "engine/command_line.h"

#include <gtest/gtest.h>

namespace {

std::optional<command_line::Answer> answerFor(const QString& line) {
    return command_line::answer(line.split(QLatin1Char(' '), Qt::SkipEmptyParts), QStringLiteral("1.2.3"));
}

} // namespace

TEST(CommandLine, HelpAndVersionAnswerWithExitZero) {
    for (const char* line : {"--help", "-h", "-platform xcb --help"}) {
        const auto answer = answerFor(QLatin1String(line));
        ASSERT_TRUE(answer) << line;
        EXPECT_EQ(answer->exitCode, 0);
        EXPECT_EQ(answer->out, command_line::helpText());
        EXPECT_TRUE(answer->err.isEmpty());
    }
    for (const char* line : {"--version", "-v"}) {
        const auto answer = answerFor(QLatin1String(line));
        ASSERT_TRUE(answer) << line;
        EXPECT_EQ(answer->exitCode, 0);
        EXPECT_EQ(answer->out, QStringLiteral("bellwick 1.2.3\n"));
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
