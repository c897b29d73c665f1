#pragma once

#include "eventlist/delete_chooser.h"

#include <QWidget>

class Context;
class QLabel;
class QPlainTextEdit;
class QPushButton;

// "Delete Alarm Event": which of several messages of one alarm time goes. Not modal; lstData of the
// Alarm Set window lies under the hourglass while it stands, and comes back when it closes.
class Form12 : public QWidget {
    Q_OBJECT
public:
    // The messages are the rows of lstMessage numbered in BeKilled, all of the current row's time.
    static void GetAllMessages(Context& ctx, int indexOfDimension, const QList<int>& BeKilled);
    static Form12* instance();

    void cmdShowMessages_Click();
    void cmdDelete_Click();
    void cmdCancel_Click();

    QPushButton* cmdShowMessages;
    QLabel* lblInformation;
    QPlainTextEdit* txtMessageIs;
    QPushButton* cmdDelete;
    QPushButton* cmdCancel;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    explicit Form12(Context& ctx);
    void showMessage();

    Context& m_ctx;
    DeleteChooser m_chooser;
    QString m_message; // the message on display, line breaks as stored
};
