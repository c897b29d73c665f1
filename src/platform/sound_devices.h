#pragma once

#include <QString>

class MciDevice;
class SpeakerPorts;
class WaveOutput;

// The outputs the sound procedures play through.
struct SoundDevices {
    WaveOutput& wave;
    MciDevice& mci;
    SpeakerPorts& ports;
    // The fixed copy of air.mid that the midi device opens.
    QString midiCopyPath;
};
