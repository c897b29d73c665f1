#pragma once

#include <cstdint>
#include <deque>

// Square waves for a queue of tones, mixed into interleaved 16-bit samples as an audio device asks
// for them. Not thread safe: the owner guards it.
class ToneSynth {
public:
    ToneSynth(int rate, int maxQueuedMs, int16_t amplitude = 6000);

    // A tone of hz (0: a rest) for ms after the queued ones; false when the queue is full and it is dropped.
    bool push(double hz, int ms);
    // Adds the next frames of the queue to the samples; past the queue's end they are left as they are.
    void mixInto(int16_t* samples, int frames, int channels);
    int queuedMs() const;
    bool idle() const { return m_tones.empty(); }

private:
    struct Tone {
        double hz;
        int64_t frames;
    };
    std::deque<Tone> m_tones;
    int m_rate;
    int64_t m_maxFrames;
    int64_t m_queuedFrames = 0;
    int16_t m_amplitude;
    double m_phase = 0;
};
