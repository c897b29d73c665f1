#include "alarmset/alarm_set_settings.h"
#include "alarmset/song_choice.h"
#include "fakes.h"

#include <gtest/gtest.h>

namespace {

struct AlarmSetSettingsTest : ::testing::Test, EngineFixture {
    AlarmSetSettingsTest() { clock.set(2002, 5, 1, 12, 0, 0); }
    QByteArray record(int n) { return readFile("tolm.ini").mid((n - 1) * 55, 55); }
};

} // namespace

TEST_F(AlarmSetSettingsTest, LoadWithoutFileKeepsEveryDefault) {
    AlarmSetLoadResult loaded;
    loadAlarmSetSettings(ctx, loaded);
    EXPECT_EQ(loaded.amPm, "PM"); // 12 o'clock is afternoon
    EXPECT_FALSE(loaded.havePosition);
    EXPECT_EQ(ctx.soundChoice.songPath, path("ding.wav"));
    EXPECT_FALSE(ctx.settings.loaded);
    EXPECT_TRUE(alarmSetControlFont(ctx).family.isEmpty());

    clock.set(2002, 5, 1, 11, 59, 59);
    loadAlarmSetSettings(ctx, loaded);
    EXPECT_EQ(loaded.amPm, "AM");
}

TEST_F(AlarmSetSettingsTest, LoadTakesPlaceSongAndSoundBoxesFromTheirRecords) {
    writeFile("tolm.ini", settingBytes("[TimeInputLoc]", 1200, 3000, "") + QByteArray(55, '\0') +
                              settingBytes("[SongName]", 0, 0, "rooster") +
                              settingBytes("[Setting]", 0, 1, "ALAEOfDCWSOfUISPOfISOMOf") + QByteArray(3 * 55, '\0') +
                              settingBytes("[AllFont]", 0, 0, "TimesNewRoman"));
    AlarmSetLoadResult loaded;
    loadAlarmSetSettings(ctx, loaded);
    EXPECT_TRUE(loaded.havePosition);
    EXPECT_EQ(loaded.top, 1200);
    EXPECT_EQ(loaded.left, 3000);
    EXPECT_EQ(ctx.soundChoice.songPath, path("rooster.wav"));
    EXPECT_TRUE(ctx.settings.loaded);
    EXPECT_FALSE(ctx.settings.boxes.soundOnBox);
    EXPECT_FALSE(ctx.options.soundOn);
    EXPECT_TRUE(ctx.options.errorPopups);

    const ControlFont font = alarmSetControlFont(ctx);
    EXPECT_EQ(font.family, "Times New Roman");
    EXPECT_EQ(font.pointSize, 10);
}

TEST_F(AlarmSetSettingsTest, UnwrittenPositionRecordClearsTheBufferNumbers) {
    writeFile("tolm.ini", QByteArray(2 * 55, '\0') + settingBytes("[SongName]", 0, 0, "x") + QByteArray(4 * 55, '\0') +
                              settingBytes("[AllFont]", 0, 0, "Arial"));
    ctx.recordBuffer.value1 = 77;
    AlarmSetLoadResult loaded;
    loadAlarmSetSettings(ctx, loaded);
    EXPECT_FALSE(loaded.havePosition);
    EXPECT_EQ(ctx.recordBuffer.value1, 0);
    EXPECT_EQ(ctx.soundChoice.songPath, path("x.wav"));
    const ControlFont font = alarmSetControlFont(ctx);
    EXPECT_EQ(font.family, "Arial");
    EXPECT_EQ(font.pointSize, 0); // Arial keeps the laid-out sizes
}

TEST_F(AlarmSetSettingsTest, ExitStoresThePlaceAndWantsTheWindowOnlyWithRowsLeft) {
    storeAlarmSetPlace(ctx, 1440.4, 2879.5, ctx.today.alarms);
    EXPECT_EQ(record(1).left(25), settingBytes("[TimeInputLoc]", 1440, 2880, "").left(25));
    EXPECT_FALSE(ctx.tick.alarmSetWanted);

    ctx.today.alarms.addItem("once 13:00:00");
    storeAlarmSetPlace(ctx, 0, 0, ctx.today.alarms);
    EXPECT_TRUE(ctx.tick.alarmSetWanted);
    AlarmSetLoadResult loaded;
    loadAlarmSetSettings(ctx, loaded);
    EXPECT_TRUE(loaded.havePosition);
}

TEST_F(AlarmSetSettingsTest, SongsAreTheWaveFilesAndAClickStoresTheChoice) {
    writeFile("rooster.wav", "RIFF");
    writeFile("chime.wav", "RIFF");
    writeFile("notes.txt", "x");
    writeFile("LOUD.WAV", "RIFF");
    QStringList songs = {"stale"};
    listSongs(ctx, songs);
    songs.sort();
    EXPECT_EQ(songs, QStringList({"chime", "rooster"}));

    chooseSong(ctx, songs, -1);
    playSongTrial(ctx, songs, -1);
    EXPECT_EQ(ctx.soundChoice.songPath, path("ding.wav"));
    EXPECT_FALSE(QFile::exists(path("tolm.ini")));
    EXPECT_TRUE(sound.waves.isEmpty());

    chooseSong(ctx, songs, 1);
    EXPECT_EQ(ctx.soundChoice.songPath, path("rooster.wav"));
    EXPECT_EQ(record(3), settingBytes("[SongName]", 0, 0, "rooster"));
    playSongTrial(ctx, songs, 0);
    EXPECT_EQ(sound.waves, QStringList({path("chime.wav")}));
}
