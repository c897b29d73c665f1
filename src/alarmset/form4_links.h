#pragma once

#include <QList>
#include <QString>

#include <functional>

// What the Alarm Set procedures ask of their window and of the windows beside it. An empty member is a
// window that isn't there (yet): the call is skipped.
struct Form4Links {
    // Form5: the message box for the event just entered (empty text) or for the selected row ("DoubleClick").
    std::function<void(const QString&)> GetOldMessageToTextbox;
    // Form12: the user picks which of several messages of one time goes; the indexes are rows of lstMessage.
    std::function<void(int, const QList<int>&)> GetAllMessages;
    // Hides lstData under the hourglass (true) while another window works on its current row.
    std::function<void(bool)> setDataListShaded;
    // Shows the event list (Bwklistbox1).
    std::function<void()> showEventList;

    void callGetOldMessageToTextbox(const QString& how) const {
        if (GetOldMessageToTextbox)
            GetOldMessageToTextbox(how);
    }
    void callGetAllMessages(int count, const QList<int>& rows) const {
        if (GetAllMessages)
            GetAllMessages(count, rows);
    }
    void shadeDataList() const {
        if (setDataListShaded)
            setDataListShaded(true);
    }
    void callShowEventList() const {
        if (showEventList)
            showEventList();
    }
};
