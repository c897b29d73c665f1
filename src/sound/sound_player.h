#pragma once

#include "platform/sound_devices.h"
#include "sound/alarm_sound.h"

#include <QString>
#include <cstdint>

class Context;

// The procedures of sound output: the alarm sound with its fallbacks (wave, midi, internal speaker),
// the speaker sweep, and the stop of the tray.
class SoundPlayer : public AlarmSound {
public:
    // The hold of one tone of the sweep: 30 tones make 600 ms, within one 800 ms tick.
    static constexpr int kToneHoldMs = 20;

    // Only keeps the references, so the context may still be under construction.
    SoundPlayer(Context& ctx, const SoundDevices& devices) : m_ctx(ctx), m_devices(devices) {}

    void playAlarm(const QString& playWord, const QString& soundPath) override;
    // Flags: 1 play asynchronously (every play is); 4, or the empty name, stops the wave.
    void playWaveFile(const QString& name, int flags) override;
    // Queues one falling sweep on the speaker's ports and returns; the sweep sounds meanwhile.
    void sweepSpeaker() override;
    // A wave whose audio device was lost while it sounded plays again on a device opened anew; when none
    // opens, the fallbacks and the box follow as for an alarm that cannot play, with that alarm's time.
    void keepRinging() override;
    void readyAlarm(const QString& playWord, const QString& soundPath) override;
    bool needsTick() const override;

    void reportSoundError(int16_t canPlay);
    void playMidi();
    void playOnSpeaker(const QString& playWord);
    void checkSpeaker(bool& present);
    uint32_t sendCommand(const QString& command);

    // The tray's Stop (and its left click): ends the wave, the midi, and the repeating sweeps after the
    // one that is sounding.
    void stopSounds();

private:
    void playWave(const QString& playWord, const QString& soundPath, const QString& alarmTime);
    void reportSoundError(int16_t canPlay, const QString& alarmTime);
    void playMidi(const QString& alarmTime);
    void speakerWarning();

    Context& m_ctx;
    SoundDevices m_devices;
    // The last wave an alarm played.
    struct {
        QString playWord, soundPath, alarmTime;
    } m_ringing;
};
