#pragma once

#include "platform/linux/evdev_speaker.h"
#include "platform/linux/sdl_audio.h"
#include "platform/linux/sdl_midi_sequencer.h"
#include "platform/linux/sdl_wave_output.h"
#include "platform/linux/square_wave_speaker.h"
#include "platform/mci_commands.h"
#include "platform/sound_devices.h"
#include "platform/speaker_output.h"
#include "platform/speaker_ports.h"

// The sound outputs of a Linux desktop: waves and midi through SDL2_mixer, the speaker's ports as a
// model that sounds on the PC speaker device when it can be written, else as square waves on the audio
// output. The audio device opens on first use. One per process.
class LinuxSoundDevices {
public:
    LinuxSoundDevices() = default;
    LinuxSoundDevices(const LinuxSoundDevices&) = delete;
    LinuxSoundDevices& operator=(const LinuxSoundDevices&) = delete;

    SoundDevices devices() { return {m_wave, m_mci, m_ports, fixedMidiCopyPath()}; }

    SdlAudio& audio() { return m_audio; }

private:
    SdlAudio m_audio;
    SdlWaveOutput m_wave{m_audio};
    SdlMidiSequencer m_midi{m_audio};
    MciSequencerCommands m_mci{m_midi};
    EvdevSpeaker m_evdev;
    SquareWaveSpeaker m_square{m_audio};
    FirstAvailableSpeaker m_speaker{m_evdev, m_square};
    SpeakerPortModel m_ports{m_speaker};
};
