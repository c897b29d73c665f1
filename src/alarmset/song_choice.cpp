#include "alarmset/song_choice.h"

#include "engine/context.h"
#include "settings/settings_records.h"
#include "sound/alarm_sound.h"

#include <QDir>

namespace {

const QLatin1String kWave(".wav");

bool chosen(const QStringList& items, int listIndex) {
    return listIndex >= 0 && listIndex < items.size();
}

} // namespace

void SongDropDown(Context& ctx, QStringList& cmbShowSongs) {
    cmbShowSongs.clear();
    // Case-sensitive: a song is found again by its short name and ".wav", and this file system tells cases apart.
    QDir folder(ctx.m.strAppPath, QStringLiteral("*.wav"), QDir::Unsorted, QDir::Files | QDir::CaseSensitive);
    for (const QString& name : folder.entryList())
        cmbShowSongs.append(name.left(name.size() - 4));
}

void SongClick(Context& ctx, const QStringList& cmbSelectedSong, int listIndex) {
    if (!chosen(cmbSelectedSong, listIndex))
        return;
    const QString& song = cmbSelectedSong.at(listIndex);
    ctx.m.strSongName = ctx.m.strAppPath + song + kWave;
    // A failed write is silent: the song stays in use until the next start.
    settings_records::writeSongName(ctx, song);
}

void PlayBClick(Context& ctx, const QStringList& cmbSong, int listIndex) {
    if (!chosen(cmbSong, listIndex))
        return;
    ctx.sound.sndPlaySoundA(ctx.m.strAppPath + cmbSong.at(listIndex) + kWave, 1);
}
