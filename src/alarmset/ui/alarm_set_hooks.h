#pragma once

#include <QList>
#include <QPoint>
#include <QString>

#include <functional>

// The windows the Alarm Set window opens that other parts of the program build. An empty hook does nothing.
struct AlarmSetHooks {
    // InputMessageWindow, the message box: "" for the event just entered, "DoubleClick" for the selected row of
    // todayList.
    std::function<void(const QString&)> openInputMessage;
    // DeleteChooserWindow: which of several messages of one time goes.
    std::function<void(int, const QList<int>&)> chooseMessageToDelete;
    // settingsAction: SettingsWindow, restored when minimised, else shown.
    std::function<void()> showSettings;
    // The data-file chooser in its three modes.
    std::function<void()> openLoadChooser;
    std::function<void()> openSaveChooser;
    std::function<void()> openEditorChooser;
    // A right press on a row of the event list: EventPopup's menu at the pointer.
    std::function<void(QPoint)> showEventPopup;
};
