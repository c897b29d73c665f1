#pragma once

#include "platform/sound_devices.h"
#include "sound/alarm_sound.h"

#include <QString>
#include <cstdint>

class Context;

// The procedures of sound output: the alarm sound with its fallbacks (wave, midi, internal speaker),
// the speaker sweep, and the stop of the tray.
class Form9 : public AlarmSound {
public:
    // The hold of one tone of the sweep: 30 tones make 600 ms, within one 800 ms tick.
    static constexpr int kToneHoldMs = 20;

    // Only keeps the references, so the context may still be under construction.
    Form9(Context& ctx, const SoundDevices& devices) : m_ctx(ctx), m_devices(devices) {}

    void PlaySound(const QString& strTimes, const QString& sSoundName) override;
    // Flags: 1 play asynchronously (every play is); 4, or the empty name, stops the wave.
    void sndPlaySoundA(const QString& name, int flags) override;
    // Queues one falling sweep on the speaker's ports and returns; the sweep sounds meanwhile.
    void InternalSpeaker() override;

    void eErrorSong(int16_t iCanPlay);
    void MidiSound();
    void PlayTimes(const QString& strTimes);
    void CheckDllFile(bool& blnPresent);
    uint32_t mciSendStringA(const QString& command);

    // The tray's Stop (and its left click): ends the wave, the midi, and the repeating sweeps after the
    // one that is sounding.
    void mStop();

private:
    void speakerWarning();

    Context& m_ctx;
    SoundDevices m_devices;
};
