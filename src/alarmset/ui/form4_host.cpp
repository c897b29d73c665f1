#include "alarmset/ui/form4_host.h"

#include "alarmset/ui/form4.h"
#include "engine/context.h"

Form4Host::Form4Host(Context& ctx) : m_ctx(ctx) {}

Form4Host::~Form4Host() = default;

void Form4Host::Load() {
    if (m_form)
        return;
    m_form = std::make_unique<Form4>(m_ctx, hooks);
    m_form->SetNoSecondMode(m_noSecond);
    // The load may set no-second mode through the Settings window, which lands here again: the window
    // exists by then.
    m_form->Form_Load();
}

void Form4Host::RequestUnload() {
    if (m_form)
        m_form->close();
}

void Form4Host::EveryControlsChanged() {
    if (m_form)
        m_form->EveryControlsChanged();
}

void Form4Host::SetNoSecondMode(bool on) {
    m_noSecond = on;
    if (m_form)
        m_form->SetNoSecondMode(on);
}

void Form4Host::SetDataListShaded(bool shaded) {
    if (m_form)
        m_form->setDataListShaded(shaded);
}

void Form4Host::showAlarmSet() {
    m_ctx.m.blnForm4Wanted = true;
    m_ctx.touchForm4();
    if (!m_form)
        return;
    if (m_form->isMinimized())
        m_form->showNormal();
    m_form->show();
    m_form->raise();
    m_form->activateWindow();
}
