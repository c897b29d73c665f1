#pragma once

#include "engine/remind_me.h"

#include <QDialog>

class Context;
class QComboBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QTimer;

// A fired alarm's message, with "Remind me": the window hides and rings again after some minutes.
class MessageWindow : public QDialog {
    Q_OBJECT
public:
    MessageWindow(Context& ctx, const QString& text);
    // The most characters of a message the box is given: far beyond any typed message, and a message of
    // megabytes from a hand-made schedule would hold the program up for many seconds while the alarm rings.
    static constexpr int kShownLength = 64 * 1024;

    QString messageText() const { return m_text; }
    void setMessageText(const QString& text);

    void onTick();
    void onOkClicked();

    QLineEdit* minutesEdit;
    QComboBox* playCountBox;
    const RemindMe& countdown() const { return m_remind; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void fitPlayCountText();
    Context& m_ctx;
    RemindMe m_remind;
    QString m_text;
    QPlainTextEdit* m_messageEdit;
    QPushButton* okButton;
    QTimer* timer;
};
