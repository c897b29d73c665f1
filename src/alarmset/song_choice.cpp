#include "alarmset/song_choice.h"

#include "engine/context.h"
#include "settings/settings_records.h"
#include "sound/alarm_sound.h"

#include <QDir>

namespace {

const QLatin1String kWave(".wav");

bool chosen(const QStringList& items, int currentIndex) {
    return currentIndex >= 0 && currentIndex < items.size();
}

} // namespace

void listSongs(Context& ctx, QStringList& songs) {
    songs.clear();
    // Case-sensitive: a song is found again by its short name and ".wav", and this file system tells cases apart.
    QDir folder(ctx.folder, QStringLiteral("*.wav"), QDir::Unsorted, QDir::Files | QDir::CaseSensitive);
    for (const QString& name : folder.entryList())
        songs.append(name.left(name.size() - 4));
}

void chooseSong(Context& ctx, const QStringList& songs, int currentIndex) {
    if (!chosen(songs, currentIndex))
        return;
    const QString& song = songs.at(currentIndex);
    ctx.soundChoice.songPath = ctx.folder + song + kWave;
    // A failed write is silent: the song stays in use until the next start.
    settings_records::writeSongName(ctx, song);
}

void playSongTrial(Context& ctx, const QStringList& songs, int currentIndex) {
    if (!chosen(songs, currentIndex))
        return;
    ctx.sound.playWaveFile(ctx.folder + songs.at(currentIndex) + kWave, 1);
}
