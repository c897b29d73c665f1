#pragma once

#include "eventlist/delete_chooser.h"

#include <QWidget>

class Context;
class QLabel;
class QPlainTextEdit;
class QPushButton;

// "Delete Alarm Event": which of several messages of one alarm time goes. Not modal; todayList of the
// Alarm Set window lies under the hourglass while it stands, and comes back when it closes.
class DeleteChooserWindow : public QWidget {
    Q_OBJECT
public:
    // The messages are the rows of todayMessages numbered in doomedRows, all of the current row's time.
    static void chooseMessageToDelete(Context& ctx, int messageTotal, const QList<int>& doomedRows);
    static DeleteChooserWindow* instance();

    void onNextMessageClicked();
    void onDeleteClicked();
    void onCancelClicked();

    QPushButton* nextMessageButton;
    QLabel* informationLabel;
    QPlainTextEdit* messageText;
    QPushButton* deleteButton;
    QPushButton* cancelButton;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    explicit DeleteChooserWindow(Context& ctx);
    void showMessage();

    Context& m_ctx;
    DeleteChooser m_chooser;
    QString m_message; // the message on display, line breaks as stored
};
