#include "sound/wave_player.h"

#include "platform/wave_output.h"

int WavePlayer::timesOfWord(const QString& playWord) {
    if (playWord == QLatin1String("twice"))
        return 2;
    if (playWord == QLatin1String("thrice"))
        return 3;
    if (playWord == QLatin1String("repeat"))
        return 0;
    return 1;
}

void WavePlayer::play(const QString& playWord, const QString& path, int16_t& canPlay) {
    if (!m_output.play(path, timesOfWord(playWord)))
        canPlay = 0;
}
