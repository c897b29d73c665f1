#include "app/tray_icon.h"
#include "engine/schedule_file.h"
#include "engine/startup.h"
#include "fakes.h"
#include "platform/single_instance.h"
#include "settings/settings_records.h"

#include <QAction>
#include <QMenu>
#include <QSaveFile>
#include <QTest>
#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

struct TrayIconTest : ::testing::Test, EngineFixture {
    int stops = 0;
    TrayIcon tray{ctx, TrayHooks{[this] { ++stops; }, {}, {}, {}, {}}};
};

} // namespace

TEST_F(TrayIconTest, MenuCaptionsInOrderTheTickRunsAndHelpWithoutItsFileWarns) {
    QStringList captions;
    for (QAction* a : tray.menu()->actions())
        captions.append(a->isSeparator() ? "-" : a->text());
    EXPECT_EQ(captions, QStringList({" About  ", "-", " Alarm Set  ", " Show", " Settings  ", "-", " Help  ", " Stop  ",
                                     "-", " Disable  ", " Remove  "}));
    EXPECT_TRUE(tray.timer().isActive());

    tray.onHelp();
    // A pipe under the help page's name is no help page either: the browser would wait on it.
    ASSERT_TRUE(QDir().mkpath(ctx.appFile("help")));
    ASSERT_EQ(mkfifo(qPrintable(ctx.appFile("help/tolmhelp.html")), 0600), 0);
    tray.onHelp();
    EXPECT_EQ(notices.warnings,
              QStringList(2, "Help file not found, please visit Bellwick's home page for getting help!"));
    EXPECT_EQ(notices.beeps, 2);
}

TEST_F(TrayIconTest, AMissingTrayIsToldAfterTheGraceAndAgainWhenItComesOrGoes) {
    bool available = false;
    QList<bool> told;
    tray.trayAvailable = [&available] { return available; };
    tray.onTrayMissing = [&told](bool missing) { told.append(missing); };
    tray.load(50);
    tray.checkTray();
    EXPECT_TRUE(told.isEmpty()); // within the grace period nothing is said
    // QTest's QTRY_ macros only return from the function on a timeout: gtest would never see the failure.
    EXPECT_TRUE(QTest::qWaitFor([&] { return told == QList<bool>{true}; }, 2000));
    tray.checkTray();
    EXPECT_EQ(told, QList<bool>{true}); // said once, not on every tick
    // Qt is not asked for a tray before one is there: it would settle on none for good.
    EXPECT_EQ(tray.tray(), nullptr);
    available = true;
    // The tick notices a tray that came.
    EXPECT_TRUE(QTest::qWaitFor([&] { return told == QList<bool>{true, false}; }, 2000));
    ASSERT_NE(tray.tray(), nullptr);
    EXPECT_TRUE(tray.tray()->isVisible());
    available = false;
    tray.checkTray();
    EXPECT_EQ(told, (QList<bool>{true, false, true}));
}

TEST_F(TrayIconTest, ATrayThatIsThereInTimeIsNeverReportedMissing) {
    int told = 0;
    tray.trayAvailable = [] { return true; };
    tray.onTrayMissing = [&told](bool) { ++told; };
    tray.load(0);
    QTest::qWait(100);
    EXPECT_EQ(told, 0);
}

TEST_F(TrayIconTest, WhileAnErrorBoxIsUpLeftClickAndMenuEntriesTriggeredFromOutsideDoNothing) {
    // A StatusNotifier host shows the menu itself and triggers the actions over D-Bus: closing the menu is no help.
    ctx.front.trayEnabled = false;
    ctx.soundChoice.repeatSweep = true;
    const QList<QAction*> actions = tray.menu()->actions();
    tray.trayMessage(514);    // a left click
    actions.at(7)->trigger(); // Stop
    actions.at(9)->trigger(); // Disable
    actions.at(6)->trigger(); // Help, whose file is missing
    EXPECT_EQ(
        std::tuple(stops, ctx.soundChoice.repeatSweep, tray.disabled(), tray.timer().isActive(), notices.warnings),
        std::tuple(0, true, false, true, QStringList()));
    ctx.front.trayEnabled = true;
    tray.trayMessage(514);
    EXPECT_EQ(std::pair(stops, ctx.soundChoice.repeatSweep), std::pair(1, false));
    actions.at(7)->trigger();
    EXPECT_EQ(stops, 2);
}

TEST_F(TrayIconTest, AnAlarmWhoseSecondPassesWhileItsSongIsReadiedRingsLateInsteadOfSlipping) {
    clock.set(2002, 5, 1, 8, 0, 8, 500);
    sound.onReady = [this] { clock.advanceMs(3000); };
    ctx.touchAlarmSet();
    insertTodayRow(ctx, "08:00:10", "once", true);
    ctx.tick.on = ctx.tick.haveAlarms = ctx.tick.needNextAlarm = true;
    tray.stateChanged();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !sound.played.isEmpty(); }, 3000));
    EXPECT_EQ(sound.played.size(), 1);
    EXPECT_EQ(std::tuple(notices.alarmWindows, ctx.today.alarms.count()), std::tuple(QStringList(), 0));
}

TEST_F(TrayIconTest, DisableStopsTheTickAndKeepsTheRepeatFlag) {
    ctx.soundChoice.repeatSweep = true;
    QAction* disable = tray.menu()->actions().at(9);
    disable->trigger();
    EXPECT_EQ(std::tuple(tray.disabled(), tray.timer().isActive(), ctx.soundChoice.repeatSweep),
              std::tuple(true, false, true));
    // An error box closing while disabled leaves the tick stopped.
    ctx.setTickTimerEnabled(false);
    ctx.setTickTimerEnabled(true);
    EXPECT_FALSE(tray.timer().isActive());
    disable->trigger();
    EXPECT_TRUE(tray.timer().isActive());
    // The timer hook of the sound's error boxes drives the same timer.
    ctx.setTickTimerEnabled(false);
    EXPECT_FALSE(tray.timer().isActive());
    ctx.setTickTimerEnabled(true);
    EXPECT_TRUE(tray.timer().isActive());
}

namespace {
struct StartupTest : ::testing::Test, EngineFixture {};
} // namespace

TEST_F(StartupTest, FirstRunKeepsTheDefaultsAndLoadsNoWindow) {
    ctx.options.soundOn = false;
    bool clockShown = false;
    startUp(ctx, {[&] { clockShown = true; }});
    EXPECT_EQ(std::tuple(ctx.options.soundOn, ctx.options.errorPopups, ctx.options.fontChoice),
              std::tuple(true, true, 0));
    EXPECT_EQ(std::tuple(ctx.alarmSetLoaded(), ctx.settings.loaded, clockShown), std::tuple(false, false, false));
}

TEST_F(StartupTest, SavedSettingsLoadTheDayFileTheOptionsAndTheClock) {
    clock.set(2002, 5, 1, 8, 0, 0);
    writeFile("my.dat", "\"once 09:00:00\"\r\n");
    settings_records::writeSettingAndFont(ctx, 0, 1, {true, true, false, false});
    settings_records::writeShowSmallClock(ctx.folder, true);
    bool clockShown = false;
    startUp(ctx, {[&] { clockShown = true; }});
    EXPECT_EQ(ctx.today.alarms.items(), QStringList({"once 09:00:00"}));
    EXPECT_EQ(
        std::tuple(ctx.alarmSetLoaded(), ctx.settings.loaded, ctx.options.soundOn, ctx.options.noSecond, clockShown),
        std::tuple(true, true, false, true, true));
}

TEST_F(StartupTest, SettingsWithoutAFontRecordChooseTheThirdFont) {
    settings_records::writeShowSmallClock(ctx.folder, false);
    startUp(ctx, {});
    EXPECT_EQ(std::tuple(ctx.options.fontChoice, ctx.alarmSetLoaded()), std::tuple(3, false));
}

TEST(SingleInstance, SecondCopyIsRefusedAndADeadOwnersLockIsTakenOver) {
    QTemporaryDir dir;
    const QString lock = dir.path() + "/sub/bellwick.lock";
    {
        SingleInstance first(lock);
        EXPECT_FALSE(first.isAnotherRunning());
        SingleInstance second(lock);
        EXPECT_TRUE(second.isAnotherRunning());
    }
    // A lock left by a process that no longer runs.
    QSaveFile stale(lock);
    ASSERT_TRUE(stale.open(QIODevice::WriteOnly));
    stale.write("999999\nbellwick\n" + QSysInfo::machineHostName().toUtf8() + "\n");
    ASSERT_TRUE(stale.commit());
    SingleInstance third(lock);
    EXPECT_FALSE(third.isAnotherRunning());
}
