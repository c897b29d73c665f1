#define SDL_MAIN_HANDLED
#include "platform/linux/sdl_midi_sequencer.h"

#include "platform/linux/sdl_audio.h"
#include "platform/record_file.h"

#include <SDL_mixer.h>

SdlMidiSequencer::~SdlMidiSequencer() {
    close();
}

bool SdlMidiSequencer::open(const QString& path) {
    close();
    if (!m_audio.open()) {
        m_error = m_audio.error();
        return false;
    }
    // The player takes a file that is no midi at all and then plays silence without a word: look first.
    // The bytes are read once, from a regular file only, and the player decodes those same bytes.
    FileError error;
    if (!record_file::readBytes(path, m_bytes, error) || !isPlayableMidi(m_bytes)) {
        m_bytes.clear();
        m_error = QStringLiteral("Not a midi file that can be played: ") + path;
        return false;
    }
    m_music = Mix_LoadMUS_RW(SDL_RWFromConstMem(m_bytes.constData(), int(m_bytes.size())), 1);
    if (!m_music) {
        m_bytes.clear();
        m_error = QString::fromUtf8(Mix_GetError());
        return false;
    }
    return true;
}

bool SdlMidiSequencer::play() {
    if (!m_music)
        return false;
    if (Mix_PlayMusic(m_music, 0) != 0) {
        m_error = QString::fromUtf8(Mix_GetError());
        return false;
    }
    return true;
}

void SdlMidiSequencer::close() {
    if (!m_music)
        return;
    if (m_audio.isOpen())
        Mix_HaltMusic();
    Mix_FreeMusic(m_music);
    m_music = nullptr;
    m_bytes.clear();
}
