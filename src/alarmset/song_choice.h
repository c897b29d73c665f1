#pragma once

#include <QStringList>

class Context;

// Rebuilds the song box at each drop-down: the wave files of the program folder, without ".wav".
void listSongs(Context& ctx, QStringList& songs);
// A click on an item makes it the song in use and stores its name in record 3; nothing without a choice.
void chooseSong(Context& ctx, const QStringList& songs, int currentIndex);
// Plays the song selected in the box for trial; nothing without a choice.
void playSongTrial(Context& ctx, const QStringList& songs, int currentIndex);
