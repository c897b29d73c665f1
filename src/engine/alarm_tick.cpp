#include "engine/alarm_tick.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/event_checker.h"
#include "engine/form4_ui.h"
#include "engine/schedule_file.h"
#include "platform/clock.h"
#include "sound/alarm_sound.h"
#include "sound/notices.h"
#include "sound/show_message.h"

void AlarmTick::Timer1_Timer() {
    // Sound may let events through while it plays; a tick that arrives then waits for the next one.
    if (m_inTick)
        return;
    m_inTick = true;
    Module1& m = m_ctx.m;
    if (m.blnTickOn) {
        const QString now = m_ctx.clock.timeText();
        if (m.blnNoSecond) {
            m.strNextAlarm = m.strNextAlarm.left(5);
            m_strTimeNow = now.left(5);
        } else {
            m_strTimeNow = now;
            if (m.strNextAlarm.size() == 5)
                m.strNextAlarm += QStringLiteral(":00");
        }
        if (m_strTimeNow == m.strNextAlarm)
            FireAlarm();
        TakeNextAlarm();
        MinuteChecks();
        EveryMinutesChime();
        HideForm4IfIdle();
    }
    if (m.blnRepeatPlay)
        m_ctx.sound.InternalSpeaker();
    MidnightReload();
    m_inTick = false;
}

void AlarmTick::RemoveHead() {
    m_ctx.lstData.removeItem(0);
    if (m_ctx.lstData.item(0).isEmpty())
        m_ctx.m.blnHaveAlarms = false;
}

void AlarmTick::FireAlarm() {
    Module1& m = m_ctx.m;
    m.blnNeedNextAlarm = true;
    if (!m_ctx.lstData.item(0).isEmpty())
        RemoveHead();
    m_ctx.sound.PlaySound(m.strNextPlayTimes, m.strSongName);
    if (m_ctx.lstMessage.count() >= 1)
        sShowMsg(m_ctx, m.strNextAlarm);
}

void AlarmTick::TakeNextAlarm() {
    Module1& m = m_ctx.m;
    if (m.blnHaveAlarms && m.blnNeedNextAlarm) {
        const QString head = m_ctx.lstData.item(0);
        m.strNextPlayTimes = alarm_event::wholeWordFromTodayRow(head);
        m.strNextAlarm = head.right(8);
        m.blnNeedNextAlarm = false;
        CheckPassedAlarm();
    } else if (!m.blnHaveAlarms && m.blnNeedNextAlarm) {
        m.strNextAlarm.clear();
        m.strNextPlayTimes.clear();
        m.blnNeedNextAlarm = false;
    }
}

void AlarmTick::MinuteChecks() {
    const int second = m_ctx.clock.now().time().second();
    if (second == 0 && m_ctx.m.blnHaveAlarms)
        CheckPassedAlarm();
    if (second == 30 && m_ctx.m.blnEveryMinutesOn)
        ResyncEveryMark();
}

void AlarmTick::CheckPassedAlarm() {
    Module1& m = m_ctx.m;
    if (m.strNextAlarm.isEmpty())
        return;
    if (!(QStringView(m.strNextAlarm).left(5) < QStringView(m_ctx.clock.timeText()).left(5)))
        return;
    // A slipped alarm is only reported, never sounded.
    const QString passed = m.strNextAlarm;
    m_ctx.notices.ShowAlarmWindow(QStringLiteral("alarm at ") + passed);
    RemoveHead();
    sShowMsg(m_ctx, passed);
    m.blnNeedNextAlarm = true;
}

void AlarmTick::EveryMinutesChime() {
    Module1& m = m_ctx.m;
    if (!m.blnEveryMinutesOn)
        return;
    const QTime now = m_ctx.clock.now().time();
    const int value = m.iEveryMinutes == 60 ? now.hour() : now.minute();
    if (value != m.iEveryNext)
        return;
    if (m.blnSoundOn && now.second() < 3)
        m_ctx.sound.sndPlaySoundA(m_ctx.appFile(QStringLiteral("didi.snd")), 1);
    AdvanceEveryMark();
}

void AlarmTick::AdvanceEveryMark() {
    EventChecker().NextEveryMark(m_ctx.m.iEveryMinutes, m_ctx.m.iEveryNext);
}

void AlarmTick::ResyncEveryMark() {
    Module1& m = m_ctx.m;
    const QTime now = m_ctx.clock.now().time();
    if (m.iEveryMinutes == 60 && m.iEveryNext < now.hour()) {
        // A mark of 0 still lies ahead at hour 23: one step a minute, never a jump.
        if (!(m.iEveryNext == 0 && now.hour() == 23)) {
            ++m.iEveryNext;
            if (m.iEveryNext == 24)
                m.iEveryNext = 0;
        }
    } else if (m.iEveryMinutes != 60 && m.iEveryNext < now.minute()) {
        if (!(m.iEveryNext == 0 && now.minute() >= 30))
            chkEMPlay_Click(m_ctx);
    }
}

void AlarmTick::HideForm4IfIdle() {
    Module1& m = m_ctx.m;
    if (m.blnHaveAlarms || m.blnForm4Wanted)
        return;
    m_ctx.unloadForm4();
    if (!m.blnEveryMinutesOn)
        m.blnTickOn = false;
}

void AlarmTick::MidnightReload() {
    const QTime now = m_ctx.clock.now().time();
    if (now.hour() == 0 && now.minute() == 0) {
        if (m_iReloadMinute != now.minute()) {
            // When this is the first touch of the Alarm Set window, its own load has just read the file.
            if (!m_ctx.touchForm4())
                LoadFutureFile(m_ctx, QStringLiteral("future.dat"));
            m_iReloadMinute = now.minute();
        }
    } else {
        m_iReloadMinute = -1;
    }
}

void chkEMPlay_Click(Context& ctx) {
    int16_t flag = 0;
    const QTime now = ctx.clock.now().time();
    EventChecker().StartEveryMinutes(ctx.everyControls, ctx.m.iEveryMinutes, flag, ctx.m.iEveryNext, now.hour(),
                                     now.minute());
    if (flag == 1)
        ctx.m.blnTickOn = true;
    ctx.m.blnEveryMinutesOn = ctx.everyControls.checked;
    if (ctx.form4Ui)
        ctx.form4Ui->EveryControlsChanged();
}
