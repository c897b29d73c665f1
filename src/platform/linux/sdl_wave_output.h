#pragma once

#include "platform/wave_output.h"

class SdlAudio;
struct Mix_Chunk;

// Wave files on the mixer's wave channel.
class SdlWaveOutput : public WaveOutput {
public:
    explicit SdlWaveOutput(SdlAudio& audio) : m_audio(audio) {}
    SdlWaveOutput(const SdlWaveOutput&) = delete;
    SdlWaveOutput& operator=(const SdlWaveOutput&) = delete;
    ~SdlWaveOutput() override;

    bool play(const QString& path, int times) override;
    void stop() override;
    bool fellSilent() override;
    void prepare(const QString& path) override;
    bool sounding() override;

    // Why the last play failed.
    const QString& error() const { return m_error; }

private:
    SdlAudio& m_audio;
    Mix_Chunk* m_chunk = nullptr;
    // The wave decoded ahead of its play, while its file and its device are unchanged.
    struct Prepared {
        Mix_Chunk* chunk = nullptr;
        QString path;
        qint64 size = -1;
        qint64 modified = 0;
        int generation = 0;
    } m_prepared;
    void dropPrepared();
    Mix_Chunk* takePrepared(const QString& path);
    QString m_error;
};
