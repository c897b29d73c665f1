#pragma once

#include <QList>
#include <QPoint>
#include <QString>

#include <functional>

// The windows the Alarm Set window opens that other parts of the program build. An empty hook does nothing.
struct Form4Hooks {
    // Form5, the message box: "" for the event just entered, "DoubleClick" for the selected row of lstData.
    std::function<void(const QString&)> GetOldMessageToTextbox;
    // Form12: which of several messages of one time goes.
    std::function<void(int, const QList<int>&)> GetAllMessages;
    // mSettings: Form7, restored when minimised, else shown.
    std::function<void()> showSettings;
    // The data-file chooser in its three modes.
    std::function<void()> cmdLoad;
    std::function<void()> cmdSaveFile;
    std::function<void()> cmdEditor;
    // A right press on a row of the event list: Form15's menu at the pointer.
    std::function<void(QPoint)> showEventPopup;
};
