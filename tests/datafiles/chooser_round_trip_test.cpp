#include "datafiles/chooser_actions.h"
#include "fakes.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>

namespace {

struct ChooserRoundTripTest : ::testing::Test, EngineFixture {
    QStringList asked; // origin|name of each overwrite question
    ChooserActions actions =
        chooserActionsFor(ctx, [&](const QString& origin, const QString& name) { asked.append(origin + "|" + name); });

    ChooserRoundTripTest() {
        clock.set(2002, 5, 1, 7, 0, 0);
        ctx.touchAlarmSet();
        ctx.today.alarms.addItem("once 08:00:00");
        ctx.today.alarms.addItem("repeat 21:15:00");
        ctx.today.messages.addItem("Walk \"the\" dog at 21:15:00");
    }
};

struct FakeLauncher {
    QStringList onPath;
    QStringList refuse; // found, but cannot start
    bool openerFails = false;
    QStringList started;
    EditorLauncher launcher() {
        return {[this](const QString& p) { return onPath.contains(p) ? "/usr/bin/" + p : QString(); },
                [this](const QString& p, const QStringList& args) {
                    if (refuse.contains(p.section('/', -1)))
                        return false;
                    started.append(p + " " + args.join(' '));
                    return true;
                },
                [this](const QString& p, const QStringList& args, const std::function<void()>& failed) {
                    started.append(p + " " + args.join(' '));
                    if (openerFails)
                        failed();
                }};
    }
};

} // namespace

TEST_F(ChooserRoundTripTest, SavedDayLoadsBackOnAnotherDayAndOverwriteTakesTheListsOfThatMoment) {
    QString box = "routine";
    ASSERT_TRUE(confirmChoice(ctx, ChooserMode::Save, box, {}, actions));
    EXPECT_TRUE(asked.isEmpty());

    // Saving over it asks first and writes nothing yet.
    ctx.today.alarms.addItem("twice 22:00:00");
    FileListState fileList{{"routine.dat"}, {true}, 0};
    box.clear();
    ASSERT_TRUE(confirmChoice(ctx, ChooserMode::Save, box, fileList, actions));
    EXPECT_EQ(asked, QStringList({"AlarmSet|routine.dat"}));
    EXPECT_FALSE(readFile("routine.dat").contains("22:00:00"));
    ctx.today.alarms.removeItem(0);
    overwriteConfirmed(ctx, "AlarmSet", "routine.dat");
    EXPECT_EQ(readFile("routine.dat"), QByteArray("\"repeat 21:15:00\"\r\n\"twice 22:00:00\"\r\n"
                                                  "\"Walk \"the\" dog at 21:15:00\"\r\n"));
    ctx.today.alarms.clear();
    ctx.today.messages.clear();
    clock.set(2002, 6, 9, 21, 30, 0);
    box = "routine.dat";
    ASSERT_TRUE(confirmChoice(ctx, ChooserMode::Load, box, fileList, actions));
    // Loaded twice, typed and chosen; the row already gone by on this day stays out.
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"twice 22:00:00", "twice 22:00:00"}));
    EXPECT_EQ(std::tuple(ctx.today.messages.isEmpty(), ctx.tick.haveAlarms, notices.warnings),
              std::tuple(true, true, QStringList()));

    // A typed name gets no extension on loading.
    box = "routine";
    confirmChoice(ctx, ChooserMode::Load, box, {}, actions);
    EXPECT_EQ(notices.warnings, QStringList({"routine, file not found"}));
}

TEST_F(ChooserRoundTripTest, EditorIsTheDesktopOpenerThenTheFirstTextEditorOnPath) {
    FakeLauncher fake;
    fake.onPath = {"xdg-open", "gedit", "kate"};
    openInEditor(ctx, "my.dat", fake.launcher());
    EXPECT_EQ(fake.started, QStringList({"/usr/bin/xdg-open " + path("my.dat")}));

    // The opener finds no application for the file: the first editor on PATH takes it.
    fake.started.clear();
    fake.openerFails = true;
    openInEditor(ctx, "my.dat", fake.launcher());
    EXPECT_EQ(fake.started, QStringList({"/usr/bin/xdg-open " + path("my.dat"), "/usr/bin/gedit " + path("my.dat")}));

    fake.started.clear();
    fake.onPath = {"kate", "gedit"};
    openInEditor(ctx, "my.dat", fake.launcher());
    EXPECT_EQ(fake.started, QStringList({"/usr/bin/gedit " + path("my.dat")}));
    EXPECT_TRUE(notices.warnings.isEmpty());

    // An editor that is there but does not start passes in silence.
    fake.started.clear();
    fake.refuse = {"gedit"};
    openInEditor(ctx, "my.dat", fake.launcher());
    EXPECT_EQ(std::tuple(fake.started, notices.warnings), std::tuple(QStringList(), QStringList()));

    // Neither the opener nor an editor: the user is told, also after a failing opener.
    fake.onPath.clear();
    openInEditor(ctx, "my.dat", fake.launcher());
    fake.onPath = {"xdg-open"};
    openInEditor(ctx, "my.dat", fake.launcher());
    EXPECT_EQ(notices.warnings, QStringList({"Notepad and Wordpad not found", "Notepad and Wordpad not found"}));
}

TEST(EditorLauncherTest, SystemOpenerReportsAFailingEndOrStart) {
    const EditorLauncher system = EditorLauncher::system();
    int failures = 0;
    bool succeeded = false;
    system.startWatched("/bin/false", {}, [&] { ++failures; });
    system.startWatched("/nonexistent/opener", {}, [&] { ++failures; });
    system.startWatched("/bin/sh", {"-c", "exit 0"}, [&] { succeeded = true; });
    QDeadlineTimer deadline(5000);
    while (failures < 2 && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    QDeadlineTimer settle(300);
    while (!settle.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_EQ(std::tuple(failures, succeeded), std::tuple(2, false));
}
