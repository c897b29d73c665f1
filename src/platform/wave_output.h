#pragma once

#include <QString>

// The one wave slot of the audio output: a new wave replaces the one that is sounding.
class WaveOutput {
public:
    virtual ~WaveOutput() = default;
    // Starts the wave and returns at once; times 0 loops until stopped. False when it cannot be played:
    // no audio device, or a file that cannot be decoded.
    virtual bool play(const QString& path, int times) = 0;
    virtual void stop() = 0;
    // A wave still meant to sound whose device was lost under it: the alarm went silent.
    virtual bool fellSilent() = 0;
    // Opens the device and decodes the wave for a play of the same file that comes soon. Failing, does nothing.
    virtual void prepare(const QString& /*path*/) {}
    // A wave is sounding.
    virtual bool sounding() { return false; }
};

// No audio output at all.
class NullWaveOutput : public WaveOutput {
public:
    bool play(const QString&, int) override { return false; }
    void stop() override {}
    bool fellSilent() override { return false; }
};
