#pragma once

#include <QString>
#include <cstdint>

class WaveOutput;

// Plays a wave file as many times as a play word says; made for one request and released.
class WavePlayer {
public:
    explicit WavePlayer(WaveOutput& output) : m_output(output) {}

    // Returns at once. canPlay, True (-1) on entry, becomes 0 when the wave cannot be played.
    void play(const QString& playWord, const QString& path, int16_t& canPlay);

    // How many times a play word sounds a wave: "once" 1, "twice" 2, "thrice" 3, "repeat" 0 (until
    // stopped); any other word once.
    static int timesOfWord(const QString& playWord);

private:
    WaveOutput& m_output;
};
