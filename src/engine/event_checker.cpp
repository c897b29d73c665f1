#include "engine/event_checker.h"

#include "engine/alarm_event.h"
#include "platform/numeric.h"

namespace {

bool twoDigits(QStringView s, int max) {
    if (s.size() != 2 || !s[0].isDigit() || !s[1].isDigit())
        return false;
    return (s[0].unicode() - '0') * 10 + (s[1].unicode() - '0') <= max;
}

} // namespace

bool isValidTime(QStringView time) {
    return time.size() == 8 && time[2] == QLatin1Char(':') && time[5] == QLatin1Char(':') &&
           twoDigits(time.mid(0, 2), 23) && twoDigits(time.mid(3, 2), 59) && twoDigits(time.mid(6, 2), 59);
}

void EventChecker::nextChimeMark(int16_t interval, int16_t& nextMark) const {
    if (interval >= 60) {
        nextMark = static_cast<int16_t>((nextMark + 1) % 24);
    } else if (interval > 0) {
        nextMark = static_cast<int16_t>((nextMark + interval) % 60);
    }
    if (nextMark < 0)
        nextMark = 0;
}

void EventChecker::checkAlarmRow(QStringView text, int16_t& flag) const {
    const qsizetype space = text.indexOf(QLatin1Char(' '));
    const QStringView word = text.left(space < 0 ? 0 : space);
    if (space < 0 || !alarm_event::playWords().contains(word) || !isValidTime(text.mid(space + 1)))
        flag = 0;
}

void EventChecker::checkMessageRow(QStringView text, int16_t& flag) const {
    if (text.size() <= 12 || text.right(12).left(4) != QLatin1String(" at ") || !isValidTime(text.right(8)))
        flag = 0;
}

void EventChecker::startChime(ChimeControls& controls, int16_t& interval, int16_t& flag, int16_t& nextMark, int hour,
                              int minute) const {
    if (!controls.checked) {
        controls.intervalEnabled = true;
        return;
    }
    const long chosen = leadingDigitsValue(controls.interval.trimmed());
    if (chosen <= 0) {
        controls.intervalEnabled = true;
        return;
    }
    interval = static_cast<int16_t>(chosen >= 60 ? 60 : chosen);
    if (interval == 60)
        nextMark = static_cast<int16_t>((hour + 1) % 24);
    else
        nextMark = static_cast<int16_t>((minute / interval + 1) * interval % 60);
    flag = 1;
    controls.intervalEnabled = false;
}
