#include "engine/alarm_tick.h"

#include "engine/alarm_event.h"
#include "engine/alarm_set_ui.h"
#include "engine/context.h"
#include "engine/event_checker.h"
#include "engine/schedule_file.h"
#include "engine/wake_alarm.h"
#include "platform/clock.h"
#include "recurring/recurring_arming.h"
#include "sound/alarm_sound.h"
#include "sound/notices.h"
#include "sound/show_message.h"

void AlarmTick::onTick() {
    // Sound may let events through while it plays; a tick that arrives then waits for the next one.
    if (m_inTick)
        return;
    m_inTick = true;
    if (m_ctx.tick.on) {
        const QString now = m_ctx.clock.timeText();
        if (m_ctx.options.noSecond) {
            m_ctx.tick.nextAlarm = m_ctx.tick.nextAlarm.left(5);
            m_timeNow = now.left(5);
        } else {
            m_timeNow = now;
            if (m_ctx.tick.nextAlarm.size() == 5)
                m_ctx.tick.nextAlarm += QStringLiteral(":00");
        }
        if (m_timeNow == m_ctx.tick.nextAlarm)
            fireAlarm();
        takeNextAlarm();
        minuteChecks();
        ringChime();
        hideAlarmSetIfIdle();
    }
    if (m_ctx.soundChoice.repeatSweep)
        m_ctx.sound.sweepSpeaker();
    m_ctx.sound.keepRinging();
    midnightReload();
    if (m_ctx.wake)
        m_ctx.wake->update();
    m_inTick = false;
}

bool AlarmTick::fireLate(const QString& due) {
    if (m_inTick || !m_ctx.tick.on || !m_ctx.tick.haveAlarms || m_ctx.tick.needNextAlarm || m_ctx.tick.nextAlarm != due)
        return false;
    const QString now = m_ctx.clock.timeText().left(due.size());
    if (!(due < now))
        return false;
    m_inTick = true;
    fireAlarm();
    takeNextAlarm();
    m_inTick = false;
    return true;
}

void AlarmTick::removeHead() {
    m_ctx.today.alarms.removeItem(0);
    if (m_ctx.today.alarms.item(0).isEmpty())
        m_ctx.tick.haveAlarms = false;
}

void AlarmTick::fireAlarm() {
    m_ctx.tick.needNextAlarm = true;
    if (!m_ctx.today.alarms.item(0).isEmpty()) {
        recurring_arming::noteTaken(m_ctx, m_ctx.today.alarms.item(0).right(8));
        removeHead();
    }
    m_ctx.sound.playAlarm(m_ctx.tick.nextPlayWord, m_ctx.soundChoice.songPath);
    if (m_ctx.today.messages.count() >= 1)
        showAlarmMessage(m_ctx, m_ctx.tick.nextAlarm);
}

void AlarmTick::takeNextAlarm() {
    if (m_ctx.tick.haveAlarms && m_ctx.tick.needNextAlarm) {
        const QString head = m_ctx.today.alarms.item(0);
        m_ctx.tick.nextPlayWord = alarm_event::wholeWordFromTodayRow(head);
        m_ctx.tick.nextAlarm = head.right(8);
        m_ctx.tick.needNextAlarm = false;
        checkPassedAlarm();
    } else if (!m_ctx.tick.haveAlarms && m_ctx.tick.needNextAlarm) {
        m_ctx.tick.nextAlarm.clear();
        m_ctx.tick.nextPlayWord.clear();
        m_ctx.tick.needNextAlarm = false;
    }
}

void AlarmTick::minuteChecks() {
    const int second = m_ctx.clock.now().time().second();
    if (second == 0 && m_ctx.tick.haveAlarms)
        checkPassedAlarm();
    if (second == 30 && m_ctx.chime.on)
        resyncChimeMark();
}

void AlarmTick::checkPassedAlarm() {
    if (m_ctx.tick.nextAlarm.isEmpty())
        return;
    if (!(QStringView(m_ctx.tick.nextAlarm).left(5) < QStringView(m_ctx.clock.timeText()).left(5)))
        return;
    // A slipped alarm is only reported, never sounded.
    const QString passed = m_ctx.tick.nextAlarm;
    m_ctx.notices.showAlarmWindow(QStringLiteral("alarm at ") + passed);
    recurring_arming::noteTaken(m_ctx, m_ctx.today.alarms.item(0).right(8));
    removeHead();
    showAlarmMessage(m_ctx, passed);
    m_ctx.tick.needNextAlarm = true;
}

void AlarmTick::ringChime() {
    if (!m_ctx.chime.on)
        return;
    const QTime now = m_ctx.clock.now().time();
    const int value = m_ctx.chime.interval == 60 ? now.hour() : now.minute();
    if (value != m_ctx.chime.nextMark)
        return;
    if (m_ctx.options.soundOn && now.second() < 3)
        m_ctx.sound.playWaveFile(m_ctx.appFile(QStringLiteral("didi.snd")), 1);
    advanceChimeMark();
}

void AlarmTick::advanceChimeMark() {
    EventChecker().nextChimeMark(m_ctx.chime.interval, m_ctx.chime.nextMark);
}

void AlarmTick::resyncChimeMark() {
    const QTime now = m_ctx.clock.now().time();
    if (m_ctx.chime.interval == 60 && m_ctx.chime.nextMark < now.hour()) {
        // A mark of 0 still lies ahead at hour 23: one step a minute, never a jump.
        if (!(m_ctx.chime.nextMark == 0 && now.hour() == 23)) {
            ++m_ctx.chime.nextMark;
            if (m_ctx.chime.nextMark == 24)
                m_ctx.chime.nextMark = 0;
        }
    } else if (m_ctx.chime.interval != 60 && m_ctx.chime.nextMark < now.minute()) {
        if (!(m_ctx.chime.nextMark == 0 && now.minute() >= 30))
            updateChime(m_ctx);
    }
}

void AlarmTick::hideAlarmSetIfIdle() {
    if (m_ctx.tick.haveAlarms || m_ctx.tick.alarmSetWanted)
        return;
    m_ctx.unloadAlarmSet();
    if (!m_ctx.chime.on)
        m_ctx.tick.on = false;
}

void AlarmTick::midnightReload() {
    const QTime now = m_ctx.clock.now().time();
    if (now.hour() == 0 && now.minute() == 0) {
        if (m_reloadMinute != now.minute()) {
            // When this is the first touch of the Alarm Set window, its own load has just read the file.
            if (!m_ctx.touchAlarmSet())
                loadSchedule(m_ctx, QStringLiteral("future.dat"));
            m_reloadMinute = now.minute();
        }
    } else {
        m_reloadMinute = -1;
    }
}

void updateChime(Context& ctx) {
    int16_t flag = 0;
    const QTime now = ctx.clock.now().time();
    EventChecker().startChime(ctx.chime.controls, ctx.chime.interval, flag, ctx.chime.nextMark, now.hour(),
                              now.minute());
    if (flag == 1)
        ctx.tick.on = true;
    ctx.chime.on = ctx.chime.controls.checked;
    if (ctx.alarmSetUi)
        ctx.alarmSetUi->chimeControlsChanged();
}
