#pragma once

#include <QString>

class Context;

// One firing of the 800 ms timer: fires the due alarm, keeps the book of the next one, reports alarms
// that slipped past, rings the chime, drives a repeating speaker alarm and reloads the schedule at 00:00.
class AlarmTick {
public:
    explicit AlarmTick(Context& ctx) : m_ctx(ctx) {}

    void Timer1_Timer();

    void TakeNextAlarm();
    void MinuteChecks();
    void CheckPassedAlarm();
    void EveryMinutesChime();
    void AdvanceEveryMark();
    void ResyncEveryMark();
    void HideForm4IfIdle();

    const QString& strTimeNow() const { return m_strTimeNow; }
    int iReloadMinute() const { return m_iReloadMinute; }

private:
    void FireAlarm();
    void MidnightReload();
    void RemoveHead();

    Context& m_ctx;
    QString m_strTimeNow;
    int m_iReloadMinute = -1;
    bool m_inTick = false;
};

// Renews the chime's interval and mark from its controls (the check box of the Alarm Set window).
void chkEMPlay_Click(Context& ctx);
