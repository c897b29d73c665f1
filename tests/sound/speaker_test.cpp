#include "sound_fakes.h"

#include "platform/linux/evdev_speaker.h"
#include "platform/tone_synth.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <gtest/gtest.h>

#include <linux/input.h>

namespace {

// The ports are only ever the model's, and only the sweep writes them: the tones it makes of it are measured where
// they sound, in AudioOutputTest.
TEST(SpeakerTest, ModelLeavesPortBAsItWasAndIsThereWhileItsOutputIs) {
    SoundFixture f;
    RecordingSpeakerOutput output;
    SpeakerPortModel model(output, 0x30);
    SoundPlayer player(f.ctx, SoundDevices{f.wave, f.mci, model, QString()});
    player.sweepSpeaker();
    EXPECT_EQ(std::tuple(output.tones.size(), model.portB()), std::tuple(kSweepDivisors.size(), 0x30));
    bool present = false;
    player.checkSpeaker(present);
    EXPECT_TRUE(present);
    output.present = false;
    player.checkSpeaker(present);
    EXPECT_FALSE(present);
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
    EXPECT_EQ(std::pair(s[0], s[1]), (std::pair<int16_t, int16_t>(6100, 6100)));
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
    const QByteArray bytes = readBytes(path);
    std::vector<int> values;
    for (qsizetype at = 0; at + qsizetype(sizeof(input_event)) <= bytes.size(); at += sizeof(input_event)) {
        input_event e;
        memcpy(&e, bytes.constData() + at, sizeof(e));
        EXPECT_EQ(std::pair(int(e.type), int(e.code)), std::pair(EV_SND, SND_TONE));
        values.push_back(e.value);
    }
    // The tones and the silence after them; a speaker let go in the middle of a tone falls silent.
    EXPECT_EQ(values, (std::vector<int>{1999, 0, 550, 0, 440, 0}));
    EXPECT_FALSE(EvdevSpeaker(dir.filePath(QStringLiteral("missing"))).available());
}

} // namespace
