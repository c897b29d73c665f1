#include "engine/ui/bellwick_app.h"

#include "alarmset/ui/form4_host.h"
#include "engine/context.h"
#include "engine/startup.h"
#include "engine/ui/form1.h"
#include "platform/clock.h"
#include "platform/data_folder.h"
#include "platform/linux/linux_sound_devices.h"
#include "platform/single_instance.h"
#include "settings/ui/form7.h"
#include "sound/form9.h"
#include "sound/ui/widget_notices.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>

namespace {

// Everything that lives as long as the program; members refer to each other, so the order matters.
struct Program {
    SystemClock clock;
    LinuxSoundDevices devices;
    WidgetNotices notices{ctx};
    Form9 sound{ctx, devices.devices()};
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

    Program program;
    Context& ctx = program.ctx;
    ctx.m.strAppPath = data_folder::programFolder();
    data_folder::prepare(ctx.m.strAppPath, data_folder::bundledFolder());

    Form4Host alarmSet(ctx);
    ctx.form4Ui = &alarmSet;

    QPointer<Form7> settingsWindow;
    Form1Hooks hooks;
    hooks.mStop = [&program] { program.sound.mStop(); };
    hooks.showAlarmSet = [&alarmSet] { alarmSet.showAlarmSet(); };
    hooks.showSettings = [&ctx, &settingsWindow] {
        if (settingsWindow && settingsWindow->isMinimized()) {
            settingsWindow->setWindowState(settingsWindow->windowState() & ~Qt::WindowMinimized);
            return;
        }
        if (!settingsWindow)
            settingsWindow = new Form7(ctx);
        settingsWindow->show();
        settingsWindow->raise();
        settingsWindow->activateWindow();
    };
    alarmSet.hooks.showSettings = hooks.showSettings;
    Form1 form1(ctx, hooks);
    fForm1Load(ctx, StartupHooks{});
    form1.Form_Load();
    return QApplication::exec();
}
