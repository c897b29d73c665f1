#include "sound_fakes.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

const QString kSpeakerWarning =
    QStringLiteral("warn cannot play sound from internal speaker, refer to trouble shooting in help");

struct Chain {
    const char* name;
    // S sound on, I internal speaker, M speaker instead of midi, L library there, X wave exists, P wave plays,
    // E error boxes pop up
    const char* on;
    uint32_t midiPlayResult;
    QStringList expected; // "SONG" stands for the song's path without its first 7 characters
    int sweeps;
};

const QString kWave1 = QStringLiteral("wave ding.wav x1");
const QString kStop = QStringLiteral("wave stop");
const QStringList kMidi = {QStringLiteral("mci close tmpMidiPlay"),
                           QStringLiteral("mci open AIR type sequencer alias tmpMidiPlay"),
                           QStringLiteral("mci play tmpMidiPlay")};
const QStringList kNotFound = {QStringLiteral("timer off"),
                               QStringLiteral("box SONG, wave file not found, alarm at 07:30:00 tray=0"),
                               QStringLiteral("timer on")};
const QStringList kMidiFailed = {QStringLiteral("timer off"),
                                 QStringLiteral("box Error found, Sound cannot be played, alarm at 07:30:00 tray=0"),
                                 QStringLiteral("timer on")};

QStringList operator+(const QString& a, const QStringList& b) {
    return QStringList{a} + b;
}

TEST(Form9Test, EveryChainOfPlaySound) {
    const std::vector<Chain> chains = {
        {"sound off", "IMLXPE", 0, {}, 0},
        {"wave plays", "SLXPE", 0, {kStop, kWave1}, 0},
        {"speaker chosen", "SILXPE", 0, {}, 1},
        {"speaker chosen, library missing", "SIXPE", 0, {kSpeakerWarning, kStop, kWave1}, 0},
        // When the wave player refuses:
        {"instead of midi, library, wave missing", "SML", 0, {kStop, kWave1}, 1},
        {"instead of midi, library, wave there", "SMLXE", 0, {kStop, kWave1}, 1},
        {"instead of midi, no library, wave missing", "SME", 0,
         QStringList{kStop, kWave1} + kNotFound + QStringList{kSpeakerWarning}, 0},
        {"instead of midi, no library, error pop", "SMXE", 0,
         QStringList{kStop, kWave1} + kMidi + QStringList{kSpeakerWarning}, 0},
        {"instead of midi, no library, no error pop", "SMX", 0, {kStop, kWave1, kSpeakerWarning}, 0},
        {"midi, wave missing", "SE", 0, QStringList{kStop, kWave1} + kNotFound, 0},
        {"midi, wave missing, library there", "SL", 0, QStringList{kStop, kWave1} + kNotFound, 0},
        {"midi", "SXE", 0, QStringList{kStop, kWave1} + kMidi, 0},
        {"midi, library there", "SLXE", 0, QStringList{kStop, kWave1} + kMidi, 0},
        {"silence", "SLX", 0, {kStop, kWave1}, 0},
        {"midi cannot play", "SXE", 263, QStringList{kStop, kWave1} + kMidi + kMidiFailed, 0},
        {"speaker chosen, library missing, nothing plays", "SIME", 0,
         kSpeakerWarning + QStringList{kStop, kWave1} + kNotFound + QStringList{kSpeakerWarning}, 0},
    };
    for (const Chain& c : chains) {
        SCOPED_TRACE(c.name);
        SoundFixture f;
        Module1& m = f.ctx.m;
        const auto on = [&](char flag) { return std::strchr(c.on, flag) != nullptr; };
        m.blnSoundOn = on('S');
        m.blnInternalSpeaker = on('I');
        m.blnISInsteadMidi = on('M');
        m.blnErrMsgPop = on('E');
        f.ports.present = on('L');
        f.wave.playable = on('P');
        f.mci.playResult = c.midiPlayResult;
        if (on('X'))
            writeBytes(m.strSongName, "RIFF");

        f.ctx.sound.PlaySound(QStringLiteral("once"), m.strSongName);

        QStringList expected = c.expected;
        expected.replaceInStrings(QStringLiteral("SONG"), m.strSongName.mid(7));
        EXPECT_EQ(f.log, expected);
        EXPECT_EQ(f.sweeps(), c.sweeps);
        EXPECT_TRUE(m.blnTrayEnabled);
        EXPECT_FALSE(m.blnRepeatPlay);
    }
}

TEST(Form9Test, TheNotFoundBoxCutsSevenCharactersWhateverTheFolder) {
    SoundFixture f;
    f.wave.playable = false;
    f.ctx.m.strSongName = QStringLiteral("/x/a.wav");
    f.ctx.m.strNextAlarm = QStringLiteral("23:59");
    f.form9.PlaySound(QStringLiteral("once"), f.ctx.m.strSongName);
    EXPECT_EQ(f.log.at(3), QStringLiteral("box v, wave file not found, alarm at 23:59 tray=0"));

    SoundFixture g;
    g.wave.playable = false;
    g.ctx.m.strSongName = QStringLiteral("a.wav");
    g.form9.PlaySound(QStringLiteral("once"), g.ctx.m.strSongName);
    EXPECT_EQ(g.log.at(3), QStringLiteral("box , wave file not found, alarm at 07:30:00 tray=0"));
}

TEST(Form9Test, PlayWordDecidesTheCount) {
    const struct {
        const char* word;
        int times;
        bool repeat;
    } words[] = {{"once", 1, false}, {"twice", 2, false}, {"thrice", 3, false}, {"repeat", 0, true}};
    for (const auto& w : words) {
        SCOPED_TRACE(w.word);
        SoundFixture wave;
        wave.form9.PlaySound(QString::fromLatin1(w.word), wave.ctx.m.strSongName);
        EXPECT_EQ(wave.log, (QStringList{kStop, QStringLiteral("wave ding.wav x%1").arg(w.times)}));
        // A wave never sets the repeating sweep.
        EXPECT_FALSE(wave.ctx.m.blnRepeatPlay);

        SoundFixture speaker;
        speaker.ctx.m.blnInternalSpeaker = true;
        speaker.form9.PlaySound(QString::fromLatin1(w.word), speaker.ctx.m.strSongName);
        // "repeat" plays no sweep itself: the tick does, one each time it fires.
        EXPECT_EQ(speaker.ports.holds(), 30 * (w.repeat ? 0 : w.times));
        EXPECT_EQ(speaker.ctx.m.blnRepeatPlay, w.repeat);
    }
    // Any other word: the wave once, the speaker never.
    SoundFixture other;
    other.ctx.m.blnInternalSpeaker = true;
    other.form9.PlaySound(QStringLiteral("Once"), other.ctx.m.strSongName);
    other.ctx.m.blnInternalSpeaker = false;
    other.form9.PlaySound(QString(), other.ctx.m.strSongName);
    EXPECT_EQ(other.ports.holds(), 0);
    EXPECT_EQ(other.log, (QStringList{kStop, kWave1}));
}

TEST(Form9Test, RepeatWithoutLibraryNeverRepeats) {
    SoundFixture f;
    f.ctx.m.blnInternalSpeaker = true;
    f.ports.present = false;
    f.form9.PlaySound(QStringLiteral("repeat"), f.ctx.m.strSongName);
    EXPECT_FALSE(f.ctx.m.blnRepeatPlay);
    EXPECT_EQ(f.log, (QStringList{kSpeakerWarning, kStop, QStringLiteral("wave ding.wav x0")}));
}

TEST(Form9Test, StopEndsWaveMidiAndRepeat) {
    SoundFixture f;
    f.ctx.m.blnRepeatPlay = true;
    f.form9.mStop();
    EXPECT_EQ(f.log, (QStringList{kStop, QStringLiteral("mci close tmpMidiPlay")}));
    EXPECT_FALSE(f.ctx.m.blnRepeatPlay);
}

TEST(Form9Test, SndPlaySoundPlaysOnceOrStops) {
    SoundFixture f;
    f.form9.sndPlaySoundA(f.ctx.appFile(QStringLiteral("didi.snd")), 1);
    f.form9.sndPlaySoundA(QString(), 1);
    f.form9.sndPlaySoundA(f.ctx.appFile(QStringLiteral("didi.snd")), 4);
    EXPECT_EQ(f.log, (QStringList{QStringLiteral("wave didi.snd x1"), kStop, kStop}));
}

TEST(Form9Test, MidiCopiesAirOverTheFixedCopy) {
    SoundFixture f;
    const QString copy = f.dir.path() + QStringLiteral("/run/air.mid");
    writeBytes(f.ctx.appFile(QStringLiteral("air.mid")), "new air");
    f.form9.MidiSound();
    EXPECT_EQ(readBytes(copy), QByteArray("new air"));
    EXPECT_EQ(f.log, kMidi);
    // The folder of the copy is the user's own.
    EXPECT_EQ(QFileInfo(QFileInfo(copy).path()).permissions() & (QFileDevice::ReadOther | QFileDevice::WriteOther),
              QFileDevice::Permissions());

    // Without air.mid the older copy stands and is played.
    QFile::remove(f.ctx.appFile(QStringLiteral("air.mid")));
    f.form9.MidiSound();
    EXPECT_EQ(readBytes(copy), QByteArray("new air"));
    EXPECT_EQ(f.log, kMidi + kMidi);

    f.ctx.m.blnSoundOn = false;
    f.form9.MidiSound();
    EXPECT_EQ(f.log.size(), 6);
}

// MidiSound through the command interpreter, as the program runs it.
struct MidiFixture : SoundFixture {
    FakeSequencer sequencer;
    MciSequencerCommands commands{sequencer};
    Form9 midiForm{ctx, SoundDevices{wave, commands, ports, dir.path() + QStringLiteral("/my run/air.mid")}};
};

TEST(Form9Test, MidiRestartsFromTheBeginningAndQuotesBlanks) {
    MidiFixture f;
    const QString copy = f.dir.path() + QStringLiteral("/my run/air.mid");
    writeBytes(f.ctx.appFile(QStringLiteral("air.mid")), "air");
    f.midiForm.MidiSound();
    f.midiForm.MidiSound();
    EXPECT_EQ(f.sequencer.log,
              (QStringList{QStringLiteral("open ") + copy, QStringLiteral("play"), QStringLiteral("close"),
                           QStringLiteral("open ") + copy, QStringLiteral("play")}));
    EXPECT_TRUE(f.log.isEmpty());
    f.midiForm.mStop();
    EXPECT_EQ(f.sequencer.log.last(), QStringLiteral("close"));
    EXPECT_TRUE(f.commands.openAlias().isEmpty());
}

TEST(Form9Test, MidiWithNoFileAnywhereShowsTheBox) {
    MidiFixture f;
    f.midiForm.MidiSound();
    EXPECT_TRUE(f.sequencer.log.isEmpty());
    EXPECT_EQ(f.log, kMidiFailed);
    EXPECT_TRUE(f.ctx.m.blnTrayEnabled);
}

struct MciFixture {
    QTemporaryDir dir;
    FakeSequencer sequencer;
    MciSequencerCommands mci{sequencer};
    QString file(const QString& name) const {
        writeBytes(dir.filePath(name), {});
        return dir.filePath(name);
    }
};

TEST(MciCommandsTest, OpenPlayClose) {
    MciFixture f;
    const QString air = f.file(QStringLiteral("air.mid"));
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open ") + air + QStringLiteral(" type sequencer alias tmpMidiPlay")),
              0u);
    EXPECT_EQ(f.mci.openAlias(), QStringLiteral("tmpMidiPlay"));
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("PLAY tmpmidiplay")), 0u);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("close tmpMidiPlay")), 0u);
    EXPECT_EQ(f.sequencer.log,
              (QStringList{QStringLiteral("open ") + air, QStringLiteral("play"), QStringLiteral("close")}));
    EXPECT_TRUE(f.mci.openAlias().isEmpty());
    // A closed device answers with an error and touches nothing.
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("close tmpMidiPlay")), MciSequencerCommands::kInvalidDeviceName);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("play tmpMidiPlay")), MciSequencerCommands::kInvalidDeviceName);
    EXPECT_EQ(f.sequencer.log.size(), 3);
}

TEST(MciCommandsTest, OpenFailures) {
    MciFixture f;
    const QString missing = f.dir.filePath(QStringLiteral("none.mid"));
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open ") + missing + QStringLiteral(" type sequencer alias a")),
              MciSequencerCommands::kFileNotFound);
    const QString air = f.file(QStringLiteral("air.mid"));
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open ") + air + QStringLiteral(" type waveaudio alias a")),
              MciSequencerCommands::kInvalidDeviceName);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open ") + air + QStringLiteral(" shareable a")),
              MciSequencerCommands::kUnrecognizedKeyword);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("seek a to start")), MciSequencerCommands::kUnrecognizedCommand);
    EXPECT_EQ(f.mci.mciSendStringA(QString()), MciSequencerCommands::kUnrecognizedCommand);
    EXPECT_TRUE(f.sequencer.log.isEmpty());

    f.sequencer.opens = false;
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open ") + air + QStringLiteral(" type sequencer alias a")),
              MciSequencerCommands::kCannotLoadDriver);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("play a")), MciSequencerCommands::kInvalidDeviceName);
}

TEST(MciCommandsTest, QuotedNamesAndOneDeviceAtATime) {
    MciFixture f;
    const QString air = f.file(QStringLiteral("my air.mid"));
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open \"") + air + QStringLiteral("\" type sequencer")), 0u);
    // Without an alias the device is named by its file.
    EXPECT_EQ(f.mci.openAlias(), air);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("open \"") + air + QStringLiteral("\" alias b")),
              MciSequencerCommands::kDeviceOpen);
    EXPECT_EQ(f.mci.mciSendStringA(QStringLiteral("play \"") + air + QStringLiteral("\"")), 0u);
    EXPECT_EQ(f.sequencer.log, (QStringList{QStringLiteral("open ") + air, QStringLiteral("play")}));
}

} // namespace
