#pragma once

#include "platform/speaker_output.h"

#include <cstdint>
#include <memory>
#include <mutex>

class SdlAudio;
class ToneSynth;

// The speaker's tones as square waves on the audio output, mixed after everything else that plays.
class SquareWaveSpeaker : public SpeakerOutput {
public:
    explicit SquareWaveSpeaker(SdlAudio& audio);
    SquareWaveSpeaker(const SquareWaveSpeaker&) = delete;
    SquareWaveSpeaker& operator=(const SquareWaveSpeaker&) = delete;
    ~SquareWaveSpeaker() override;

    // Opens the audio device if need be, or anew when it was lost.
    bool available() override;
    void queueTone(double hz, int ms) override;

    // Milliseconds of tones still to sound.
    int queuedMs();

private:
    static void mix(void* self, uint8_t* stream, int len);

    SdlAudio& m_audio;
    // Shared with the audio device's thread.
    std::mutex m_mutex;
    std::unique_ptr<ToneSynth> m_synth;
    int m_channels = 0;
    int m_generation = 0;
};
