#pragma once

#include <QList>
#include <QString>

class Context;

// Which of several messages of one alarm time goes together with the current row of todayList.
// The row numbers are kept as given; an alarm that rings meanwhile can leave them naming other rows or none.
class DeleteChooser {
public:
    // Keeps the count and a copy of the rows. With a current row in todayList the first message is put into
    // messageText and true says the window shows; false says it closes. The browsing place is that of a
    // new chooser, 1, and an open window that is asked again keeps its place.
    bool chooseMessageToDelete(const Context& ctx, int messageTotal, const QList<int>& doomedRows,
                               QString& messageText);

    // ">": the next message, round to the first. When the current row of todayList is gone, the information
    // text changes instead and the beep sounds.
    void showNext(Context& ctx, QString& messageText, QString& informationLabel);

    // Removes the message on display and the current row of todayList, and has the tick take row 0 anew.
    // Does nothing when the current row is gone. The window closes afterwards in every case.
    void remove(Context& ctx);

    int nextMessage() const { return m_nextMessage; }

private:
    QString messageOf(const Context& ctx, int entry) const;

    int m_messageTotal = 0;
    QList<int> m_doomedRows;
    int m_nextMessage = 1;
};
