#pragma once

#include <cstdint>

class SpeakerOutput;

// The PC speaker's ports: channel 2 of the timer chip (data 0x42, mode/command 0x43) and port B (0x61),
// whose bits 0 and 1 gate the timer and the speaker. Word-wide operations, also for the 8-bit registers.
class SpeakerPorts {
public:
    virtual ~SpeakerPorts() = default;
    virtual void writePort(int16_t port, int16_t value) = 0;
    virtual int16_t readPort(int16_t port) = 0;
    // Leaves the speaker as it is for ms: a tone when it is on, a rest when it is off.
    virtual void hold(int ms) = 0;
    // The ports lead to something that can sound.
    virtual bool available() = 0;
};

// A software model of channel 2 and port B. The divisor and the gate turn into tones on an output:
// while bits 0 and 1 of port B are set and channel 2 runs as a square wave, a hold sounds the timer
// clock divided by the divisor.
class SpeakerPortModel : public SpeakerPorts {
public:
    static constexpr int16_t kTimerData = 0x42;
    static constexpr int16_t kTimerCommand = 0x43;
    static constexpr int16_t kPortB = 0x61;
    // The chip's input clock, in Hz.
    static constexpr double kTimerClock = 1193182.0;

    explicit SpeakerPortModel(SpeakerOutput& output, uint8_t portB = 0) : m_output(output), m_portB(portB) {}

    void writePort(int16_t port, int16_t value) override;
    int16_t readPort(int16_t port) override;
    void hold(int ms) override;
    bool available() override;

    // What the speaker does now: the frequency it sounds, 0 when it is silent.
    double frequency() const;
    uint8_t portB() const { return m_portB; }

private:
    SpeakerOutput& m_output;
    uint8_t m_portB;
    int m_access = 0; // 1 low byte only, 2 high byte only, 3 low then high
    int m_mode = 0;
    bool m_highByteNext = false;
    bool m_loaded = false;
    uint16_t m_count = 0;
};
