#pragma once

#include "message/input_message.h"

#include <QWidget>

class Context;
class MessageTextBox;
class QLabel;
class QPushButton;
class QToolButton;

// Input Message: the small window in front of the others in which a message is typed. One instance
// serves the whole program; closing it unloads it, and the next opening loads it afresh.
class InputMessageWindow : public QWidget {
    Q_OBJECT
public:
    explicit InputMessageWindow(Context& ctx, QWidget* parent = nullptr);

    // Shows the window: "" for the event just entered, "DoubleClick" for the current row of todayList.
    void openInputMessage(const QString& origin);

    // Brings todayList back from under the hourglass when the window closes.
    std::function<void()>& restoreTodayList() { return m_core.restoreTodayList; }
    const InputMessage& core() const { return m_core; }

    void onOkClicked();
    void onCancelClicked();
    void onNextMessageClicked();
    void onPlusClicked();
    void onMinusClicked();

    MessageTextBox* input;
    QPushButton* okButton;
    QPushButton* cancelButton;
    QPushButton* nextMessageButton;
    QLabel* messageNumberLabel;
    QLabel* fontSizeLabel;
    QToolButton* minusButton;
    QToolButton* plusButton;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void load();
    void onDeactivated();
    void unload();
    MessageControls controls() const;
    void showControls(const MessageControls& c);
    void setFontSize(double pointSize);

    Context& m_ctx;
    InputMessage m_core;
};
