#pragma once

#include <QString>

// The audio device of SDL2_mixer, opened on first use. A device that cannot be opened leaves the
// outputs unable to play; the next request tries again. One per process: the mixer is global.
class SdlAudio {
public:
    static constexpr int kWaveChannel = 0;

    SdlAudio() = default;
    SdlAudio(const SdlAudio&) = delete;
    SdlAudio& operator=(const SdlAudio&) = delete;
    ~SdlAudio();

    // True when the device is open, opening it if need be.
    bool open();
    bool isOpen() const { return m_open; }
    // The device's sample rate and channels; 16-bit signed samples.
    int rate() const { return m_rate; }
    int channels() const { return m_channels; }
    // Why the last open failed.
    const QString& error() const { return m_error; }

private:
    bool m_open = false;
    int m_rate = 0;
    int m_channels = 0;
    QString m_error;
};
