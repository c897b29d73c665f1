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

private:
    static std::map<int, QPointer<QWidget>>& windows();
};
