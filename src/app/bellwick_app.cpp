#include "app/bellwick_app.h"

#include "alarmset/ui/alarm_set_host.h"
#include "alarmset/ui/alarm_set_window.h"
#include "app/tray_icon.h"
#include "clock/ui/desktop_clock.h"
#include "datafiles/ui/data_file_chooser.h"
#include "engine/command_service.h"
#include "engine/context.h"
#include "engine/show_request.h"
#include "engine/startup.h"
#include "engine/wake_alarm.h"
#include "eventlist/ui/delete_chooser_window.h"
#include "eventlist/ui/event_list_view.h"
#include "eventlist/ui/event_popup.h"
#include "message/ui/input_message_window.h"
#include "platform/clock.h"
#include "platform/command_channel.h"
#include "platform/data_folder.h"
#include "platform/linux/linux_sound_devices.h"
#include "platform/linux/linux_wake_timer.h"
#include "platform/linux/timerfd_sleep_timer.h"
#include "platform/single_instance.h"
#include "platform/ui/window_roles.h"
#include "platform/ui/window_twips.h"
#include "recurring/recurring_arming.h"
#include "settings/ui/settings_window.h"
#include "sound/routed_notices.h"
#include "sound/sound_player.h"
#include "sound/ui/widget_notices.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

#include <cstdio>
#include <cstdlib>

namespace {

// Everything that lives as long as the program; members refer to each other, so the order matters.
struct Program {
    SystemClock clock;
    LinuxSoundDevices devices;
    WidgetNotices windowNotices{ctx};
    // A command-line add speaks through its answer, not through a window.
    RoutedNotices notices{windowNotices};
    SoundPlayer sound{ctx, devices.devices()};
    Context ctx{clock, notices, sound};
};

} // namespace

int BellwickApp::run() {
    SingleInstance instance;
    if (instance.isAnotherRunning()) {
        QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Bellwick Alarm Clock sp"),
                        QStringLiteral("Application is already running!"), QMessageBox::Ok);
        box.exec();
        return 0;
    }

    QApplication::setFont(window_twips::designFont(QApplication::font()));
    window_roles::install();
    Program program;
    Context& ctx = program.ctx;
    ctx.folder = data_folder::programFolder();
    data_folder::prepare(ctx.folder, data_folder::bundledFolder());

    AlarmSetHost alarmSet(ctx);
    ctx.alarmSetUi = &alarmSet;

    QPointer<SettingsWindow> settingsWindow;
    QPointer<DesktopClock> desktopClock;
    auto clockWindow = [&ctx, &desktopClock, &alarmSet] {
        if (!desktopClock) {
            desktopClock = new DesktopClock(ctx);
            desktopClock->showAlarmSet = [&alarmSet] { alarmSet.showAlarmSet(); };
        }
        return desktopClock.data();
    };
    TrayHooks hooks;
    hooks.showClock = [&clockWindow] { clockWindow()->showFromTray(); };
    hooks.unloadClock = [&desktopClock] {
        if (desktopClock)
            desktopClock->close();
    };
    hooks.stopSounds = [&program] { program.sound.stopSounds(); };
    hooks.showAlarmSet = [&alarmSet] { alarmSet.showAlarmSet(); };
    hooks.showSettings = [&ctx, &settingsWindow] {
        if (settingsWindow && settingsWindow->isMinimized()) {
            settingsWindow->setWindowState(settingsWindow->windowState() & ~Qt::WindowMinimized);
            return;
        }
        if (!settingsWindow)
            settingsWindow = new SettingsWindow(ctx);
        settingsWindow->show();
        settingsWindow->raise();
        settingsWindow->activateWindow();
    };
    alarmSet.hooks.showSettings = hooks.showSettings;
    alarmSet.hooks.chooseMessageToDelete = [&ctx](int count, const QList<int>& rows) {
        DeleteChooserWindow::chooseMessageToDelete(ctx, count, rows);
    };
    alarmSet.hooks.showEventPopup = [&ctx, &alarmSet](QPoint globalPos) {
        EventPopup::popupAt(ctx, globalPos, alarmSet.form() ? alarmSet.form()->eventListView : nullptr);
    };
    alarmSet.hooks.openLoadChooser = [&ctx] { DataFileChooser::openLoad(ctx); };
    alarmSet.hooks.openSaveChooser = [&ctx] { DataFileChooser::openSave(ctx); };
    alarmSet.hooks.openEditorChooser = [&ctx] { DataFileChooser::openEditor(ctx); };
    QPointer<InputMessageWindow> messageInput;
    alarmSet.hooks.openInputMessage = [&ctx, &messageInput](const QString& how) {
        if (!messageInput)
            messageInput = new InputMessageWindow(ctx);
        messageInput->openInputMessage(how);
    };
    // The helper stands beside the program in the build, and in libexec when installed.
    const QString programDir = QCoreApplication::applicationDirPath();
    LinuxWakeTimer wakeTimer({programDir + QStringLiteral("/bellwick-wake"),
                              programDir + QStringLiteral("/../libexec/bellwick/bellwick-wake")});
    const char* advanceText = std::getenv("BELLWICK_WAKE_ADVANCE");
    std::optional<qint64> advance = wake_plan::advanceMs(advanceText, advanceText != nullptr);
    if (!advance) {
        std::fprintf(stderr,
                     "bellwick: BELLWICK_WAKE_ADVANCE='%s' is no number of seconds up to 86400, nor 'off': "
                     "waking 60 seconds ahead\n",
                     advanceText);
        advance = 60000;
    }
    WakeAlarm wake(ctx, wakeTimer, *advance);
    ctx.wake = &wake;
    TrayIcon tray(ctx, hooks, std::make_unique<TimerfdSleepTimer>());
    tray.alarmSetShown = [&alarmSet] { return alarmSet.form() && alarmSet.form()->isVisible(); };
    // Every change of the engine's state comes of a key, a click or a command: the tick looks at once.
    qApp->installEventFilter(&tray);
    StartupHooks startup;
    startup.showSmallClock = [&clockWindow] {
        DesktopClock* clock = clockWindow();
        clock->show();
        clock->showAtStartAction->setChecked(true);
    };
    tray.onTrayMissing = [&alarmSet, &tray](bool missing) {
        if (missing)
            std::fputs("bellwick: no notification area (system tray) found; the Alarm Set window stands in for "
                       "it, with the tray menu as its Bellwick menu, and closing it only minimises it\n",
                       stderr);
        else
            std::fputs("bellwick: a notification area is there now; the icon is back in it\n", stderr);
        tray.menu()->setTitle(QStringLiteral("&Bellwick"));
        alarmSet.standInForTray(missing ? tray.menu() : nullptr);
    };
    // Only the sub-commands talk to it; a plain second start still meets the lock above.
    // "--show" opens a window as the tray menu's entry does, and is refused as the menu is while an error box is up.
    auto showWindow = [&ctx, &tray](const QString& window) {
        if (!ctx.front.trayEnabled)
            return QStringLiteral("an error box is open: answer it first");
        if (window == QLatin1String("alarm-set"))
            tray.onAlarmSet();
        else if (window == QLatin1String("settings"))
            tray.onSettings();
        else
            tray.onShowClock();
        return QString();
    };
    command_service::WaitingAdds waitingAdds(ctx);
    CommandServer commands([&ctx, &program, &tray, &waitingAdds, &showWindow](const QByteArray& request) {
        if (const auto answer = show_request::serve(request, showWindow))
            return *answer;
        QByteArray answer = command_service::serve(ctx, program.notices, request, waitingAdds);
        tray.stateChanged();
        return answer;
    });
    QString channelError;
    if (!commands.listen(command_channel::socketPath(), channelError))
        std::fprintf(stderr, "bellwick: no command channel for 'bellwick add' and 'list': %s\n",
                     qPrintable(channelError));
    startUp(ctx, startup);
    recurring_arming::armAtStart(ctx);
    tray.stateChanged();
    tray.load();
    return QApplication::exec();
}
