#pragma once

#include "fakes.h"
#include "platform/mci_commands.h"
#include "platform/midi_output.h"
#include "platform/sound_devices.h"
#include "platform/speaker_output.h"
#include "platform/speaker_ports.h"
#include "platform/wave_output.h"
#include "sound/sound_player.h"

#include <QFileInfo>
#include <vector>

// Each fake writes what it was asked into one shared log, so a test sees the order across outputs.
struct FakeWaveOutput : WaveOutput {
    QStringList& log;
    bool playable = true;
    explicit FakeWaveOutput(QStringList& log) : log(log) {}
    bool play(const QString& path, int times) override {
        log.append(QStringLiteral("wave %1 x%2").arg(QFileInfo(path).fileName()).arg(times));
        return playable;
    }
    void stop() override { log.append(QStringLiteral("wave stop")); }
    bool silent = false;
    bool fellSilent() override { return silent; }
};

struct FakeMci : MciDevice {
    QStringList& log;
    QString midiCopyPath;
    uint32_t playResult = 0;
    FakeMci(QStringList& log, QString midiCopyPath) : log(log), midiCopyPath(std::move(midiCopyPath)) {}
    uint32_t sendCommand(const QString& command) override {
        log.append(QStringLiteral("mci ") + QString(command).replace(midiCopyPath, QStringLiteral("AIR")));
        return command.startsWith(QLatin1String("play")) ? playResult : 0;
    }
};

struct FakeSequencer : MidiSequencer {
    QStringList log;
    bool opens = true;
    bool plays = true;
    bool open(const QString& path) override {
        log.append(QStringLiteral("open ") + path);
        return opens;
    }
    bool play() override {
        log.append(QStringLiteral("play"));
        return plays;
    }
    void close() override { log.append(QStringLiteral("close")); }
};

struct RecordedTone {
    double hz;
    int ms;
};
struct RecordingSpeakerOutput : SpeakerOutput {
    std::vector<RecordedTone> tones;
    bool present = true;
    bool available() override { return present; }
    void queueTone(double hz, int ms) override { tones.push_back({hz, ms}); }
};

// Notices that write into the shared log, with the state of the tray at the time of a box.
struct LoggingNotices : RecordingNotices {
    QStringList& log;
    const FrontState* front = nullptr;
    explicit LoggingNotices(QStringList& log) : log(log) {}
    void answerOk(const QString& text) override { log.append(QStringLiteral("warn ") + text); }
    void systemModalBox(const QString& text) override {
        log.append(QStringLiteral("box %1 tray=%2").arg(text).arg(front->trayEnabled));
    }
};

// A SoundPlayer over fakes, wired as the program wires it: the context's sound is the SoundPlayer.
struct SoundFixture {
    QTemporaryDir dir;
    QStringList log;
    FakeClock clock;
    LoggingNotices notices{log};
    FakeWaveOutput wave{log};
    FakeMci mci{log, dir.path() + QStringLiteral("/run/air.mid")};
    RecordingSpeakerOutput speaker;
    SpeakerPortModel ports{speaker};
    SoundPlayer player{ctx, SoundDevices{wave, mci, ports, dir.path() + QStringLiteral("/run/air.mid")}};
    Context ctx{clock, notices, player};
    WindowlessAlarmSet alarmSet{ctx};

    SoundFixture() {
        ctx.setStartValues(dir.path());
        ctx.alarmSetUi = &alarmSet;
        ctx.tick.nextAlarm = QStringLiteral("07:30:00");
        notices.front = &ctx.front;
        ctx.setTickTimerEnabled = [this](bool on) {
            log.append(on ? QStringLiteral("timer on") : QStringLiteral("timer off"));
        };
    }
    size_t tones() const { return speaker.tones.size(); }
};

// The divisors of the sweep, 2000 Hz down to 550 Hz in steps of 50: 1193280 over f in single precision,
// rounded half to even.
inline const std::vector<int> kSweepDivisors = {597,  612,  628,  645,  663,  682,  702,  723,  746,  770,
                                                796,  823,  852,  884,  918,  955,  994,  1038, 1085, 1136,
                                                1193, 1256, 1326, 1404, 1492, 1591, 1705, 1836, 1989, 2170};

// The frequency the rising edges of one channel make in frames [from, to), or 0 with fewer than two edges.
inline double measuredFrequency(const std::vector<int16_t>& s, int channels, int rate, size_t from, size_t to) {
    long first = -1, last = -1, edges = 0;
    for (size_t i = from + 1; i < to; ++i) {
        if (s[(i - 1) * channels] <= 0 && s[i * channels] > 0) {
            first = first < 0 ? long(i) : first;
            last = long(i);
            ++edges;
        }
    }
    return edges < 2 ? 0 : (edges - 1) * double(rate) / double(last - first);
}
