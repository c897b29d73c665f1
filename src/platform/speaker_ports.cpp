#include "platform/speaker_ports.h"

#include "platform/speaker_output.h"

void SpeakerPortModel::writePort(int16_t port, int16_t value) {
    const uint8_t byte = static_cast<uint8_t>(value & 0xFF);
    if (port == kPortB) {
        m_portB = byte;
    } else if (port == kTimerCommand) {
        const int channel = byte >> 6;
        const int access = (byte >> 4) & 3;
        // Access 0 latches the count for reading: nothing the speaker hears.
        if (channel != 2 || access == 0)
            return;
        m_access = access;
        m_mode = (byte >> 1) & 7;
        m_highByteNext = false;
        m_loaded = false;
    } else if (port == kTimerData) {
        if (m_access == 1) {
            m_count = byte;
            m_loaded = true;
        } else if (m_access == 2) {
            m_count = static_cast<uint16_t>(byte << 8);
            m_loaded = true;
        } else if (m_access == 3) {
            if (m_highByteNext) {
                m_count = static_cast<uint16_t>((m_count & 0xFF) | (byte << 8));
                m_loaded = true;
            } else {
                m_count = byte;
            }
            m_highByteNext = !m_highByteNext;
        }
    }
}

int16_t SpeakerPortModel::readPort(int16_t port) {
    if (port == kPortB)
        return m_portB;
    return 0xFF;
}

double SpeakerPortModel::frequency() const {
    const bool gateAndSpeaker = (m_portB & 3) == 3;
    // Modes 3 and 7 are the square wave; the others give clicks, not a tone.
    const bool squareWave = m_mode == 3 || m_mode == 7;
    if (!gateAndSpeaker || !squareWave || !m_loaded)
        return 0;
    return kTimerClock / (m_count == 0 ? 65536.0 : m_count);
}

void SpeakerPortModel::hold(int ms) {
    m_output.queueTone(frequency(), ms);
}

bool SpeakerPortModel::available() {
    return m_output.available();
}
