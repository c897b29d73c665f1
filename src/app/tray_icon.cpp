#include "app/tray_icon.h"

#include "engine/context.h"
#include "engine/wake_alarm.h"
#include "platform/clock.h"
#include "platform/ui/pictures.h"
#include "platform/ui/tray_host.h"
#include "sound/alarm_sound.h"
#include "sound/notices.h"
#include "sound/ui/about_box.h"

#include <QAction>
#include <QCoreApplication>
#include <QCursor>
#include <QDesktopServices>
#include <QEvent>
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

TrayIcon::TrayIcon(Context& ctx, TrayHooks hooks, std::unique_ptr<SleepTimer> sleep)
    : m_ctx(ctx), m_hooks(std::move(hooks)), m_tick(ctx), m_sleep(std::move(sleep)) {
    if (!m_sleep)
        m_sleep = std::make_unique<QtSleepTimer>();
    m_sleep->onTimeout = [this] { runTick(); };
    m_sleep->onClockSet = [this] { stateChanged(); };
    m_timer.setTimerType(Qt::PreciseTimer);
    m_timer.setSingleShot(true);
    m_timer.setInterval(int(tick_planner::kPaceMs));
    connect(&m_timer, &QTimer::timeout, this, &TrayIcon::runTick);
    m_ctx.setTickTimerEnabled = [this](bool on) {
        // An error box closing must not wake a clock the user has disabled.
        m_boxUp = !on;
        if (on)
            stateChanged();
        else
            stopTicking();
    };
    buildMenu();
    stateChanged();
}

void TrayIcon::runTick() {
    m_tick.onTick();
    checkTray();
    schedule();
}

void TrayIcon::stopTicking() {
    m_timer.stop();
    m_sleep->stop();
}

void TrayIcon::schedule() {
    if (m_boxUp || disabled()) {
        stopTicking();
        return;
    }
    TickWatch watch;
    watch.reloadMinute = m_tick.reloadMinute();
    watch.alarmSetShown = alarmSetShown();
    watch.recentlyChanged = m_changed.isValid() && m_changed.elapsed() < kChangedPaceMs;
    watch.soundNeedsTick = m_ctx.sound.needsTick();
    m_plan = tick_planner::plan(m_ctx, m_ctx.clock.now(), watch);
    if (!m_plan.readySound) {
        m_readied.clear();
    } else if (m_readied != m_ctx.tick.nextAlarm) {
        m_readied = m_ctx.tick.nextAlarm;
        m_ctx.sound.readyAlarm(m_ctx.tick.nextPlayWord, m_ctx.soundChoice.songPath);
        if (m_tick.fireLate(m_readied)) {
            schedule();
            return;
        }
    }
    if (m_plan.paced) {
        m_sleep->stop();
        m_timer.start(int(m_plan.delayMs));
    } else {
        m_timer.stop();
        m_sleep->start(m_plan.delayMs);
    }
}

bool TrayIcon::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonRelease)
        stateChanged();
    return QObject::eventFilter(watched, event);
}

void TrayIcon::stateChanged() {
    m_changed.start();
    // Already paced: the next tick sees the change. Pushing it back on every change would starve it.
    if (m_timer.isActive() && m_timer.remainingTime() <= tick_planner::kPaceMs)
        return;
    schedule();
}

void TrayIcon::buildMenu() {
    m_popup = new QMenu();
    // While an error box is up the icon does nothing, its menu included. A StatusNotifier host shows the menu
    // itself and triggers the entries over D-Bus, so each entry looks for itself.
    auto add = [this](const QString& caption, void (TrayIcon::*slot)()) {
        QAction* action = m_popup->addAction(caption);
        connect(action, &QAction::triggered, this, [this, slot] {
            if (m_ctx.front.trayEnabled)
                (this->*slot)();
        });
        return action;
    };
    add(QStringLiteral(" About  "), &TrayIcon::onOpen);
    m_popup->addSeparator();
    add(QStringLiteral(" Alarm Set  "), &TrayIcon::onAlarmSet);
    add(QStringLiteral(" Show"), &TrayIcon::onShowClock);
    add(QStringLiteral(" Settings  "), &TrayIcon::onSettings);
    m_popup->addSeparator();
    add(QStringLiteral(" Help  "), &TrayIcon::onHelp);
    add(QStringLiteral(" Stop  "), &TrayIcon::onStop);
    m_popup->addSeparator();
    m_disable = m_popup->addAction(QStringLiteral(" Disable  "));
    m_disable->setCheckable(true);
    connect(m_disable, &QAction::triggered, this, [this] {
        if (m_ctx.front.trayEnabled)
            onDisable();
        else
            m_disable->setChecked(!m_disable->isChecked()); // the tick it took on its own goes back
    });
    add(QStringLiteral(" Remove  "), &TrayIcon::onRemove);

    connect(m_popup, &QMenu::aboutToShow, this, [this] {
        if (!m_ctx.front.trayEnabled)
            QMetaObject::invokeMethod(m_popup, &QMenu::close, Qt::QueuedConnection);
    });
}

void TrayIcon::createIcon() {
    m_tray = new QSystemTrayIcon(this);
    m_tray->setContextMenu(m_popup);
    // A StatusNotifier host asks for the menu with ContextMenu or SecondaryActivate where it has no menu of its
    // own to show, or from the keyboard; an XEmbed tray's right press has opened it already.
    connect(m_tray, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::Trigger)
            trayMessage(514);
        else if ((reason == QSystemTrayIcon::Context || reason == QSystemTrayIcon::MiddleClick) &&
                 !m_popup->isVisible())
            trayMessage(517);
    });
    m_tray->setIcon(trayIcon(!disabled()));
    m_tray->setToolTip(QStringLiteral("Bwk"));
    // From here on Qt puts the icon in a tray of its kind that goes and comes.
    m_tray->show();
}

bool TrayIcon::defaultTrayAvailable() const {
    // Qt's own answer only once its tray kind is settled: asked earlier it would settle on none.
    return m_tray ? QSystemTrayIcon::isSystemTrayAvailable() : tray_host::present();
}

void TrayIcon::load(int graceMs) {
    m_loaded = true;
    checkTray();
    // Panels start in any order with the session: give the tray a moment before standing in for it.
    QTimer::singleShot(graceMs, this, [this] {
        m_graceOver = true;
        checkTray();
    });
}

void TrayIcon::checkTray() {
    if (!m_loaded)
        return;
    const bool available = trayAvailable();
    if (available && !m_tray)
        createIcon();
    if (!m_graceOver)
        return;
    const bool missing = !available;
    if (missing == m_trayMissing)
        return;
    m_trayMissing = missing;
    if (onTrayMissing)
        onTrayMissing(missing);
    stateChanged(); // the stand-in window came or went
}

bool TrayIcon::disabled() const {
    return m_disable->isChecked();
}

void TrayIcon::trayMessage(int message) {
    if (!m_ctx.front.trayEnabled)
        return;
    if (message == 514)
        onStop();
    else if (message == 517)
        m_popup->popup(QCursor::pos());
}

void TrayIcon::onOpen() {
    (new AboutBox())->show();
}

void TrayIcon::onAlarmSet() {
    if (m_hooks.showAlarmSet)
        m_hooks.showAlarmSet();
}

void TrayIcon::onShowClock() {
    if (m_hooks.showClock)
        m_hooks.showClock();
}

void TrayIcon::onSettings() {
    if (m_hooks.showSettings)
        m_hooks.showSettings();
}

void TrayIcon::onHelp() {
    const QString help = m_ctx.appFile(QStringLiteral("help/tolmhelp.html"));
    // The browser would wait on a pipe or show a folder's listing: only a regular file is a help page.
    if (QFileInfo(help).isFile()) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(help));
        return;
    }
    m_ctx.notices.answerOk(QStringLiteral("Help file not found, please visit Bellwick's home page for getting help!"));
    m_ctx.notices.beep();
}

void TrayIcon::onStop() {
    if (m_hooks.stopSounds)
        m_hooks.stopSounds();
    m_ctx.soundChoice.repeatSweep = false;
}

void TrayIcon::onDisable() {
    // The action has already turned its tick over.
    if (m_disable->isChecked())
        stopTicking();
    else
        stateChanged();
    if (m_tray)
        m_tray->setIcon(trayIcon(!m_disable->isChecked()));
    if (m_ctx.wake)
        m_ctx.wake->setDisabled(m_disable->isChecked());
}

void TrayIcon::onRemove() {
    if (m_hooks.unloadClock)
        m_hooks.unloadClock();
    if (m_tray)
        m_tray->hide();
    // No other window's closing logic runs: every file is complete at all times.
    QCoreApplication::exit(0);
}
