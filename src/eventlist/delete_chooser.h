#pragma once

#include <QList>
#include <QString>

class Context;

// Which of several messages of one alarm time goes together with the current row of lstData.
// The row numbers are kept as given; an alarm that rings meanwhile can leave them naming other rows or none.
class DeleteChooser {
public:
    // Keeps the count and a copy of the rows. With a current row in lstData the first message is put into
    // txtMessageIs and true says the window shows; false says it closes. The browsing place is that of a
    // new chooser, 1, and an open window that is asked again keeps its place.
    bool GetAllMessages(const Context& ctx, int indexOfDimension, const QList<int>& BeKilled, QString& txtMessageIs);

    // ">": the next message, round to the first. When the current row of lstData is gone, the information
    // text changes instead and the beep sounds.
    void ShowMessages(Context& ctx, QString& txtMessageIs, QString& lblInformation);

    // Removes the message on display and the current row of lstData, and has the tick take row 0 anew.
    // Does nothing when the current row is gone. The window closes afterwards in every case.
    void Delete(Context& ctx);

    int iNextMessage() const { return m_iNextMessage; }

private:
    QString messageOf(const Context& ctx, int entry) const;

    int m_indexOfDimension = 0;
    QList<int> m_BeKilled;
    int m_iNextMessage = 1;
};
