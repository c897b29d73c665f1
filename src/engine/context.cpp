#include "engine/context.h"

#include "engine/alarm_set_ui.h"

Context::Context(Clock& clock, Notices& notices, AlarmSound& sound) : clock(clock), notices(notices), sound(sound) {}

void Context::setStartValues(const QString& programFolder) {
    folder = programFolder.endsWith(QLatin1Char('/')) ? programFolder : programFolder + QLatin1Char('/');
    recordBuffer = SettingRecord();
    options = Options();
    options.soundOn = true;
    options.errorPopups = true;
    soundChoice = SoundChoice();
    soundChoice.songPath = folder + QStringLiteral("ding.wav");
    tick = TickState();
    tick.needNextAlarm = true;
    chime.on = false;
    chime.interval = 0;
    chime.nextMark = -1;
    front = FrontState();
    front.trayEnabled = true;
    front.nextWarningSerial = 1000000;
    entry.date.clear();
    entry.withMessage = false;
}

bool Context::touchAlarmSet() {
    if (m_alarmSetLoaded)
        return false;
    m_alarmSetLoaded = true;
    if (alarmSetUi)
        alarmSetUi->load();
    return true;
}

void Context::unloadAlarmSet() {
    if (alarmSetUi)
        alarmSetUi->requestUnload();
}
