#pragma once

#include <QDeadlineTimer>
#include <QString>
#include <cstdint>

// The audio device of SDL2_mixer, opened on first use. A device that cannot be opened leaves the
// outputs unable to play; a request a second later tries again, and so does the first request after the
// device was lost (a sound server that went away). One per process: the mixer is global.
class SdlAudio {
public:
    static constexpr int kWaveChannel = 0;

    SdlAudio() = default;
    SdlAudio(const SdlAudio&) = delete;
    SdlAudio& operator=(const SdlAudio&) = delete;
    ~SdlAudio();

    // True when a working device is open, opening it, or opening it anew when it was lost, if need be.
    bool open();
    bool isOpen() const { return m_open; }
    // The open device stopped working: SDL found its sound server or hardware gone. Only reads a flag.
    bool lost() const;
    // Counts the opens, so users of the device see when it was opened anew.
    int generation() const { return m_generation; }
    // The device's sample rate and channels; 16-bit signed samples.
    int rate() const { return m_rate; }
    int channels() const { return m_channels; }
    // Why the last open failed.
    const QString& error() const { return m_error; }

private:
    bool openDevice();
    void close();

    bool m_open = false;
    uint32_t m_device = 0;
    // Each tone of a sweep asks for the device: without a server they would all try to reach it.
    QDeadlineTimer m_retry;
    int m_generation = 0;
    int m_rate = 0;
    int m_channels = 0;
    QString m_error;
};
