#pragma once

#include "message/input_message.h"

#include <QWidget>

class Context;
class MessageTextBox;
class QLabel;
class QPushButton;

// Input Message: the small window in front of the others in which a message is typed. One instance
// serves the whole program; closing it unloads it, and the next opening loads it afresh.
class Form5 : public QWidget {
    Q_OBJECT
public:
    explicit Form5(Context& ctx, QWidget* parent = nullptr);

    // Shows the window: "" for the event just entered, "DoubleClick" for the current row of lstData.
    void GetOldMessageToTextbox(const QString& WhereYouFrom);

    // Brings lstData back from under the hourglass when the window closes.
    std::function<void()>& restoreDataList() { return m_core.restoreDataList; }
    const InputMessage& core() const { return m_core; }

    void cmdOK_Click();
    void cmdCancel_Click();
    void cmdShowMessages_Click();
    void lblPlus_Click();
    void lblMinus_Click();

    MessageTextBox* txtInput;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
    QPushButton* cmdShowMessages;
    QLabel* lblNumberOfMessage;
    QLabel* lblFontSize;
    QLabel* lblMinus;
    QLabel* lblPlus;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Form_Load();
    void Form_Deactivate();
    void unload();
    MessageControls controls() const;
    void showControls(const MessageControls& c);
    void setFontSize(double pointSize);

    Context& m_ctx;
    InputMessage m_core;
};
