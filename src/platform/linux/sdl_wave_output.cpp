#define SDL_MAIN_HANDLED
#include "platform/linux/sdl_wave_output.h"

#include "platform/linux/sdl_audio.h"

#include <QFile>
#include <SDL_mixer.h>

SdlWaveOutput::~SdlWaveOutput() {
    stop();
}

bool SdlWaveOutput::play(const QString& path, int times) {
    if (!m_audio.open()) {
        m_error = m_audio.error();
        return false;
    }
    Mix_Chunk* chunk = Mix_LoadWAV(QFile::encodeName(path).constData());
    if (!chunk) {
        m_error = QString::fromUtf8(Mix_GetError());
        return false;
    }
    stop();
    if (Mix_PlayChannel(SdlAudio::kWaveChannel, chunk, times <= 0 ? -1 : times - 1) < 0) {
        m_error = QString::fromUtf8(Mix_GetError());
        Mix_FreeChunk(chunk);
        return false;
    }
    m_chunk = chunk;
    return true;
}

void SdlWaveOutput::stop() {
    if (!m_chunk)
        return;
    Mix_HaltChannel(SdlAudio::kWaveChannel);
    Mix_FreeChunk(m_chunk);
    m_chunk = nullptr;
}
