#include "platform/data_folder.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

namespace data_folder {

QString programFolder() {
    QString base = qEnvironmentVariable("XDG_DATA_HOME");
    if (base.isEmpty())
        base = QDir::homePath() + QStringLiteral("/.local/share");
    return base + QStringLiteral("/bellwick/");
}

QString bundledFolder() {
    const QString appDir = QCoreApplication::applicationDirPath();
    for (const QString& candidate :
         {appDir + QStringLiteral("/share"), appDir + QStringLiteral("/../share/bellwick"),
          QStringLiteral("/usr/share/bellwick"), QStringLiteral("/usr/local/share/bellwick")}) {
        if (QFileInfo::exists(candidate + QStringLiteral("/ding.wav")))
            return QDir::cleanPath(candidate);
    }
    return appDir + QStringLiteral("/share");
}

bool prepare(const QString& folder, const QString& bundled) {
    if (!QDir().mkpath(folder + QStringLiteral("help")))
        return false;
    for (const char* name : {"ding.wav", "didi.snd", "air.mid", "help/tolmhelp.html"}) {
        const QString target = folder + QLatin1String(name);
        const QString source = bundled + QLatin1Char('/') + QLatin1String(name);
        if (!QFileInfo::exists(target) && QFileInfo::exists(source))
            QFile::copy(source, target); // a failed copy shows later as a missing sound or help file
    }
    return true;
}

} // namespace data_folder
