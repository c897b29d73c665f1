#include "sound_fakes.h"

#include "platform/linux/evdev_speaker.h"
#include "platform/tone_synth.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>

#include <linux/input.h>

namespace {

// The divisors of the sweep, 2000 Hz down to 550 Hz in steps of 50: 1193280 over f in single precision,
// rounded half to even.
const std::vector<int> kSweepDivisors = {597,  612,  628,  645,  663,  682,  702,  723,  746,  770,
                                         796,  823,  852,  884,  918,  955,  994,  1038, 1085, 1136,
                                         1193, 1256, 1326, 1404, 1492, 1591, 1705, 1836, 1989, 2170};

TEST(SpeakerTest, OneSweepOnThePorts) {
    SoundFixture f;
    f.ports.portB = 0xA4; // other bits of port B must survive
    f.player.sweepSpeaker();

    std::vector<PortLog::Access> expected;
    for (int d : kSweepDivisors) {
        const std::vector<PortLog::Access> tone = {{'o', 0x43, 0xB6},    {'o', 0x42, d & 255},
                                                   {'o', 0x42, d / 256}, {'i', 0x61, 0xA4},
                                                   {'o', 0x61, 0xA7},    {'h', 0, SoundPlayer::kToneHoldMs},
                                                   {'i', 0x61, 0xA7},    {'o', 0x61, 0xA4}};
        expected.insert(expected.end(), tone.begin(), tone.end());
    }
    EXPECT_EQ(f.ports.accesses, expected);
    EXPECT_EQ(f.ports.portB & 3, 0);
}

TEST(SpeakerTest, ModelTurnsTheSweepIntoTones) {
    SoundFixture f;
    RecordingSpeakerOutput output;
    SpeakerPortModel model(output, 0x30);
    SoundPlayer player(f.ctx, SoundDevices{f.wave, f.mci, model, QString()});

    player.sweepSpeaker();
    ASSERT_EQ(output.tones.size(), kSweepDivisors.size());
    for (size_t i = 0; i < kSweepDivisors.size(); ++i) {
        EXPECT_DOUBLE_EQ(output.tones[i].hz, 1193182.0 / kSweepDivisors[i]);
        EXPECT_EQ(output.tones[i].ms, SoundPlayer::kToneHoldMs);
    }
    EXPECT_EQ(model.frequency(), 0);
    EXPECT_EQ(model.portB(), 0x30);

    bool present = false;
    player.checkSpeaker(present);
    EXPECT_TRUE(present);
    output.present = false;
    player.checkSpeaker(present);
    EXPECT_FALSE(present);
}

TEST(SpeakerTest, ModelSoundsOnlyWithGateSpeakerAndSquareWave) {
    RecordingSpeakerOutput output;
    SpeakerPortModel model(output);
    model.writePort(0x43, 0xB6);
    model.writePort(0x42, 0x00);
    EXPECT_EQ(model.frequency(), 0) << "half a divisor";
    model.writePort(0x42, 0x10);
    model.writePort(0x61, 1);
    EXPECT_EQ(model.frequency(), 0) << "gate without speaker";
    model.writePort(0x61, 3);
    EXPECT_DOUBLE_EQ(model.frequency(), 1193182.0 / 0x1000);
    model.hold(7);
    // Low byte only, mode 3.
    model.writePort(0x43, 0x96);
    model.writePort(0x42, 200);
    EXPECT_DOUBLE_EQ(model.frequency(), 1193182.0 / 200);
    // Mode 2 gives clicks, not a tone; a command for channel 0 leaves channel 2 alone.
    model.writePort(0x43, 0xB4);
    model.writePort(0x42, 0x00);
    model.writePort(0x42, 0x10);
    EXPECT_EQ(model.frequency(), 0);
    model.writePort(0x43, 0x36);
    model.hold(5);
    ASSERT_EQ(output.tones.size(), 2u);
    EXPECT_DOUBLE_EQ(output.tones[0].hz, 1193182.0 / 0x1000);
    EXPECT_EQ(output.tones[0].ms, 7);
    EXPECT_EQ(output.tones[1].hz, 0);
}

TEST(SpeakerTest, SynthMakesSquareWavesOfTheQueuedTones) {
    const int rate = 44100;
    ToneSynth synth(rate, 1000);
    EXPECT_TRUE(synth.push(1998.6, 20));
    EXPECT_TRUE(synth.push(0, 10));
    EXPECT_TRUE(synth.push(549.9, 40));
    EXPECT_EQ(synth.queuedMs(), 70);
    // Past the bound a tone is dropped.
    EXPECT_FALSE(synth.push(1000, 931));

    std::vector<int16_t> s(2 * rate / 10, 100); // 100 ms of stereo, not silent: the synth adds to it
    synth.mixInto(s.data(), rate / 10, 2);
    EXPECT_TRUE(synth.idle());
    EXPECT_EQ(s[0], 6100);
    EXPECT_EQ(s[1], 6100);
    EXPECT_NEAR(measuredFrequency(s, 2, rate, 0, 882), 1998.6, 5);
    EXPECT_EQ(s[2 * (882 + 200)], 100) << "the rest";
    EXPECT_NEAR(measuredFrequency(s, 2, rate, 1323, 3087), 549.9, 3);
    EXPECT_EQ(s[2 * 3087], 100) << "after the queue";

    ToneSynth loud(8000, 1000, 20000);
    loud.push(1000, 1);
    std::vector<int16_t> high(8, 30000);
    loud.mixInto(high.data(), 8, 1);
    EXPECT_EQ(high[0], 32767);

    // Filled to the frame, not one frame more.
    ToneSynth full(1000, 1000);
    EXPECT_TRUE(full.push(500, 1000));
    EXPECT_FALSE(full.push(500, 1));
}

TEST(SpeakerTest, EvdevSpeakerWritesToneEventsAndEndsSilent) {
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("event-spkr"));
    QFile(path).open(QIODevice::WriteOnly);
    {
        EvdevSpeaker speaker(path);
        ASSERT_TRUE(speaker.available());
        speaker.queueTone(1998.6, 2);
        speaker.queueTone(0, 1);
        speaker.queueTone(549.9, 2);
        // Returns at once: the first tone sounds, the others wait their turn.
        EXPECT_FALSE(speaker.idle());
        QDeadlineTimer deadline(2000);
        while (!speaker.idle() && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        EXPECT_TRUE(speaker.idle());
        // A queue longer than the bound is cut.
        for (int i = 0; i < 10; ++i)
            speaker.queueTone(440, kMaxQueuedToneMs / 4);
        EXPECT_EQ(speaker.queuedMs(), kMaxQueuedToneMs);
    }
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    std::vector<int> values;
    for (qsizetype at = 0; at + qsizetype(sizeof(input_event)) <= bytes.size(); at += sizeof(input_event)) {
        input_event e;
        memcpy(&e, bytes.constData() + at, sizeof(e));
        EXPECT_EQ(e.type, EV_SND);
        EXPECT_EQ(e.code, SND_TONE);
        values.push_back(e.value);
    }
    // The tones and the silence after them; a speaker let go in the middle of a tone falls silent.
    EXPECT_EQ(values, (std::vector<int>{1999, 0, 550, 0, 440, 0}));
    EXPECT_FALSE(EvdevSpeaker(dir.filePath(QStringLiteral("missing"))).available());
}

} // namespace
