#include "engine/command_line.h"
#include "engine/command_protocol.h"
#include "engine/show_request.h"

#include <QJsonObject>

#include <gtest/gtest.h>

namespace {
QStringList words(const char* line) {
    return QString::fromLatin1(line).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}
} // namespace

TEST(ShowRequest, CommandLineNamesOneWindowOrIsRefusedWithExitTwo) {
    const struct {
        const char* line;
        const char* window; // nullptr: refused with `said`
        const char* said;
    } cases[] = {
        {"--show alarm-set", "alarm-set", ""},
        {"--show settings", "settings", ""},
        {"--show=clock", "clock", ""},
        {"--show", nullptr, "--show needs a window"},
        {"--show=", nullptr, "--show: '' is not alarm-set, settings or clock"},
        {"--show Settings", nullptr, "--show: 'Settings' is not alarm-set, settings or clock"},
        {"--show settings clock", nullptr, "--show: unexpected argument 'clock'"},
    };
    for (const auto& c : cases) {
        ASSERT_TRUE(show_request::isShow(words(c.line))) << c.line;
        const auto answer = command_line::answer(words(c.line), QStringLiteral("1"));
        const show_request::Parsed parsed = show_request::parse(words(c.line));
        if (c.window) {
            EXPECT_FALSE(answer) << c.line; // it goes to the running program
            EXPECT_EQ(parsed.window, QLatin1String(c.window));
            continue;
        }
        ASSERT_TRUE(answer) << c.line;
        EXPECT_EQ(answer->exitCode, 2) << c.line;
        EXPECT_TRUE(answer->err.startsWith(QStringLiteral("bellwick: ") + c.said)) << answer->err.toStdString();
    }
    EXPECT_EQ(command_line::answer(words("--show --help"), QStringLiteral("1"))->exitCode, 0);
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
