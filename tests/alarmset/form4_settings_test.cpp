#include "alarmset/form4_settings.h"
#include "alarmset/song_choice.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct Form4SettingsTest : ::testing::Test, EngineFixture {
    Form4SettingsTest() { clock.set(2002, 5, 1, 12, 0, 0); }
    QByteArray record(int n) { return readFile("tolm.ini").mid((n - 1) * 55, 55); }
};

} // namespace

TEST_F(Form4SettingsTest, LoadWithoutFileKeepsEveryDefault) {
    Form4LoadResult loaded;
    fForm4Load(ctx, loaded);
    EXPECT_EQ(loaded.txtAm, "PM"); // 12 o'clock is afternoon
    EXPECT_FALSE(loaded.havePosition);
    EXPECT_EQ(ctx.m.strSongName, path("ding.wav"));
    EXPECT_FALSE(ctx.form7.loaded());
    EXPECT_TRUE(Form4ControlFont(ctx).family.isEmpty());

    clock.set(2002, 5, 1, 11, 59, 59);
    fForm4Load(ctx, loaded);
    EXPECT_EQ(loaded.txtAm, "AM");
}

TEST_F(Form4SettingsTest, LoadTakesPlaceSongAndSoundBoxesFromTheirRecords) {
    writeFile("tolm.ini", settingBytes("[TimeInputLoc]", 1200, 3000, "") + QByteArray(55, '\0') +
                              settingBytes("[SongName]", 0, 0, "rooster") +
                              settingBytes("[Setting]", 0, 1, "ALAEOfDCWSOfUISPOfISOMOf") + QByteArray(3 * 55, '\0') +
                              settingBytes("[AllFont]", 0, 0, "TimesNewRoman"));
    Form4LoadResult loaded;
    fForm4Load(ctx, loaded);
    EXPECT_TRUE(loaded.havePosition);
    EXPECT_EQ(loaded.top, 1200);
    EXPECT_EQ(loaded.left, 3000);
    EXPECT_EQ(ctx.m.strSongName, path("rooster.wav"));
    EXPECT_TRUE(ctx.form7.loaded());
    EXPECT_FALSE(ctx.form7.state().chkSoundOn);
    EXPECT_FALSE(ctx.m.blnSoundOn);
    EXPECT_TRUE(ctx.m.blnErrMsgPop);

    const ControlFont font = Form4ControlFont(ctx);
    EXPECT_EQ(font.family, "Times New Roman");
    EXPECT_EQ(font.pointSize, 10);
}

TEST_F(Form4SettingsTest, UnwrittenPositionRecordClearsTheBufferNumbers) {
    writeFile("tolm.ini", QByteArray(2 * 55, '\0') + settingBytes("[SongName]", 0, 0, "x") + QByteArray(4 * 55, '\0') +
                              settingBytes("[AllFont]", 0, 0, "Arial"));
    ctx.m.recSetting.lngValue1 = 77;
    Form4LoadResult loaded;
    fForm4Load(ctx, loaded);
    EXPECT_FALSE(loaded.havePosition);
    EXPECT_EQ(ctx.m.recSetting.lngValue1, 0);
    EXPECT_EQ(ctx.m.strSongName, path("x.wav"));
    const ControlFont font = Form4ControlFont(ctx);
    EXPECT_EQ(font.family, "Arial");
    EXPECT_EQ(font.pointSize, 0); // Arial keeps the laid-out sizes
}

TEST_F(Form4SettingsTest, ExitStoresThePlaceAndWantsTheWindowOnlyWithRowsLeft) {
    fForm4ExitClick(ctx, 1440.4, 2879.5, ctx.lstData);
    EXPECT_EQ(record(1).left(25), settingBytes("[TimeInputLoc]", 1440, 2880, "").left(25));
    EXPECT_FALSE(ctx.m.blnForm4Wanted);

    ctx.lstData.addItem("once 13:00:00");
    fForm4ExitClick(ctx, 0, 0, ctx.lstData);
    EXPECT_TRUE(ctx.m.blnForm4Wanted);
    Form4LoadResult loaded;
    fForm4Load(ctx, loaded);
    EXPECT_TRUE(loaded.havePosition);
}

TEST_F(Form4SettingsTest, SongsAreTheWaveFilesAndAClickStoresTheChoice) {
    writeFile("rooster.wav", "RIFF");
    writeFile("chime.wav", "RIFF");
    writeFile("notes.txt", "x");
    writeFile("LOUD.WAV", "RIFF");
    QStringList songs = {"stale"};
    SongDropDown(ctx, songs);
    songs.sort();
    EXPECT_EQ(songs, QStringList({"chime", "rooster"}));

    SongClick(ctx, songs, -1);
    PlayBClick(ctx, songs, -1);
    EXPECT_EQ(ctx.m.strSongName, path("ding.wav"));
    EXPECT_FALSE(QFile::exists(path("tolm.ini")));
    EXPECT_TRUE(sound.waves.isEmpty());

    SongClick(ctx, songs, 1);
    EXPECT_EQ(ctx.m.strSongName, path("rooster.wav"));
    EXPECT_EQ(record(3), settingBytes("[SongName]", 0, 0, "rooster"));
    PlayBClick(ctx, songs, 0);
    EXPECT_EQ(sound.waves, QStringList({path("chime.wav")}));
}
