#include "platform/midi_output.h"

#include "platform/runtime_folder.h"

QString fixedMidiCopyPath() {
    const QString folder = runtime_folder::path();
    return folder.isEmpty() ? QString() : folder + QStringLiteral("air.mid");
}

namespace {
quint32 bigEndian32(const QByteArray& b, qsizetype at) {
    return (quint32(uchar(b[at])) << 24) | (quint32(uchar(b[at + 1])) << 16) | (quint32(uchar(b[at + 2])) << 8) |
           quint32(uchar(b[at + 3]));
}
quint32 littleEndian32(const QByteArray& b, qsizetype at) {
    return quint32(uchar(b[at])) | (quint32(uchar(b[at + 1])) << 8) | (quint32(uchar(b[at + 2])) << 16) |
           (quint32(uchar(b[at + 3])) << 24);
}

bool isStandardMidi(const QByteArray& b) {
    if (b.size() < 14 || !b.startsWith("MThd"))
        return false;
    const quint32 headerLength = bigEndian32(b, 4);
    const int tracks = (uchar(b[10]) << 8) | uchar(b[11]);
    if (headerLength < 6 || tracks < 1 || headerLength > quint32(b.size() - 8))
        return false;
    const qsizetype track = 8 + qsizetype(headerLength);
    if (b.size() < track + 8 || b.mid(track, 4) != "MTrk")
        return false;
    const quint32 trackLength = bigEndian32(b, track + 4);
    return trackLength > 0 && trackLength <= quint32(b.size() - track - 8);
}
} // namespace

bool isPlayableMidi(const QByteArray& bytes) {
    if (!bytes.startsWith("RIFF"))
        return isStandardMidi(bytes);
    if (bytes.size() < 12 || bytes.mid(8, 4) != "RMID")
        return false;
    // The chunks of the RIFF file, looking for the one that holds the standard midi file.
    qsizetype at = 12;
    while (at + 8 <= bytes.size()) {
        const quint32 length = littleEndian32(bytes, at + 4);
        if (length > quint32(bytes.size() - at - 8))
            return false;
        if (bytes.mid(at, 4) == "data")
            return isStandardMidi(bytes.mid(at + 8, length));
        at += 8 + qsizetype(length) + (length & 1);
    }
    return false;
}
