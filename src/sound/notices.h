#pragma once

#include <QString>

// A list of bad records of a file, shown in its own window.
class ErrorList {
public:
    virtual ~ErrorList() = default;
    virtual void addLine(const QString& text) = 0;
    virtual void showList() = 0;
};

// The ways the program speaks to the user.
class Notices {
public:
    virtual ~Notices() = default;
    // A warning window; returns as soon as it stands.
    virtual void answerOk(const QString& text) = 0;
    // A new message window, topmost and shown, with this text.
    virtual void showAlarmWindow(const QString& text) = 0;
    // A new error list for one load, and the one shared by the data files.
    virtual ErrorList& newErrorList() = 0;
    virtual ErrorList& sharedErrorList() = 0;
    virtual void beep() = 0;
    // A system-modal box with the program's own title; returns when the user has answered.
    virtual void systemModalBox(const QString& text) = 0;
};
