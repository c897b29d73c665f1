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
    const char* word = "once";
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

TEST(SoundPlayerTest, EveryChainOfPlaySound) {
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
        {"repeat without the library", "SIPE", 0, {kSpeakerWarning, kStop, "wave ding.wav x0"}, 0, "repeat"},
    };
    for (const Chain& c : chains) {
        SCOPED_TRACE(c.name);
        SoundFixture f;
        const auto on = [&](char flag) { return std::strchr(c.on, flag) != nullptr; };
        f.ctx.options.soundOn = on('S');
        f.ctx.options.internalSpeaker = on('I');
        f.ctx.options.speakerInsteadOfMidi = on('M');
        f.ctx.options.errorPopups = on('E');
        f.speaker.present = on('L');
        f.wave.playable = on('P');
        f.mci.playResult = c.midiPlayResult;
        if (on('X'))
            writeBytes(f.ctx.soundChoice.songPath, "RIFF");

        f.ctx.sound.playAlarm(QString::fromLatin1(c.word), f.ctx.soundChoice.songPath);

        QStringList expected = c.expected;
        expected.replaceInStrings(QStringLiteral("SONG"), f.ctx.soundChoice.songPath.mid(7));
        EXPECT_EQ(f.log, expected);
        EXPECT_EQ(f.tones(), 30u * c.sweeps);
        EXPECT_TRUE(f.ctx.front.trayEnabled);
        EXPECT_FALSE(f.ctx.soundChoice.repeatSweep);
    }
}

TEST(SoundPlayerTest, PlayWordDecidesTheCount) {
    for (const auto [word, times, repeat] :
         {std::tuple{"once", 1, false}, {"twice", 2, false}, {"thrice", 3, false}, {"repeat", 0, true}}) {
        SCOPED_TRACE(word);
        SoundFixture wave;
        wave.player.playAlarm(QString::fromLatin1(word), wave.ctx.soundChoice.songPath);
        EXPECT_EQ(wave.log, (QStringList{kStop, QStringLiteral("wave ding.wav x%1").arg(times)}));
        // A wave never sets the repeating sweep.
        EXPECT_FALSE(wave.ctx.soundChoice.repeatSweep);

        SoundFixture speaker;
        speaker.ctx.options.internalSpeaker = true;
        speaker.player.playAlarm(QString::fromLatin1(word), speaker.ctx.soundChoice.songPath);
        // "repeat" plays no sweep itself: the tick does, one each time it fires.
        EXPECT_EQ(speaker.tones(), 30u * (repeat ? 0 : times));
        EXPECT_EQ(speaker.ctx.soundChoice.repeatSweep, repeat);
    }
    // Any other word: the wave once, the speaker never.
    SoundFixture other;
    other.ctx.options.internalSpeaker = true;
    other.player.playAlarm(QStringLiteral("Once"), other.ctx.soundChoice.songPath);
    other.ctx.options.internalSpeaker = false;
    other.player.playAlarm(QString(), other.ctx.soundChoice.songPath);
    EXPECT_EQ(std::tuple(other.tones(), other.log), std::tuple(0u, (QStringList{kStop, kWave1})));
}

TEST(SoundPlayerTest, AnAlarmThatFellSilentRingsAgainOrGivesTheBoxWithItsOwnTime) {
    SoundFixture f;
    f.ctx.options.errorPopups = true;
    writeBytes(f.ctx.soundChoice.songPath, "RIFF");
    f.player.playAlarm(QStringLiteral("repeat"), f.ctx.soundChoice.songPath);
    f.player.keepRinging();
    // The next alarm is taken on the tick after the one that fired.
    f.ctx.tick.nextAlarm = QStringLiteral("08:00:00");
    f.wave.silent = true;
    f.player.keepRinging();
    f.wave.silent = false;
    f.player.keepRinging();
    const QString repeat = QStringLiteral("wave ding.wav x0");
    EXPECT_EQ(f.log, (QStringList{kStop, repeat, kStop, repeat}));

    f.log.clear();
    f.wave.playable = false;
    f.mci.playResult = 263;
    f.wave.silent = true;
    f.player.keepRinging();
    EXPECT_EQ(f.log, QStringList({kStop, repeat}) + kMidi + kMidiFailed);

    // A chime that falls silent is no alarm to ring again.
    f.log.clear();
    f.player.playWaveFile(f.ctx.appFile(QStringLiteral("didi.snd")), 1);
    f.player.keepRinging();
    EXPECT_EQ(f.log, QStringList{QStringLiteral("wave didi.snd x1")});
}

TEST(SoundPlayerTest, StopEndsWaveMidiAndRepeat) {
    SoundFixture f;
    f.ctx.soundChoice.repeatSweep = true;
    f.player.stopSounds();
    EXPECT_EQ(f.log, (QStringList{kStop, QStringLiteral("mci close tmpMidiPlay")}));
    EXPECT_FALSE(f.ctx.soundChoice.repeatSweep);
}

TEST(SoundPlayerTest, SndPlaySoundPlaysOnceOrStops) {
    SoundFixture f;
    f.player.playWaveFile(f.ctx.appFile(QStringLiteral("didi.snd")), 1);
    f.player.playWaveFile(QString(), 1);
    f.player.playWaveFile(f.ctx.appFile(QStringLiteral("didi.snd")), 4);
    EXPECT_EQ(f.log, (QStringList{QStringLiteral("wave didi.snd x1"), kStop, kStop}));
}

TEST(SoundPlayerTest, MidiCopiesAirOverTheFixedCopy) {
    SoundFixture f;
    const QString copy = f.dir.path() + "/run/air.mid";
    writeBytes(f.ctx.appFile(QStringLiteral("air.mid")), "new air");
    f.player.playMidi();
    EXPECT_EQ(std::tuple(readBytes(copy), f.log), std::tuple(QByteArray("new air"), kMidi));

    // Without air.mid the older copy stands and is played.
    QFile::remove(f.ctx.appFile(QStringLiteral("air.mid")));
    f.player.playMidi();
    EXPECT_EQ(std::tuple(readBytes(copy), f.log), std::tuple(QByteArray("new air"), kMidi + kMidi));

    f.ctx.options.soundOn = false;
    f.player.playMidi();
    EXPECT_EQ(f.log.size(), 6);
}

// playMidi through the command interpreter, as the program runs it.
struct MidiFixture : SoundFixture {
    FakeSequencer sequencer;
    MciSequencerCommands commands{sequencer};
    SoundPlayer midiForm{ctx, SoundDevices{wave, commands, ports, dir.path() + "/my run/air.mid"}};
};

TEST(SoundPlayerTest, MidiRestartsFromTheBeginningAndQuotesBlanks) {
    MidiFixture f;
    const QString copy = f.dir.path() + "/my run/air.mid";
    writeBytes(f.ctx.appFile(QStringLiteral("air.mid")), "air");
    f.midiForm.playMidi();
    f.midiForm.playMidi();
    EXPECT_EQ(f.commands.sendCommand(QStringLiteral("play tmpMidiPlay from 0")),
              MciSequencerCommands::kUnrecognizedKeyword);
    EXPECT_EQ(f.sequencer.log, (QStringList{"open " + copy, QStringLiteral("play"), QStringLiteral("close"),
                                            "open " + copy, QStringLiteral("play")}));
    EXPECT_TRUE(f.log.isEmpty());
    f.midiForm.stopSounds();
    EXPECT_EQ(f.sequencer.log.last(), QStringLiteral("close"));
    EXPECT_TRUE(f.commands.openAlias().isEmpty());
}

// A closed device answers with an error and touches nothing: the close before the open, and the play. A sequencer
// that opens but cannot play gives the box too.
TEST(SoundPlayerTest, MidiWithNoFileAnywhereOrNoSequencerShowsTheBox) {
    for (const auto [fileThere, opens] : {std::pair{false, false}, {true, false}, {true, true}}) {
        MidiFixture f;
        f.sequencer.opens = opens;
        f.sequencer.plays = false;
        if (fileThere)
            writeBytes(f.ctx.appFile(QStringLiteral("air.mid")), "air");
        f.midiForm.playMidi();
        const QStringList opened{"open " + f.dir.path() + "/my run/air.mid"};
        EXPECT_EQ(f.sequencer.log, !fileThere ? QStringList() : opens ? opened + QStringList{"play"} : opened);
        EXPECT_EQ(f.log, kMidiFailed);
        EXPECT_TRUE(f.ctx.front.trayEnabled);
    }
}

} // namespace
