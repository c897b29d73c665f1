#pragma once

#include "platform/midi_output.h"

#include <QByteArray>

class SdlAudio;
typedef struct _Mix_Music Mix_Music;

// Midi files as the mixer's music, through FluidSynth and a General MIDI soundfont.
class SdlMidiSequencer : public MidiSequencer {
public:
    explicit SdlMidiSequencer(SdlAudio& audio) : m_audio(audio) {}
    SdlMidiSequencer(const SdlMidiSequencer&) = delete;
    SdlMidiSequencer& operator=(const SdlMidiSequencer&) = delete;
    ~SdlMidiSequencer() override;

    bool open(const QString& path) override;
    bool play() override;
    void close() override;

    const QString& error() const { return m_error; }

private:
    SdlAudio& m_audio;
    Mix_Music* m_music = nullptr;
    // The loaded file, which the player may read from while it plays.
    QByteArray m_bytes;
    QString m_error;
};
