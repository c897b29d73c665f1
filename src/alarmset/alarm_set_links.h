#pragma once

#include <QList>
#include <QString>

#include <functional>

// What the Alarm Set procedures ask of their window and of the windows beside it. An empty member is a
// window that isn't there (yet): the call is skipped.
struct AlarmSetLinks {
    // InputMessageWindow: the message box for the event just entered (empty text) or for the selected row
    // ("DoubleClick").
    std::function<void(const QString&)> openInputMessage;
    // DeleteChooserWindow: the user picks which of several messages of one time goes; the indexes are rows of
    // todayMessages.
    std::function<void(int, const QList<int>&)> chooseMessageToDelete;
    // Hides todayList under the hourglass (true) while another window works on its current row.
    std::function<void(bool)> setTodayListShaded;
    // Shows the event list (eventListView).
    std::function<void()> showEventList;

    void callOpenInputMessage(const QString& how) const {
        if (openInputMessage)
            openInputMessage(how);
    }
    void callChooseMessageToDelete(int count, const QList<int>& rows) const {
        if (chooseMessageToDelete)
            chooseMessageToDelete(count, rows);
    }
    void shadeTodayList() const {
        if (setTodayListShaded)
            setTodayListShaded(true);
    }
    void callShowEventList() const {
        if (showEventList)
            showEventList();
    }
};
