#pragma once

#include <QString>

class Context;

// One firing of the 800 ms timer: fires the due alarm, keeps the book of the next one, reports alarms
// that slipped past, rings the chime, drives a repeating speaker alarm and reloads the schedule at 00:00.
class AlarmTick {
public:
    explicit AlarmTick(Context& ctx) : m_ctx(ctx) {}

    void onTick();
    // Rings the alarm due at `due` when its second passed while its sound was being readied (a large song, a slow
    // disk): late, rather than reported as slipped at the next minute. True when it rang.
    bool fireLate(const QString& due);

    void takeNextAlarm();
    void minuteChecks();
    void checkPassedAlarm();
    void ringChime();
    void advanceChimeMark();
    void resyncChimeMark();
    void hideAlarmSetIfIdle();

    const QString& timeNow() const { return m_timeNow; }
    int reloadMinute() const { return m_reloadMinute; }

private:
    void fireAlarm();
    void midnightReload();
    void removeHead();

    Context& m_ctx;
    QString m_timeNow;
    int m_reloadMinute = -1;
    bool m_inTick = false;
};

// Renews the chime's interval and mark from its controls (the check box of the Alarm Set window).
void updateChime(Context& ctx);
