#define SDL_MAIN_HANDLED
#include "platform/linux/square_wave_speaker.h"

#include "platform/linux/sdl_audio.h"
#include "platform/tone_synth.h"

#include <SDL_mixer.h>

SquareWaveSpeaker::SquareWaveSpeaker(SdlAudio& audio) : m_audio(audio) {}

SquareWaveSpeaker::~SquareWaveSpeaker() {
    if (m_synth)
        Mix_SetPostMix(nullptr, nullptr);
}

bool SquareWaveSpeaker::available() {
    if (!m_audio.open())
        return false;
    if (m_synth && m_generation == m_audio.generation())
        return true;
    // A device opened anew knows nothing of our mixing, and may have other channels.
    m_generation = m_audio.generation();
    m_channels = m_audio.channels();
    m_synth = std::make_unique<ToneSynth>(m_audio.rate(), kMaxQueuedToneMs);
    Mix_SetPostMix(&SquareWaveSpeaker::mix, this);
    return true;
}

void SquareWaveSpeaker::queueTone(double hz, int ms) {
    if (!available())
        return;
    std::lock_guard<std::mutex> lock(m_mutex);
    m_synth->push(hz, ms);
}

int SquareWaveSpeaker::queuedMs() {
    if (!m_synth)
        return 0;
    std::lock_guard<std::mutex> lock(m_mutex);
    return m_synth->queuedMs();
}

void SquareWaveSpeaker::mix(void* self, uint8_t* stream, int len) {
    auto* speaker = static_cast<SquareWaveSpeaker*>(self);
    const int frames = len / static_cast<int>(sizeof(int16_t)) / speaker->m_channels;
    std::lock_guard<std::mutex> lock(speaker->m_mutex);
    speaker->m_synth->mixInto(reinterpret_cast<int16_t*>(stream), frames, speaker->m_channels);
}
