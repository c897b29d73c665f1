#include "engine/ui/form1.h"

#include "engine/context.h"
#include "platform/ui/pictures.h"
#include "sound/notices.h"
#include "sound/ui/form3.h"

#include <QAction>
#include <QCoreApplication>
#include <QCursor>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMenu>
#include <QUrl>

namespace {
QIcon trayIcon(bool enabled) {
    QIcon icon;
    for (const int size : {16, 22, 24, 32, 48, 64})
        icon.addPixmap(pictures::clock(size, enabled));
    return icon;
}
} // namespace

Form1::Form1(Context& ctx, Form1Hooks hooks) : m_ctx(ctx), m_hooks(std::move(hooks)), m_tick(ctx) {
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setInterval(800);
    connect(&m_timer, &QTimer::timeout, this, [this] { m_tick.Timer1_Timer(); });
    m_timer.start();
    m_ctx.setTimer1Enabled = [this](bool on) {
        // An error box closing must not wake a clock the user has disabled.
        if (on && !disabled())
            m_timer.start();
        else
            m_timer.stop();
    };
    buildMenu();
}

void Form1::buildMenu() {
    m_popup = new QMenu();
    auto add = [this](const QString& caption, void (Form1::*slot)()) {
        QAction* action = m_popup->addAction(caption);
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    add(QStringLiteral(" About  "), &Form1::mOpen_Click);
    m_popup->addSeparator();
    add(QStringLiteral(" Alarm Set  "), &Form1::mAlarmSet_Click);
    add(QStringLiteral(" Show"), &Form1::mShow_Click);
    add(QStringLiteral(" Settings  "), &Form1::mSetting_Click);
    m_popup->addSeparator();
    add(QStringLiteral(" Help  "), &Form1::mHelp_Click);
    add(QStringLiteral(" Stop  "), &Form1::mStop_Click);
    m_popup->addSeparator();
    m_disable = m_popup->addAction(QStringLiteral(" Disable  "));
    m_disable->setCheckable(true);
    connect(m_disable, &QAction::triggered, this, &Form1::mDisable_Click);
    add(QStringLiteral(" Remove  "), &Form1::mRemove_Click);

    // While an error box is up the icon does nothing, its menu included.
    connect(m_popup, &QMenu::aboutToShow, this, [this] {
        if (!m_ctx.m.blnTrayEnabled)
            QMetaObject::invokeMethod(m_popup, &QMenu::close, Qt::QueuedConnection);
    });
    m_tray.setContextMenu(m_popup);
    connect(&m_tray, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            trayMessage(514);
    });
}

void Form1::Form_Load() {
    m_tray.setIcon(trayIcon(true));
    m_tray.setToolTip(QStringLiteral("Bwk"));
    m_tray.show();
}

bool Form1::disabled() const {
    return m_disable->isChecked();
}

void Form1::trayMessage(int message) {
    if (!m_ctx.m.blnTrayEnabled)
        return;
    if (message == 514)
        mStop_Click();
    else if (message == 517)
        m_popup->popup(QCursor::pos());
}

void Form1::mOpen_Click() {
    (new Form3())->show();
}

void Form1::mAlarmSet_Click() {
    if (m_hooks.showAlarmSet)
        m_hooks.showAlarmSet();
}

void Form1::mShow_Click() {
    if (m_hooks.showClock)
        m_hooks.showClock();
}

void Form1::mSetting_Click() {
    if (m_hooks.showSettings)
        m_hooks.showSettings();
}

void Form1::mHelp_Click() {
    const QString help = m_ctx.appFile(QStringLiteral("help/tolmhelp.html"));
    if (QFileInfo::exists(help)) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(help));
        return;
    }
    m_ctx.notices.AnswerOk(QStringLiteral("Help file not found, please visit Bellwick's home page for getting help!"));
    m_ctx.notices.Beep();
}

void Form1::mStop_Click() {
    if (m_hooks.mStop)
        m_hooks.mStop();
    m_ctx.m.blnRepeatPlay = false;
}

void Form1::mDisable_Click() {
    // The action has already turned its tick over.
    if (m_disable->isChecked()) {
        m_timer.stop();
        m_tray.setIcon(trayIcon(false));
    } else {
        m_timer.start();
        m_tray.setIcon(trayIcon(true));
    }
}

void Form1::mRemove_Click() {
    if (m_hooks.unloadClock)
        m_hooks.unloadClock();
    m_tray.hide();
    // No other window's closing logic runs: every file is complete at all times.
    QCoreApplication::exit(0);
}
