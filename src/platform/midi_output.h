#pragma once

#include <QString>

// One midi sequencer: a file is loaded, played once, and closed.
class MidiSequencer {
public:
    virtual ~MidiSequencer() = default;
    // False when no device can be opened or the file cannot be decoded.
    virtual bool open(const QString& path) = 0;
    // Plays the loaded file once from its start and returns at once.
    virtual bool play() = 0;
    // Stops the music and lets the file go.
    virtual void close() = 0;
};

// No midi device at all.
class NullMidiSequencer : public MidiSequencer {
public:
    bool open(const QString&) override { return false; }
    bool play() override { return false; }
    void close() override {}
};

// The fixed place of the copy of air.mid that the midi device opens, in runtime_folder::path(); empty when
// this user has no private folder.
QString fixedMidiCopyPath();

// Whether these bytes are a midi file a player can sound: a standard midi file ("MThd" with at least one track
// and a first track chunk that fits in the file), bare or wrapped in a RIFF "RMID" file.
bool isPlayableMidi(const QByteArray& bytes);
