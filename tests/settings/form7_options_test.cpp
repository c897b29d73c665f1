#include "settings/autostart.h"
#include "settings/form7_options.h"

#include "engine/form4_ui.h"
#include "fakes.h"

#include <QDir>
#include <gtest/gtest.h>

namespace {
QByteArray settingRecord(int32_t soundOn, int32_t errMsgPop, const QByteArray& words) {
    QByteArray out = "[Setting]        ";
    for (int32_t v : {soundOn, errMsgPop})
        for (int shift = 0; shift < 32; shift += 8)
            out.append(char((uint32_t(v) >> shift) & 0xFF));
    return out + words.leftJustified(30, ' ');
}
QByteArray fontRecord(const QByteArray& word) {
    return "[AllFont]        " + QByteArray(8, '\0') + word.leftJustified(30, ' ');
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
    void writeIni(const QByteArray& record4, const QByteArray& record8 = QByteArray()) {
        writeFile("tolm.ini", QByteArray(3 * 55, '\0') + record4 + QByteArray(3 * 55, '\0') + record8);
    }
};
} // namespace

TEST_F(Form7OptionsTest, LoadWithoutFileTakesTheVariables) {
    ctx.form4Ui = &form4;
    EXPECT_TRUE(f7.Touch(ctx));
    EXPECT_FALSE(f7.Touch(ctx));
    EXPECT_TRUE(s.chkSoundOn);
    EXPECT_TRUE(s.chkErrMsgPop);
    EXPECT_TRUE(s.chkErrMsgPopVisible);
    EXPECT_FALSE(s.testVisible);
    EXPECT_EQ(s.optFont, 3);
    EXPECT_EQ(ctx.m.iFontChoice, 3); // 0 until now
    EXPECT_EQ(s.appliedFont, 3);
    EXPECT_EQ(form4.loads, 0);
    EXPECT_FALSE(QFile::exists(path("tolm.ini")));
}

TEST_F(Form7OptionsTest, LoadTurnsRecordFourIntoVariables) {
    ctx.form4Ui = &form4;
    ctx.m.iFontChoice = 2;
    writeIni(settingRecord(1, 0, "ALAEOnDCWSOnUISPOnISOMOf"), fontRecord("Arial"));
    f7.Load(ctx);
    EXPECT_EQ(s.optFont, 2); // from the variable; record 8 only sets the look
    EXPECT_EQ(s.appliedFont, 1);
    EXPECT_TRUE(s.chkSoundOn);
    EXPECT_FALSE(s.chkErrMsgPop);
    EXPECT_FALSE(ctx.m.blnErrMsgPop);
    EXPECT_TRUE(s.chkAutoLoad);
    EXPECT_TRUE(ctx.m.blnNoSecond);
    EXPECT_TRUE(ctx.m.blnInternalSpeaker);
    EXPECT_FALSE(ctx.m.blnISInsteadMidi);
    EXPECT_TRUE(s.testVisible);
    // The seconds box lives on the Alarm Set window: ticking no-second mode loads it.
    EXPECT_EQ(form4.loads, 1);
    EXPECT_EQ(form4.noSecondModes, QList<bool>{true});

    // A key that doesn't match leaves the boxes as the variables set them.
    ctx.m.blnSoundOn = false;
    ctx.m.blnErrMsgPop = false;
    writeIni(settingRecord(1, 1, "ALAEOn").replace(1, 1, "s"));
    f7.Load(ctx);
    EXPECT_FALSE(s.chkSoundOn);
    EXPECT_FALSE(s.chkAutoLoad);
    EXPECT_TRUE(ctx.m.blnNoSecond); // no box changed, so no click ran
    EXPECT_EQ(s.appliedFont, 3);
}

TEST_F(Form7OptionsTest, ClickLogicRunsOnlyOnChange) {
    ctx.m.blnSoundOn = false;
    writeIni(settingRecord(0, 1, "ALAEOfDCWSOfUISPOnISOMOn"));
    f7.Load(ctx);
    // Sound stayed off from the start, so its click never ran and the design visibility stands.
    EXPECT_FALSE(s.chkSoundOn);
    EXPECT_TRUE(s.chkErrMsgPopVisible);
    EXPECT_FALSE(s.testVisible);
    EXPECT_TRUE(ctx.m.blnISInsteadMidi);
    EXPECT_FALSE(ctx.form4Loaded());

    f7.SetSoundOn(ctx, true);
    EXPECT_TRUE(ctx.m.blnSoundOn);
    EXPECT_TRUE(s.testVisible);
    f7.SetSoundOn(ctx, false);
    EXPECT_FALSE(ctx.m.blnSoundOn);
    EXPECT_FALSE(s.chkErrMsgPopVisible);
    EXPECT_TRUE(ctx.m.blnErrMsgPop); // hidden, but keeps its value
    EXPECT_FALSE(s.testVisible);
    f7.SetSoundOn(ctx, true);
    f7.SetInternalSpeaker(ctx, false);
    EXPECT_FALSE(ctx.m.blnInternalSpeaker);
    EXPECT_FALSE(s.testVisible);

    // Without a window the no-second click still loads the Alarm Set data.
    f7.SetNoSec(ctx, true);
    EXPECT_TRUE(ctx.form4Loaded());
    EXPECT_TRUE(ctx.m.blnNoSecond);
    f7.SetFont(ctx, 1);
    EXPECT_EQ(ctx.m.iFontChoice, 1);
    f7.SetFont(ctx, 4);
    EXPECT_EQ(s.optFont, 1);
}

TEST_F(Form7OptionsTest, TouchingABoxLoadsTheWindowFirst) {
    writeIni(settingRecord(1, 1, "ALAEOnDCWSOfUISPOfISOMOf"));
    int changes = 0;
    f7.changed = [&] { ++changes; };
    // As the Alarm Set window's load does with record 4's numbers.
    f7.SetErrMsgPop(ctx, false);
    EXPECT_TRUE(f7.loaded());
    EXPECT_TRUE(s.chkAutoLoad);
    EXPECT_FALSE(ctx.m.blnErrMsgPop);
    EXPECT_GT(changes, 0);
}

TEST_F(Form7OptionsTest, CloseWritesRecordsFourAndEightThenUnloads) {
    f7.Close(ctx); // never loaded: nothing to save
    EXPECT_FALSE(QFile::exists(path("tolm.ini")));

    f7.Load(ctx);
    f7.SetErrMsgPop(ctx, false);
    f7.SetAutoLoad(ctx, true);
    f7.SetISInsteadMidi(ctx, true);
    f7.SetFont(ctx, 2);
    f7.Close(ctx);
    EXPECT_FALSE(f7.loaded());
    const QByteArray file = readFile("tolm.ini");
    ASSERT_EQ(file.size(), 8 * 55);
    EXPECT_EQ(file.mid(3 * 55, 55), settingRecord(1, 0, "ALAEOnDCWSOfUISPOfISOMOn"));
    QByteArray font = fontRecord("TimesNewRoman");
    font.replace(17, 8, QByteArray::fromHex("0100000000000000"));
    EXPECT_EQ(file.mid(7 * 55, 55), font);

    // The next load reads back what was saved.
    ctx.m.setStartValues(dir.path());
    f7.Touch(ctx);
    EXPECT_FALSE(ctx.m.blnErrMsgPop);
    EXPECT_TRUE(ctx.m.blnISInsteadMidi);
    EXPECT_EQ(s.appliedFont, 2);
}

TEST_F(Form7OptionsTest, ButtonsOfTheSecondPage) {
    QTemporaryDir config;
    const QByteArray saved = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
    f7.Load(ctx);
    EXPECT_TRUE(s.page1Visible);
    f7.NextClick();
    EXPECT_FALSE(s.page1Visible);
    f7.RunClick(ctx, "/opt/bellwick/bin/bellwick");
    EXPECT_TRUE(QFile::exists(config.path() + "/autostart/bwktolm.desktop"));
    f7.NoRunClick(ctx);
    EXPECT_FALSE(QFile::exists(config.path() + "/autostart/bwktolm.desktop"));
    f7.NoRunClick(ctx);
    EXPECT_EQ(s.lblLoadBwk, "It is done!It is done!It is done!");
    EXPECT_EQ(notices.beeps, 3);
    f7.NextClick();
    EXPECT_TRUE(s.page1Visible);

    ctx.m.strSongName = path("wake.wav");
    f7.PlayISClick(ctx);
    EXPECT_EQ(sound.played, QStringList{"once|" + path("wake.wav")});
    qputenv("XDG_CONFIG_HOME", saved);
}
