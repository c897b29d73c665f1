#include "engine/ui/bellwick_app.h"

#include "alarmset/ui/form4.h"
#include "alarmset/ui/form4_host.h"
#include "clock/ui/form2.h"
#include "datafiles/ui/form14.h"
#include "engine/context.h"
#include "engine/startup.h"
#include "engine/ui/form1.h"
#include "eventlist/ui/bwklistbox_view.h"
#include "eventlist/ui/form12.h"
#include "eventlist/ui/form15.h"
#include "message/ui/form5.h"
#include "platform/clock.h"
#include "platform/data_folder.h"
#include "platform/linux/linux_sound_devices.h"
#include "platform/single_instance.h"
#include "platform/ui/window_twips.h"
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

    QApplication::setFont(window_twips::designFont(QApplication::font()));
    Program program;
    Context& ctx = program.ctx;
    ctx.m.strAppPath = data_folder::programFolder();
    data_folder::prepare(ctx.m.strAppPath, data_folder::bundledFolder());

    Form4Host alarmSet(ctx);
    ctx.form4Ui = &alarmSet;

    QPointer<Form7> settingsWindow;
    QPointer<Form2> desktopClock;
    auto clockWindow = [&ctx, &desktopClock, &alarmSet] {
        if (!desktopClock) {
            desktopClock = new Form2(ctx);
            desktopClock->showForm4 = [&alarmSet] { alarmSet.showAlarmSet(); };
        }
        return desktopClock.data();
    };
    Form1Hooks hooks;
    hooks.showClock = [&clockWindow] { clockWindow()->ShowFromTray(); };
    hooks.unloadClock = [&desktopClock] {
        if (desktopClock)
            desktopClock->close();
    };
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
    alarmSet.hooks.GetAllMessages = [&ctx](int count, const QList<int>& rows) {
        Form12::GetAllMessages(ctx, count, rows);
    };
    alarmSet.hooks.showEventPopup = [&ctx, &alarmSet](QPoint globalPos) {
        Form15::popupAt(ctx, globalPos, alarmSet.form() ? alarmSet.form()->Bwklistbox1 : nullptr);
    };
    alarmSet.hooks.cmdLoad = [&ctx] { Form14::openLoad(ctx); };
    alarmSet.hooks.cmdSaveFile = [&ctx] { Form14::openSave(ctx); };
    alarmSet.hooks.cmdEditor = [&ctx] { Form14::openEditor(ctx); };
    QPointer<Form5> messageInput;
    alarmSet.hooks.GetOldMessageToTextbox = [&ctx, &messageInput](const QString& how) {
        if (!messageInput)
            messageInput = new Form5(ctx);
        messageInput->GetOldMessageToTextbox(how);
    };
    Form1 form1(ctx, hooks);
    StartupHooks startup;
    startup.showSmallClock = [&clockWindow] {
        Form2* clock = clockWindow();
        clock->show();
        clock->mOn->setChecked(true);
    };
    fForm1Load(ctx, startup);
    form1.Form_Load();
    return QApplication::exec();
}
