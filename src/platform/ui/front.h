#pragma once

#include <QPointer>
#include <QWidget>

#include <map>

// Windows that behave as modal without being modal claim the front by number: 1 the message input,
// 13 the file chooser, 157 the overwrite question, a warning's serial from 1000000 up.
class Front {
public:
    static void registerWindow(int who, QWidget* window);
    // Gives the front back to the window of that number, if it is visible; other numbers do nothing.
    static void bringToFront(int who);

    // The system-modal box that stands, if any: it stays above every window, the topmost ones included, so a
    // window raised while it stands puts the box back above it.
    static void setSystemBox(QWidget* box);
    static void keepSystemBoxOnTop();

private:
    static std::map<int, QPointer<QWidget>>& windows();
    static QPointer<QWidget>& systemBox();
};
