#include "platform/midi_output.h"

#include <QFileInfo>
#include <QStandardPaths>

QString fixedMidiCopyPath() {
    QString base = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (base.isEmpty() || !QFileInfo(base).isDir())
        base = QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation);
    return base + QStringLiteral("/bellwick/air.mid");
}
