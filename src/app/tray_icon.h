#pragma once

#include "engine/alarm_tick.h"

#include <QObject>
#include <QSystemTrayIcon>
#include <QTimer>

#include <functional>

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

// The never-seen start-up object: the 800 ms tick, the tray icon and its menu.
class TrayIcon : public QObject {
    Q_OBJECT
public:
    TrayIcon(Context& ctx, TrayHooks hooks);

    // Shows the tray icon once a tray is there; the tick runs from construction on. A tray missing after the grace
    // period, or going and coming later, is told to onTrayMissing.
    void load(int graceMs = 4000);
    std::function<void(bool missing)> onTrayMissing;
    std::function<bool()> trayAvailable = [this] { return defaultTrayAvailable(); };
    // Looked at on every tick: no wake-up of its own.
    void checkTray();

    AlarmTick& tick() { return m_tick; }
    QTimer& timer() { return m_timer; }
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

private:
    void buildMenu();
    void createIcon();
    bool defaultTrayAvailable() const;

    Context& m_ctx;
    TrayHooks m_hooks;
    AlarmTick m_tick;
    QTimer m_timer;
    QSystemTrayIcon* m_tray = nullptr;
    QMenu* m_popup = nullptr;
    QAction* m_disable = nullptr;
    bool m_loaded = false;
    bool m_graceOver = false;
    bool m_trayMissing = false;
};
