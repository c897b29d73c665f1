#include "alarmset/ui/alarm_set_host.h"

#include "alarmset/ui/alarm_set_window.h"
#include "engine/context.h"

AlarmSetHost::AlarmSetHost(Context& ctx) : m_ctx(ctx) {}

AlarmSetHost::~AlarmSetHost() = default;

void AlarmSetHost::load() {
    if (m_form)
        return;
    m_form = std::make_unique<AlarmSetWindow>(m_ctx, hooks);
    m_form->setNoSecondMode(m_noSecond);
    m_form->standInForTray(m_trayMenu);
    // The load may set no-second mode through the Settings window, which lands here again: the window
    // exists by then.
    m_form->load();
}

void AlarmSetHost::requestUnload() {
    if (m_form)
        m_form->close();
}

void AlarmSetHost::chimeControlsChanged() {
    if (m_form)
        m_form->chimeControlsChanged();
}

void AlarmSetHost::setNoSecondMode(bool on) {
    m_noSecond = on;
    if (m_form)
        m_form->setNoSecondMode(on);
}

void AlarmSetHost::setTodayListShaded(bool shaded) {
    if (m_form)
        m_form->setTodayListShaded(shaded);
}

void AlarmSetHost::showAlarmSet() {
    m_ctx.tick.alarmSetWanted = true;
    m_ctx.touchAlarmSet();
    if (!m_form)
        return;
    if (m_form->isMinimized())
        m_form->showNormal();
    m_form->show();
    m_form->raise();
    m_form->activateWindow();
}

void AlarmSetHost::standInForTray(QMenu* trayMenu) {
    m_trayMenu = trayMenu;
    if (m_form)
        m_form->standInForTray(trayMenu);
    if (trayMenu)
        showAlarmSet();
}
