#include "sound/wave_player.h"

#include "platform/wave_output.h"

int WavePlayer::timesOfWord(const QString& strTimes) {
    if (strTimes == QLatin1String("twice"))
        return 2;
    if (strTimes == QLatin1String("thrice"))
        return 3;
    if (strTimes == QLatin1String("repeat"))
        return 0;
    return 1;
}

void WavePlayer::PlayWave(const QString& strTimes, const QString& path, int16_t& iCanPlay) {
    if (!m_output.play(path, timesOfWord(strTimes)))
        iCanPlay = 0;
}
