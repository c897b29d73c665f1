#pragma once

#include <QStringList>

class Context;

// Rebuilds the song box at each drop-down: the wave files of the program folder, without ".wav".
void SongDropDown(Context& ctx, QStringList& cmbShowSongs);
// A click on an item makes it the song in use and stores its name in record 3; nothing without a choice.
void SongClick(Context& ctx, const QStringList& cmbSelectedSong, int listIndex);
// Plays the song selected in the box for trial; nothing without a choice.
void PlayBClick(Context& ctx, const QStringList& cmbSong, int listIndex);
