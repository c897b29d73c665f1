#include "engine/startup.h"
#include "engine/ui/form1.h"
#include "fakes.h"
#include "platform/single_instance.h"
#include "settings/settings_records.h"

#include <QAction>
#include <QMenu>
#include <QSaveFile>
#include <gtest/gtest.h>

namespace {

struct Form1Test : ::testing::Test, EngineFixture {
    int stops = 0;
    Form1 form1{ctx, Form1Hooks{[this] { ++stops; }, {}, {}, {}, {}}};
};

} // namespace

TEST_F(Form1Test, MenuCaptionsInOrderTheTickRunsEvery800msAndHelpWithoutItsFileWarns) {
    QStringList captions;
    for (QAction* a : form1.mPopup()->actions())
        captions.append(a->isSeparator() ? "-" : a->text());
    EXPECT_EQ(captions, QStringList({" About  ", "-", " Alarm Set  ", " Show", " Settings  ", "-", " Help  ", " Stop  ",
                                     "-", " Disable  ", " Remove  "}));
    EXPECT_EQ(form1.Timer1().interval(), 800);
    EXPECT_TRUE(form1.Timer1().isActive());

    form1.mHelp_Click();
    EXPECT_EQ(notices.warnings,
              QStringList({"Help file not found, please visit Bellwick's home page for getting help!"}));
    EXPECT_EQ(notices.beeps, 1);
}

TEST_F(Form1Test, LeftClickStopsUnlessAnErrorBoxIsUp) {
    ctx.m.blnRepeatPlay = true;
    form1.trayMessage(514);
    EXPECT_EQ(stops, 1);
    EXPECT_FALSE(ctx.m.blnRepeatPlay);
    ctx.m.blnRepeatPlay = true;
    ctx.m.blnTrayEnabled = false;
    form1.trayMessage(514);
    EXPECT_EQ(stops, 1);
    EXPECT_TRUE(ctx.m.blnRepeatPlay);
}

TEST_F(Form1Test, DisableStopsTheTickAndKeepsTheRepeatFlag) {
    ctx.m.blnRepeatPlay = true;
    QAction* disable = form1.mPopup()->actions().at(9);
    disable->trigger();
    EXPECT_TRUE(form1.disabled());
    EXPECT_FALSE(form1.Timer1().isActive());
    EXPECT_TRUE(ctx.m.blnRepeatPlay);
    // An error box closing while disabled leaves the tick stopped.
    ctx.setTimer1Enabled(false);
    ctx.setTimer1Enabled(true);
    EXPECT_FALSE(form1.Timer1().isActive());
    disable->trigger();
    EXPECT_TRUE(form1.Timer1().isActive());
    // The timer hook of the sound's error boxes drives the same timer.
    ctx.setTimer1Enabled(false);
    EXPECT_FALSE(form1.Timer1().isActive());
    ctx.setTimer1Enabled(true);
    EXPECT_TRUE(form1.Timer1().isActive());
}

namespace {
struct StartupTest : ::testing::Test, EngineFixture {};
} // namespace

TEST_F(StartupTest, FirstRunKeepsTheDefaultsAndLoadsNoWindow) {
    ctx.m.blnSoundOn = false;
    bool clockShown = false;
    fForm1Load(ctx, {[&] { clockShown = true; }});
    EXPECT_TRUE(ctx.m.blnSoundOn);
    EXPECT_TRUE(ctx.m.blnErrMsgPop);
    EXPECT_EQ(ctx.m.lngWarnSerial, 1000000);
    EXPECT_EQ(ctx.m.iEveryNext, -1);
    EXPECT_EQ(ctx.m.iFontChoice, 0);
    EXPECT_EQ(ctx.m.strSongName, ctx.m.strAppPath + "ding.wav");
    EXPECT_FALSE(ctx.form4Loaded());
    EXPECT_FALSE(ctx.form7.loaded());
    EXPECT_FALSE(clockShown);
}

TEST_F(StartupTest, SavedSettingsLoadTheDayFileTheOptionsAndTheClock) {
    clock.set(2002, 5, 1, 8, 0, 0);
    writeFile("my.dat", "\"once 09:00:00\"\r\n");
    settings_records::writeSettingAndFont(ctx, 0, 1, {true, true, false, false});
    settings_records::writeShowSmallClock(ctx.m.strAppPath, true);
    bool clockShown = false;
    fForm1Load(ctx, {[&] { clockShown = true; }});
    EXPECT_TRUE(ctx.form4Loaded());
    EXPECT_EQ(ctx.lstData.items(), QStringList({"once 09:00:00"}));
    EXPECT_TRUE(ctx.form7.loaded());
    EXPECT_FALSE(ctx.m.blnSoundOn);
    EXPECT_TRUE(ctx.m.blnNoSecond);
    EXPECT_TRUE(clockShown);
}

TEST_F(StartupTest, SettingsWithoutAFontRecordChooseTheThirdFont) {
    settings_records::writeShowSmallClock(ctx.m.strAppPath, false);
    fForm1Load(ctx, {});
    EXPECT_EQ(ctx.m.iFontChoice, 3);
    EXPECT_FALSE(ctx.form4Loaded());
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
