#define SDL_MAIN_HANDLED
#include "platform/linux/sdl_audio.h"

#include <QFileInfo>
#include <SDL.h>
#include <SDL_mixer.h>

namespace {

// General MIDI soundfonts of the distribution, the small one first.
void chooseSoundFont() {
    if (!qEnvironmentVariableIsEmpty("SDL_SOUNDFONTS"))
        return;
    for (const char* path : {"/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/sounds/sf2/FluidR3_GM.sf2",
                             "/usr/share/sounds/sf2/default-GM.sf2"}) {
        if (QFileInfo(QString::fromLatin1(path)).isFile()) {
            Mix_SetSoundFonts(path);
            return;
        }
    }
}

} // namespace

SdlAudio::~SdlAudio() {
    close();
}

void SdlAudio::close() {
    if (!m_open)
        return;
    Mix_HaltChannel(-1);
    Mix_HaltMusic();
    Mix_SetPostMix(nullptr, nullptr);
    Mix_CloseAudio();
    Mix_Quit();
    // The whole subsystem goes: a sound server's connection is made again only when it starts anew.
    SDL_QuitSubSystem(SDL_INIT_AUDIO);
    m_open = false;
    m_device = 0;
}

bool SdlAudio::lost() const {
    // No device found playing after the open: it failed before it was looked for (its first write, on a loaded
    // machine), and is as lost as one that fails later.
    return m_open && (m_device == 0 || SDL_GetAudioDeviceStatus(m_device) == SDL_AUDIO_STOPPED);
}

bool SdlAudio::open() {
    if (m_open && !lost())
        return true;
    close();
    if (!m_retry.hasExpired())
        return false;
    if (!openDevice()) {
        m_retry.setRemainingTime(1000);
        return false;
    }
    m_open = true;
    ++m_generation;
    return true;
}

bool SdlAudio::openDevice() {
    // The program handles its own signals.
    SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
    SDL_SetHint(SDL_HINT_APP_NAME, "Bellwick");
    if (SDL_InitSubSystem(SDL_INIT_AUDIO) != 0) {
        m_error = QString::fromUtf8(SDL_GetError());
        return false;
    }
    chooseSoundFont();
    // Without the midi decoder only the midi fails; the waves still play.
    Mix_Init(MIX_INIT_MID);
    if (Mix_OpenAudio(44100, AUDIO_S16SYS, 2, 1024) != 0) {
        m_error = QString::fromUtf8(Mix_GetError());
        Mix_Quit();
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        return false;
    }
    Uint16 format = 0;
    if (Mix_QuerySpec(&m_rate, &format, &m_channels) == 0 || format != AUDIO_S16SYS) {
        m_error = QStringLiteral("unexpected audio format");
        Mix_CloseAudio();
        Mix_Quit();
        SDL_QuitSubSystem(SDL_INIT_AUDIO);
        return false;
    }
    // Waves go to their own channel, so a stop silences them and nothing else.
    Mix_ReserveChannels(1);
    // The mixer keeps its device's id to itself. It is the one device this process has open, and it plays
    // until SDL finds it gone.
    for (SDL_AudioDeviceID id = 2; id < 32 && m_device == 0; ++id) {
        if (SDL_GetAudioDeviceStatus(id) != SDL_AUDIO_STOPPED)
            m_device = id;
    }
    return true;
}
