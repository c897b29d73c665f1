#include "engine/form4_ui.h"
#include "fakes.h"
#include "settings/autostart.h"
#include "settings/form7_options.h"

#include <gtest/gtest.h>

namespace {
// Records 4 and 8 as they stand on disk, after three empty records each.
QByteArray iniWith(int32_t v1, int32_t v2, const QByteArray& words, const QByteArray& font = QByteArray()) {
    const QByteArray gap(3 * 55, '\0');
    return gap + settingBytes("[Setting]", v1, v2, words) +
           (font.isEmpty() ? "" : gap + settingBytes("[AllFont]", 0, 0, font));
}

struct RecordingForm4 : Form4Ui {
    int loads = 0;
    QList<bool> noSecondModes;
    void Load() override { ++loads; }
    void RequestUnload() override {}
    void EveryControlsChanged() override {}
    void SetNoSecondMode(bool on) override { noSecondModes.append(on); }
};

struct Form7OptionsTest : ::testing::Test, EngineFixture {
    RecordingForm4 form4;
    Form7Options& f7 = ctx.form7;
    const Form7State& s = ctx.form7.state();
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

TEST_F(Form7OptionsTest, LoadTurnsTheFileIntoVariables) {
    ctx.form4Ui = &form4;
    EXPECT_TRUE(f7.Touch(ctx)); // no file: the variables alone
    EXPECT_FALSE(f7.Touch(ctx));
    EXPECT_TRUE(s.chkSoundOn && s.chkErrMsgPop);
    EXPECT_EQ(ctx.m.iFontChoice, 3); // 0 until the first load
    EXPECT_EQ(form4.loads, 0);

    ctx.m.iFontChoice = 2;
    writeFile("tolm.ini", iniWith(1, 0, "ALAEOnDCWSOnUISPOnISOMOf", "Arial"));
    f7.Load(ctx);
    EXPECT_EQ(s.optFont, 2); // from the variable; record 8 only sets the look
    EXPECT_EQ(s.appliedFont, 1);
    EXPECT_FALSE(ctx.m.blnErrMsgPop);
    EXPECT_TRUE(s.chkAutoLoad);
    EXPECT_TRUE(ctx.m.blnNoSecond);
    EXPECT_TRUE(ctx.m.blnInternalSpeaker);
    EXPECT_FALSE(ctx.m.blnISInsteadMidi);
    EXPECT_TRUE(s.testVisible);
    // The seconds box lives on the Alarm Set window: no-second mode loads it.
    EXPECT_EQ(form4.loads, 1);
    EXPECT_EQ(form4.noSecondModes, QList<bool>{true});

    // A key that doesn't match leaves the boxes as the variables set them.
    writeFile("tolm.ini", iniWith(1, 1, "ALAEOn").replace(3 * 55 + 1, 1, "s"));
    f7.Load(ctx);
    EXPECT_FALSE(s.chkAutoLoad);
    EXPECT_EQ(s.appliedFont, 3);
}

TEST_F(Form7OptionsTest, ClickLogicRunsOnlyWhenAValueChanges) {
    ctx.m.blnSoundOn = false;
    writeFile("tolm.ini", iniWith(0, 1, "ALAEOfDCWSOfUISPOnISOMOn"));
    // A box touched from elsewhere loads the window first.
    f7.SetErrMsgPop(ctx, false);
    EXPECT_TRUE(f7.loaded());
    EXPECT_TRUE(ctx.m.blnISInsteadMidi);
    EXPECT_FALSE(ctx.form4Loaded());
    // Sound stayed off throughout, so its click never ran and the box keeps its design visibility.
    EXPECT_TRUE(s.chkErrMsgPopVisible);
    EXPECT_FALSE(s.testVisible);

    f7.SetSoundOn(ctx, true);
    EXPECT_TRUE(s.testVisible);
    f7.SetNoSec(ctx, true); // with no window, the Alarm Set data still loads
    EXPECT_TRUE(ctx.form4Loaded());
    f7.SetFont(ctx, 4);
    EXPECT_EQ(s.optFont, 3);
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
    ctx.form7.Load(ctx);
    ctx.form7.RunClick(ctx, "/opt/bell wick/bellwick");
    EXPECT_EQ(readBytes(entry()), "[Desktop Entry]\nType=Application\nName=Bellwick\n"
                                  "Exec=\"/opt/bell wick/bellwick\"\nX-GNOME-Autostart-enabled=true\n");
    ctx.form7.NoRunClick(ctx);
    EXPECT_FALSE(QFile::exists(entry()));
    ctx.form7.NoRunClick(ctx);
    EXPECT_EQ(ctx.form7.state().lblLoadBwk, "It is done!It is done!It is done!");
    EXPECT_EQ(notices.beeps, 3);
}
