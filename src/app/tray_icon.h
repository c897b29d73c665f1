#pragma once

#include "engine/alarm_tick.h"
#include "engine/tick_planner.h"
#include "platform/sleep_timer.h"

#include <QElapsedTimer>
#include <QObject>
#include <QSystemTrayIcon>
#include <QTimer>

#include <functional>
#include <memory>

class Context;
class QAction;
class QMenu;

// What the tray menu opens, wired by the program's start.
struct TrayHooks {
    std::function<void()> stopSounds;   // ends wave, midi and speaker sweeps
    std::function<void()> showAlarmSet; // the Alarm Set window, wanted from now on
    std::function<void()> showClock;    // the desktop clock
    std::function<void()> showSettings; // the Settings window
    std::function<void()> unloadClock;  // the desktop clock goes, saving its place
};

// The never-seen start-up object: the tick, the tray icon and its menu. The tick keeps its 800 ms pace while
// something may happen soon and sleeps until just before the next duty otherwise (tick_planner).
class TrayIcon : public QObject {
    Q_OBJECT
public:
    // How long the tick keeps its pace after the engine's state changed.
    static constexpr qint64 kChangedPaceMs = 3000;

    // Without a sleep timer of the system's, a Qt timer sleeps.
    TrayIcon(Context& ctx, TrayHooks hooks, std::unique_ptr<SleepTimer> sleep = nullptr);

    // Shows the tray icon once a tray is there; the tick runs from construction on. A tray missing after the grace
    // period, or going and coming later, is told to onTrayMissing.
    void load(int graceMs = 4000);
    std::function<void(bool missing)> onTrayMissing;
    std::function<bool()> trayAvailable = [this] { return defaultTrayAvailable(); };
    // Looked at on every tick: no wake-up of its own.
    void checkTray();

    // Something changed the engine's state (an add, a delete, a load, an edit, a box answered, a command): a tick
    // comes within 800 ms, and the pace holds for a while.
    void stateChanged();
    // A shown window whose text tells the time keeps the pace.
    std::function<bool()> alarmSetShown = [] { return false; };

    AlarmTick& tick() { return m_tick; }
    // The paced tick and its landings on a due second; stopped while asleep.
    QTimer& timer() { return m_timer; }
    SleepTimer& sleepTimer() { return *m_sleep; }
    const TickPlan& plan() const { return m_plan; }
    // Null until a tray was there to take the icon.
    QSystemTrayIcon* tray() const { return m_tray; }
    QMenu* menu() const { return m_popup; }
    bool disabled() const;

    // The mouse on the tray icon: 514 left button up, 517 right button up.
    void trayMessage(int message);

    void onOpen();
    void onAlarmSet();
    void onShowClock();
    void onSettings();
    void onHelp();
    void onStop();
    void onDisable();
    void onRemove();

    // Installed on the application: a key or a click may have changed the engine's state.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildMenu();
    void createIcon();
    bool defaultTrayAvailable() const;
    void runTick();
    void schedule();
    void stopTicking();

    Context& m_ctx;
    TrayHooks m_hooks;
    AlarmTick m_tick;
    QTimer m_timer;
    std::unique_ptr<SleepTimer> m_sleep;
    TickPlan m_plan;
    QElapsedTimer m_changed;
    QString m_readied; // the alarm whose sound was readied
    bool m_boxUp = false;
    QSystemTrayIcon* m_tray = nullptr;
    QMenu* m_popup = nullptr;
    QAction* m_disable = nullptr;
    bool m_loaded = false;
    bool m_graceOver = false;
    bool m_trayMissing = false;
};
