// The real outputs, on SDL's "disk" audio driver, which writes every sample it plays to a file.
#include "sound_fakes.h"

#include "platform/linux/linux_sound_devices.h"
#include "platform/linux/sdl_audio.h"
#include "platform/linux/sdl_midi_sequencer.h"
#include "platform/linux/sdl_wave_output.h"
#include "platform/linux/square_wave_speaker.h"

#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>
#include <QtEndian>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace {

const QString kData = QStringLiteral(BELLWICK_DATA_DIR);

struct AudioDriver {
    const QByteArray savedDriver = qgetenv("SDL_AUDIODRIVER"), savedFile = qgetenv("SDL_DISKAUDIOFILE");
    explicit AudioDriver(const QByteArray& driver, const QByteArray& file = QByteArray()) {
        qputenv("SDL_AUDIODRIVER", driver);
        qputenv("SDL_DISKAUDIOFILE", file);
    }
    ~AudioDriver() {
        qputenv("SDL_AUDIODRIVER", savedDriver);
        qputenv("SDL_DISKAUDIOFILE", savedFile);
    }
};

struct Recording {
    std::vector<int16_t> samples; // interleaved
    int rate = 0;
    int channels = 0;
    int peak(size_t fromFrame = 0) const {
        int p = 0;
        for (size_t i = fromFrame * channels; i < samples.size(); ++i)
            p = std::max(p, std::abs(int(samples[i])));
        return p;
    }
    size_t frames() const { return channels ? samples.size() / channels : 0; }
};

// What the device has written to its file so far. It writes by its own clock, which a loaded machine slows down,
// so a test waits for frames, never for a time.
struct Played {
    QString file;
    int channels = 2;
    size_t frames() const { return size_t(QFileInfo(file).size()) / (2 * size_t(channels)); }
    bool reach(size_t n) const {
        QDeadlineTimer deadline(10000);
        while (frames() < n && !deadline.hasExpired())
            QThread::msleep(10);
        return frames() >= n;
    }
    // Waits until a sample louder than the level is written: a synthesizer may take a while to start.
    bool sounds(int level) const {
        QDeadlineTimer deadline(10000);
        do {
            const QByteArray bytes = readBytes(file);
            const auto* samples = reinterpret_cast<const int16_t*>(bytes.constData());
            if (std::any_of(samples, samples + bytes.size() / 2, [&](int16_t v) { return std::abs(int(v)) > level; }))
                return true;
            QThread::msleep(20);
        } while (!deadline.hasExpired());
        return false;
    }
};

// Opens an audio device on the disk driver, lets `play` sound on it, and returns what the device played.
Recording record(const std::function<void(SdlAudio&, const Played&)>& play) {
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("out.raw"));
    AudioDriver driver("disk", QFile::encodeName(file));
    Recording r;
    {
        SdlAudio audio;
        if (!audio.open()) {
            ADD_FAILURE() << "disk audio: " << audio.error().toStdString();
            return r;
        }
        r.rate = audio.rate();
        r.channels = audio.channels();
        play(audio, Played{file, r.channels});
    }
    const QByteArray bytes = readBytes(file);
    r.samples.resize(bytes.size() / 2);
    memcpy(r.samples.data(), bytes.constData(), r.samples.size() * 2);
    return r;
}

QByteArray le32(quint32 v) {
    v = qToLittleEndian(v);
    return QByteArray(reinterpret_cast<const char*>(&v), 4);
}

// ding.wav is heard, and falls silent when stopped, in desktop_cli.
TEST(AudioOutputTest, OurChimeSounds) {
    const Recording r = record([&](SdlAudio& audio, const Played& played) {
        SdlWaveOutput wave(audio);
        ASSERT_TRUE(wave.play(kData + "/didi.snd", 1)) << wave.error().toStdString();
        ASSERT_TRUE(played.reach(audio.rate() * 3 / 10));
    });
    EXPECT_GT(r.frames(), size_t(r.rate / 5));
    EXPECT_GT(r.peak(), 5000);
}

TEST(AudioOutputTest, AirSoundsThroughTheSequencerCommands) {
    const Recording r = record([&](SdlAudio& audio, const Played& played) {
        SdlMidiSequencer sequencer(audio);
        MciSequencerCommands mci(sequencer);
        // What playMidi sends, with the file in a folder with a blank.
        QTemporaryDir dir;
        const QString copy = dir.filePath(QStringLiteral("my run air.mid"));
        ASSERT_TRUE(QFile::copy(kData + "/air.mid", copy));
        ASSERT_EQ(mci.sendCommand("open \"" + copy + "\" type sequencer alias tmpMidiPlay"), 0u)
            << sequencer.error().toStdString();
        ASSERT_EQ(mci.sendCommand(QStringLiteral("play tmpMidiPlay")), 0u);
        EXPECT_TRUE(played.sounds(2000));
        EXPECT_EQ(mci.sendCommand(QStringLiteral("close tmpMidiPlay")), 0u);
    });
    EXPECT_GT(r.peak(), 2000);
}

TEST(AudioOutputTest, SweepSoundsAsSquareWavesAtTheTimerFrequencies) {
    SoundFixture f;
    const Recording r = record([&](SdlAudio& audio, const Played& played) {
        SquareWaveSpeaker square(audio);
        SpeakerPortModel model(square);
        SoundPlayer player(f.ctx, SoundDevices{f.wave, f.mci, model, QString()});
        bool present = false;
        player.checkSpeaker(present);
        ASSERT_TRUE(present);
        QElapsedTimer clock;
        clock.start();
        player.sweepSpeaker();
        // The sweep is queued, not waited for.
        EXPECT_LT(clock.elapsed(), 50);
        EXPECT_GT(square.queuedMs(), 500);
        QDeadlineTimer deadline(3000);
        while (square.queuedMs() > 0 && !deadline.hasExpired())
            QThread::msleep(20);
        ASSERT_TRUE(played.reach(played.frames() + audio.rate() / 10));
    });
    size_t start = 0;
    while (start < r.frames() && r.samples[start * r.channels] == 0)
        ++start;
    const size_t tone = r.rate * SoundPlayer::kToneHoldMs / 1000;
    ASSERT_LE(start + 30 * tone, r.frames()) << "the sweep did not sound to its end";
    for (size_t i = 0; i < kSweepDivisors.size(); ++i) {
        const double expected = 1193182.0 / kSweepDivisors[i];
        const double measured =
            measuredFrequency(r.samples, r.channels, r.rate, start + i * tone, start + (i + 1) * tone);
        EXPECT_NEAR(measured, expected, expected * 0.01) << "tone " << i;
    }
    EXPECT_EQ(r.peak(start + 30 * tone), 0) << "silent after the sweep";
}

// A device lost under a ringing alarm, and opened anew for the next one, is heard in desktop_sound_server.
TEST(AudioOutputTest, AFailedOpenIsTriedAgainAfterASecond) {
    AudioDriver driver("bellwick-no-such-driver");
    SdlAudio audio;
    SquareWaveSpeaker square(audio);
    ASSERT_FALSE(audio.open());
    // The thirty tones of a sweep do not each knock at a sound server that is not there.
    qputenv("SDL_AUDIODRIVER", "dummy");
    EXPECT_FALSE(square.available());
    QThread::msleep(1100);
    EXPECT_TRUE(square.available());
}

// The check passes our own air.mid, bare or inside a RIFF "RMID" file, and nothing cut short.
TEST(AudioOutputTest, OnlyWholeMidiFilesArePlayable) {
    const QByteArray air = readBytes(kData + "/air.mid");
    EXPECT_TRUE(isPlayableMidi(air));
    const QByteArray padded = air + QByteArray(air.size() & 1, '\0');
    EXPECT_TRUE(isPlayableMidi("RIFF" + le32(padded.size() + 12) + "RMID" + "data" + le32(air.size()) + padded));
    EXPECT_FALSE(isPlayableMidi(air.left(14)));
    EXPECT_FALSE(isPlayableMidi(air.left(25)));
    EXPECT_FALSE(isPlayableMidi("RIFF" + le32(4) + "RMID"));
}

// A wave cut after its header, or within its first hundredth of a second, plays next to nothing, so it cannot
// play; one whose header (RIFF and data sizes) claims far more than the file holds plays what is there.
TEST(AudioOutputTest, AWaveCutShortCannotPlayAndOneClaimingTooMuchPlaysWhatIsThere) {
    AudioDriver driver("dummy");
    QTemporaryDir dir;
    SdlAudio audio;
    SdlWaveOutput wave(audio);
    auto waveFile = [&](quint32 declared, int dataBytes) {
        const QString path = dir.filePath(QStringLiteral("w%1.wav").arg(dataBytes));
        QByteArray b = "RIFF" + le32(declared) +
                       QByteArray("WAVEfmt \x10\0\0\0\x01\0\x01\0\x44\xac\0\0\x88\x58\x01\0\x02\0\x10\0data", 32) +
                       le32(declared);
        for (int i = 0; i < dataBytes / 2; ++i) {
            const qint16 v = qint16(8000 * ((i / 50) % 2 ? 1 : -1));
            b.append(char(v & 0xFF)).append(char((v >> 8) & 0xFF));
        }
        writeBytes(path, b);
        return path;
    };
    EXPECT_FALSE(wave.play(waveFile(16, 16), 1));
    EXPECT_FALSE(wave.play(waveFile(88200, 882), 1));
    EXPECT_TRUE(wave.play(waveFile(0x7FFFFFF0u, 88200), 1));
    EXPECT_TRUE(wave.play(waveFile(0xFFFFFFF0u, 88200), 1));
    wave.stop();
}

// A sink that fails on its first write, the way a sound server gone away does. The run named
// audio_device_lost_at_open has the mixer report its open late, so the device has failed before it is looked for.
TEST(AudioOutputTest, ALostDeviceIsOpenedAnewForTheNextSound) {
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("out.raw"));
    AudioDriver driver("disk", "/dev/full");
    {
        SdlAudio audio;
        SdlWaveOutput wave(audio);
        ASSERT_TRUE(wave.play(kData + "/ding.wav", 0)) << wave.error().toStdString();
        QDeadlineTimer deadline(10000);
        while (!audio.lost() && !deadline.hasExpired())
            QThread::msleep(20);
        ASSERT_TRUE(audio.lost());
        EXPECT_TRUE(wave.fellSilent());

        qputenv("SDL_DISKAUDIOFILE", QFile::encodeName(file));
        ASSERT_TRUE(wave.play(kData + "/ding.wav", 1)) << wave.error().toStdString();
        EXPECT_TRUE(Played{file}.sounds(5000)) << "the device opened anew plays the wave";
        EXPECT_FALSE(audio.lost());
        EXPECT_FALSE(wave.fellSilent());
    }
}

} // namespace
