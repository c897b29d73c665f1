#include "platform/tone_synth.h"

#include <algorithm>
#include <cmath>

ToneSynth::ToneSynth(int rate, int maxQueuedMs, int16_t amplitude)
    : m_rate(rate), m_maxFrames(static_cast<int64_t>(maxQueuedMs) * rate / 1000), m_amplitude(amplitude) {}

bool ToneSynth::push(double hz, int ms) {
    const int64_t frames = std::llround(static_cast<double>(ms) * m_rate / 1000.0);
    if (frames <= 0)
        return true;
    if (m_queuedFrames + frames > m_maxFrames)
        return false;
    if (m_tones.empty())
        m_phase = 0;
    m_tones.push_back({hz, frames});
    m_queuedFrames += frames;
    return true;
}

void ToneSynth::mixInto(int16_t* samples, int frames, int channels) {
    for (int i = 0; i < frames && !m_tones.empty(); ++i) {
        Tone& tone = m_tones.front();
        int value = 0;
        if (tone.hz > 0) {
            value = m_phase < 0.5 ? m_amplitude : -m_amplitude;
            m_phase += tone.hz / m_rate;
            m_phase -= std::floor(m_phase);
        }
        for (int c = 0; c < channels; ++c) {
            int16_t& s = samples[i * channels + c];
            s = static_cast<int16_t>(std::clamp(s + value, -32768, 32767));
        }
        --m_queuedFrames;
        if (--tone.frames == 0)
            m_tones.pop_front();
    }
}

int ToneSynth::queuedMs() const {
    return static_cast<int>(m_queuedFrames * 1000 / m_rate);
}
