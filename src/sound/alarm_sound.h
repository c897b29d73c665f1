#pragma once

#include <QString>

// What the tick asks of the sound outputs.
class AlarmSound {
public:
    virtual ~AlarmSound() = default;
    // The alarm sound for a play word and a wave file, with every fallback.
    virtual void playAlarm(const QString& playWord, const QString& soundPath) = 0;
    // Flags: 1 play asynchronously; an empty name (or flag 4) stops the wave.
    virtual void playWaveFile(const QString& name, int flags) = 0;
    // One falling sweep on the internal speaker.
    virtual void sweepSpeaker() = 0;
    // Called on every tick: an alarm whose sound went silent under it sounds again, or says why it cannot.
    virtual void keepRinging() {}
    // The alarm due in a moment: its device opened and its sound decoded now, so it starts at once on its second.
    // Errors are left to the play.
    virtual void readyAlarm(const QString& /*playWord*/, const QString& /*soundPath*/) {}
    // A sound that keepRinging watches: the tick keeps its pace meanwhile.
    virtual bool needsTick() const { return false; }
};
