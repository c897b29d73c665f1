#include "settings/settings_file.h"
#include "settings/settings_records.h"

#include "fakes.h"

#include <QDir>
#include <gtest/gtest.h>

using namespace settings_records;

namespace {
QByteArray zeros(int n) {
    return QByteArray(n, '\0');
}
QByteArray recordAt(const QByteArray& file, int n) {
    return file.mid((n - 1) * 55, 55);
}

struct SettingsFileTest : ::testing::Test, EngineFixture {
    QByteArray ini() const { return readFile("tolm.ini"); }
    // Fills the shared buffer the way a previous read would have left it.
    void dirtyBuffer() {
        writeFile("tolm.ini", settingBytes("[Junk]", 77, 88, "leftover"));
        readRecord(ctx.folder, 1, ctx.recordBuffer);
        QFile::remove(path("tolm.ini"));
    }
};
} // namespace

TEST_F(SettingsFileTest, OwnRecordWritersFillEverythingFresh) {
    dirtyBuffer();
    // The first writer may be any of them; writing record 13 first leaves twelve zero records before it.
    ASSERT_TRUE(writeShowSmallClock(ctx.folder, true));
    const QByteArray smallClock = settingBytes("[ShowSmallClock]", 1, 0, "", 0);
    EXPECT_EQ(ini(), zeros(12 * 55) + smallClock);

    EXPECT_TRUE(writeClockLocation(ctx.folder, -120, 9000));
    EXPECT_TRUE(write24Hour(ctx.folder, false));
    EXPECT_TRUE(writeEnabledSecond(ctx.folder, true));
    EXPECT_TRUE(writeFontSizeOfClock(ctx.folder, 11));
    EXPECT_TRUE(writeEditWindowLoc(ctx.folder, 2400, 65536));
    EXPECT_EQ(ini(), zeros(4 * 55) + settingBytes("[Form2Location]", -120, 9000, "", 0) + zeros(3 * 55) +
                         settingBytes("[24Hour]", 0, 0, "", 0) + settingBytes("[EnabledSecond]", 1, 0, "", 0) +
                         settingBytes("[FontSizeOfClock]", 11, 0, "", 0) +
                         settingBytes("[LocationForm16]", 2400, 65536, "", 0) + smallClock);
    EXPECT_EQ(recordAt(ini(), 5).mid(17, 4), QByteArray("\x88\xFF\xFF\xFF", 4));
    // Own writers leave the shared buffer alone.
    EXPECT_EQ(ctx.recordBuffer.value1, 77);
}

TEST_F(SettingsFileTest, SharedBufferWritersKeepWhatTheyDoNotSet) {
    dirtyBuffer();
    ASSERT_TRUE(writeTimeInputLoc(ctx, 1500, -30));
    EXPECT_EQ(ini(), settingBytes("[TimeInputLoc]", 1500, -30, "leftover"));
    ASSERT_TRUE(writeFontSize(ctx, 14));
    ASSERT_TRUE(writeMessageInputLoc(ctx, 600, 700));
    ASSERT_TRUE(writeSongName(ctx, "wake up"));
    // Each keeps of the buffer what it does not set; records written earlier stay.
    EXPECT_EQ(ini(), settingBytes("[TimeInputLoc]", 1500, -30, "leftover") +
                         settingBytes("[MessageInputLoc]", 600, 700, "leftover") +
                         settingBytes("[SongName]", 0, 0, "wake up") + zeros(3 * 55) +
                         settingBytes("[FontSize]", 14, -30, "leftover"));

    // A 31-character name is cut to 30, and the next start reads the cut name.
    ASSERT_TRUE(writeSongName(ctx, "abcdefghijklmnopqrstuvwxyz01234"));
    EXPECT_EQ(recordAt(ini(), 3).mid(25), "abcdefghijklmnopqrstuvwxyz0123");
    SettingRecord rec;
    ASSERT_TRUE(readRecord(ctx.folder, kSongName, rec));
    EXPECT_EQ(rec.valueText(), "abcdefghijklmnopqrstuvwxyz0123");
}

TEST_F(SettingsFileTest, ClosingSettingsWritesRecordsFourThenEight) {
    dirtyBuffer();
    const std::pair<int16_t, QByteArray> fonts[] = {{1, "Arial"}, {2, "TimesNewRoman"}, {3, "Normal"}, {0, "Normal"}};
    for (const auto& [choice, word] : fonts) {
        ctx.options.fontChoice = choice;
        ASSERT_TRUE(writeSettingAndFont(ctx, 1, 0, {true, false, true, false}));
        const QByteArray file = ini();
        EXPECT_EQ(recordAt(file, 4), settingBytes("[Setting]", 1, 0, "ALAEOnDCWSOfUISPOnISOMOf"));
        EXPECT_EQ(recordAt(file, 8), settingBytes("[AllFont]", 1, 0, word));
    }
    ASSERT_TRUE(writeSettingAndFont(ctx, 0, 1, {false, true, false, true}));
    EXPECT_EQ(recordAt(ini(), 4), settingBytes("[Setting]", 0, 1, "ALAEOfDCWSOnUISPOfISOMOn"));
    EXPECT_EQ(ini().size(), 8 * 55);
}

TEST_F(SettingsFileTest, OnlySongAndSettingsWritersCreateTheFolder) {
    ctx.folder = path("sub/");
    EXPECT_FALSE(writeTimeInputLoc(ctx, 1, 2));
    EXPECT_FALSE(writeOwnRecord(ctx.folder, kClockLocation, keyOf(kClockLocation), 1, 2));
    EXPECT_FALSE(QDir(ctx.folder).exists());
    EXPECT_TRUE(writeSongName(ctx, "ding"));
    EXPECT_TRUE(QFile::exists(path("tolm.ini")));
    ctx.folder = path("other/");
    EXPECT_TRUE(writeSettingAndFont(ctx, 1, 1, {}));
}

TEST_F(SettingsFileTest, ReadsCheckTheTrimmedKey) {
    SettingRecord rec;
    rec.value1 = 42;
    // No file: nothing is read and the record stands as it was.
    EXPECT_FALSE(readRecord(ctx.folder, kClockLocation, rec));
    EXPECT_EQ(rec.value1, 42);

    writeFile("tolm.ini", zeros(3 * 55) + settingBytes("[Setting]" + zeros(8), 1, 1, "ALAEOn") +
                              settingBytes(" [Form2Location] ", 10, 20, "", 0) + zeros(55) +
                              settingBytes("[FontSize]", 12, 0, "", 0).left(19));
    EXPECT_TRUE(readRecord(ctx.folder, kClockLocation, rec)); // blanks on both sides trim away
    EXPECT_EQ(std::pair(rec.value1, rec.value2), std::pair(10, 20));
    EXPECT_FALSE(readRecord(ctx.folder, kSetting, rec)); // zero bytes after a key do not trim
    EXPECT_EQ(rec.value1, 1);
    EXPECT_FALSE(readRecord(ctx.folder, kTimeInputLoc, rec)); // a gap
    EXPECT_EQ(std::tuple(rec.keyBytes, rec.value1), std::tuple(zeros(17), 0));
    // The last record is cut short by the end of the file: the missing bytes read as zeros.
    EXPECT_TRUE(readRecord(ctx.folder, kFontSize, rec));
    EXPECT_EQ(rec.value1, 12);
    EXPECT_EQ(rec.valueBytes, zeros(30));

    // Past the end: an emptied record, and no error.
    SettingsFile file;
    ASSERT_TRUE(file.openForReading(ctx.folder));
    rec = SettingsFile::decode(settingBytes("[AllFont]", 3, 4, "Arial"));
    file.read(kAllFont, rec);
    EXPECT_EQ(std::tuple(SettingsFile::encode(rec), file.error().isSet()), std::tuple(zeros(55), false));

    // The key of another record does not pass.
    writeFile("tolm.ini", settingBytes("[MessageInputLoc]", 1, 2, "", 0));
    EXPECT_FALSE(readRecord(ctx.folder, kTimeInputLoc, rec));
    EXPECT_EQ(rec.value1, 1);
}

TEST_F(SettingsFileTest, FileErrorsAreKeptNotThrown) {
    SettingsFile file;
    SettingRecord rec;
    EXPECT_FALSE(file.openForReading(ctx.folder));
    EXPECT_EQ(file.error().number, 76);
    file.read(4, rec);
    EXPECT_EQ(file.error().number, 52);
    writeFile("tolm.ini", settingBytes("[Setting]", 1, 1, "", 0));
    ASSERT_TRUE(file.openForReading(ctx.folder));
    file.write(4, rec); // read-only
    EXPECT_TRUE(file.error().isSet());
    file.close();
    EXPECT_EQ(ini().size(), 55);
}

TEST(SettingsRecordValues, OptionWordsCountOnlyTheExactOnWord) {
    auto words = [](const QByteArray& value) {
        SettingRecord rec;
        rec.valueBytes = value.leftJustified(30, ' ');
        const OptionWords w = optionWordsOf(rec);
        return QString("%1%2%3%4").arg(w.autoLoad).arg(w.noSecond).arg(w.internalSpeaker).arg(w.speakerInsteadOfMidi);
    };
    EXPECT_EQ(words("ALAEOnDCWSOnUISPOnISOMOn"), "1111");
    EXPECT_EQ(words("      DCWSOnUISPOfISOMOn"), "0101");
    EXPECT_EQ(words(" ALAEOnDCWSOnUISPOnISOMOn"), "0000"); // shifted by a blank
    EXPECT_EQ(words("alaeOnDCWSONUISPOn ISOMOn"), "0010");

    auto font = [](const QByteArray& value) {
        SettingRecord rec;
        rec.valueBytes = value.leftJustified(30, '\0');
        return fontChoiceOf(rec);
    };
    EXPECT_EQ(font("  ArialBlack"), 1);
    EXPECT_EQ(font(QByteArray("TimesNewRoman").leftJustified(30)), 2);
    EXPECT_EQ(font("TimesNewRo"), 3);
    EXPECT_EQ(font(""), 3);
}
