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

    // Why the last play failed.
    const QString& error() const { return m_error; }

private:
    SdlAudio& m_audio;
    Mix_Chunk* m_chunk = nullptr;
    QString m_error;
};
