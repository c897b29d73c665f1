#include "engine/alarm_set_ui.h"
#include "fakes.h"
#include "settings/autostart.h"
#include "settings/settings_options.h"

#include <gtest/gtest.h>

namespace {
// Record 4 as it stands on disk, after three empty records.
QByteArray iniWith(int32_t v1, int32_t v2, const QByteArray& words) {
    return QByteArray(3 * 55, '\0') + settingBytes("[Setting]", v1, v2, words);
}

struct RecordingAlarmSet : AlarmSetUi {
    int loads = 0;
    QList<bool> noSecondModes;
    void load() override { ++loads; }
    void requestUnload() override {}
    void chimeControlsChanged() override {}
    void setNoSecondMode(bool on) override { noSecondModes.append(on); }
};

struct SettingsOptionsTest : ::testing::Test, EngineFixture {
    RecordingAlarmSet window;
    SettingsOptions settings{ctx};
    const SettingsBoxes& s = ctx.settings.boxes;
};
// Points the user's folders at a temporary place for one test.
struct AutostartTest : ::testing::Test, EngineFixture {
    QTemporaryDir config;
    QByteArray savedConfig = qgetenv("XDG_CONFIG_HOME");
    QByteArray savedHome = qgetenv("HOME");
    AutostartTest() { qputenv("XDG_CONFIG_HOME", config.path().toUtf8()); }
    ~AutostartTest() override {
        qputenv("XDG_CONFIG_HOME", savedConfig);
        qputenv("HOME", savedHome);
    }
    QString entry() const { return config.path() + "/autostart/bwktolm.desktop"; }
};
} // namespace

TEST_F(SettingsOptionsTest, LoadTurnsTheFileIntoVariables) {
    ctx.alarmSetUi = &window;
    EXPECT_TRUE(settings.touch()); // no file: the variables alone
    EXPECT_FALSE(settings.touch());
    EXPECT_TRUE(s.soundOnBox && s.errorPopupsBox);
    EXPECT_EQ(ctx.options.fontChoice, 3); // 0 until the first load
    EXPECT_EQ(window.loads, 0);

    // Record 8 and the font are seen on the window in SettingsWindowTest.
    writeFile("tolm.ini", iniWith(1, 0, "ALAEOnDCWSOnUISPOnISOMOf"));
    settings.load();
    EXPECT_EQ(std::tuple(ctx.options.errorPopups, s.autoLoadBox, ctx.options.noSecond, ctx.options.internalSpeaker,
                         ctx.options.speakerInsteadOfMidi, s.testVisible),
              std::tuple(false, true, true, true, false, true));
    // The seconds box lives on the Alarm Set window: no-second mode loads it.
    EXPECT_EQ(std::tuple(window.loads, window.noSecondModes), std::tuple(1, QList<bool>{true}));

    // A key that doesn't match leaves the boxes as the variables set them.
    writeFile("tolm.ini", iniWith(1, 1, "ALAEOn").replace(3 * 55 + 1, 1, "s"));
    settings.load();
    EXPECT_FALSE(s.autoLoadBox);
}

TEST_F(SettingsOptionsTest, ClickLogicRunsOnlyWhenAValueChanges) {
    ctx.options.soundOn = false;
    writeFile("tolm.ini", iniWith(0, 1, "ALAEOfDCWSOfUISPOnISOMOn"));
    // A box touched from elsewhere loads the window first.
    settings.setErrorPopups(false);
    EXPECT_EQ(std::tuple(ctx.settings.loaded, ctx.options.speakerInsteadOfMidi, ctx.alarmSetLoaded()),
              std::tuple(true, true, false));
    // Sound stayed off throughout, so its click never ran and the box keeps its design visibility.
    EXPECT_EQ(std::pair(s.errorPopupsBoxVisible, s.testVisible), std::pair(true, false));

    settings.setSoundOn(true);
    EXPECT_TRUE(s.testVisible);
    settings.setNoSecond(true); // with no window, the Alarm Set data still loads
    EXPECT_TRUE(ctx.alarmSetLoaded());
    settings.setFontChoice(4);
    EXPECT_EQ(s.fontButton, 3);
}

TEST_F(AutostartTest, EntryLivesInTheConfigFolder) {
    EXPECT_EQ(autostart::entryPath(), entry());
    qputenv("HOME", config.path().toUtf8() + "/home");
    qputenv("XDG_CONFIG_HOME", "");
    EXPECT_EQ(autostart::entryPath(), config.path() + "/home/.config/autostart/bwktolm.desktop");
    qputenv("XDG_CONFIG_HOME", "relative/config");
    EXPECT_EQ(autostart::entryPath(), config.path() + "/home/.config/autostart/bwktolm.desktop");
}

TEST_F(AutostartTest, ExecQuotesOnlyWhenNeeded) {
    EXPECT_EQ(autostart::execValue("/usr/bin/bellwick"), "/usr/bin/bellwick");
    EXPECT_EQ(autostart::execValue("/home/ann/My Apps/bellwick"), "\"/home/ann/My Apps/bellwick\"");
    // Inside quotes ", `, $ and \ take a backslash; then every backslash is doubled as in any string value.
    EXPECT_EQ(autostart::execValue("/a$b/c\"d/e\\f"), "\"/a\\\\$b/c\\\\\"d/e\\\\\\\\f\"");
    EXPECT_EQ(autostart::execValue("/opt/100%/bw"), "/opt/100%%/bw");
}

TEST_F(AutostartTest, SecondPageButtonsInstallAndRemoveTheEntryAndSayDoneWhateverHappens) {
    EXPECT_TRUE(autostart::remove()); // nothing there yet
    SettingsOptions(ctx).load();
    SettingsOptions(ctx).autostartOn("/opt/bell wick/bellwick");
    EXPECT_EQ(readBytes(entry()), "[Desktop Entry]\nType=Application\nName=Bellwick\n"
                                  "Exec=\"/opt/bell wick/bellwick\"\nX-GNOME-Autostart-enabled=true\n");
    SettingsOptions(ctx).autostartOff();
    EXPECT_FALSE(QFile::exists(entry()));
    SettingsOptions(ctx).autostartOff();
    EXPECT_EQ(ctx.settings.boxes.autostartLabel, "It is done!It is done!It is done!");
    EXPECT_EQ(notices.beeps, 3);
}
