#define SDL_MAIN_HANDLED
#include "platform/linux/sdl_wave_output.h"

#include "platform/linux/sdl_audio.h"

#include "platform/record_file.h"

#include <QFileInfo>
#include <SDL_mixer.h>

namespace {
void stamp(const QString& path, qint64& size, qint64& modified) {
    const QFileInfo info(path);
    size = info.size();
    modified = info.lastModified().toMSecsSinceEpoch();
}
} // namespace

SdlWaveOutput::~SdlWaveOutput() {
    stop();
    dropPrepared();
}

void SdlWaveOutput::dropPrepared() {
    if (m_prepared.chunk)
        Mix_FreeChunk(m_prepared.chunk);
    m_prepared = {};
}

void SdlWaveOutput::prepare(const QString& path) {
    dropPrepared();
    // A device lost under a sounding wave is opened anew by the play, which rings that wave again.
    if (m_audio.lost() || !m_audio.open())
        return;
    QByteArray bytes;
    FileError error;
    if (!record_file::readBytes(path, bytes, error))
        return;
    Mix_Chunk* chunk = Mix_LoadWAV_RW(SDL_RWFromConstMem(bytes.constData(), int(bytes.size())), 1);
    if (!chunk)
        return;
    m_prepared.chunk = chunk;
    m_prepared.path = path;
    m_prepared.generation = m_audio.generation();
    stamp(path, m_prepared.size, m_prepared.modified);
}

Mix_Chunk* SdlWaveOutput::takePrepared(const QString& path) {
    Mix_Chunk* chunk = nullptr;
    qint64 size = -1;
    qint64 modified = 0;
    stamp(path, size, modified);
    if (m_prepared.chunk && m_prepared.path == path && m_prepared.generation == m_audio.generation() &&
        m_prepared.size == size && m_prepared.modified == modified) {
        chunk = m_prepared.chunk;
        m_prepared = {};
    }
    dropPrepared();
    return chunk;
}

bool SdlWaveOutput::sounding() {
    return m_chunk && m_audio.isOpen() && Mix_Playing(SdlAudio::kWaveChannel);
}

bool SdlWaveOutput::play(const QString& path, int times) {
    // A wave of a lost device goes with it: the device is opened anew.
    if (m_audio.lost())
        stop();
    if (!m_audio.open()) {
        m_error = m_audio.error();
        return false;
    }
    Mix_Chunk* chunk = takePrepared(path);
    if (!chunk) {
        // Read here, not by the mixer: only a regular file is opened, so a pipe under the song's name is refused
        // at once instead of holding the program up, and a folder is no song either.
        QByteArray bytes;
        FileError error;
        if (!record_file::readBytes(path, bytes, error)) {
            m_error = QStringLiteral("Not a file that can be read: ") + path;
            return false;
        }
        chunk = Mix_LoadWAV_RW(SDL_RWFromConstMem(bytes.constData(), int(bytes.size())), 1);
        if (!chunk) {
            m_error = QString::fromUtf8(Mix_GetError());
            return false;
        }
    }
    // A file cut short after its header plays next to nothing: an alarm in silence. It cannot be played.
    const Uint32 twentiethOfASecond = Uint32(m_audio.rate() * m_audio.channels() * 2 / 20);
    if (chunk->alen < twentiethOfASecond) {
        m_error = QStringLiteral("Too short to be heard: ") + path;
        Mix_FreeChunk(chunk);
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
    if (m_audio.isOpen())
        Mix_HaltChannel(SdlAudio::kWaveChannel);
    Mix_FreeChunk(m_chunk);
    m_chunk = nullptr;
}

bool SdlWaveOutput::fellSilent() {
    // The mixer goes on playing into a lost device, so the wave counts as playing until its end.
    return m_chunk && m_audio.lost() && Mix_Playing(SdlAudio::kWaveChannel);
}
