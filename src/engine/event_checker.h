#pragma once

#include <QString>
#include <cstdint>

// Row checks and the arithmetic of the Every-N-minutes chime.
class EventChecker {
public:
    // nextMark becomes the mark after the present one: a minute 0-59, or an hour 0-23 when the interval is 60.
    void nextChimeMark(int16_t interval, int16_t& nextMark) const;

    // flag becomes 0 unless text is a whole play word, one space and a valid "hh:mm:ss".
    void checkAlarmRow(QStringView text, int16_t& flag) const;
    // flag becomes 0 unless text is a message, " at " and a valid "hh:mm:ss".
    void checkMessageRow(QStringView text, int16_t& flag) const;

    // The state of the chime's check box and interval box, as startChime sees them.
    struct ChimeControls {
        bool checked = false;
        QString interval; // the text chosen in the interval box
        bool intervalEnabled = true;
    };
    // While the box is ticked: the interval and the first mark to come from (hour, minute), flag 1,
    // the interval box disabled. When it is cleared the interval box is enabled again.
    void startChime(ChimeControls& controls, int16_t& interval, int16_t& flag, int16_t& nextMark, int hour,
                    int minute) const;
};

// "hh:mm:ss" with hours 00-23 and minutes and seconds 00-59.
bool isValidTime(QStringView time);
