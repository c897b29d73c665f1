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
class Form6 : public QDialog {
    Q_OBJECT
public:
    Form6(Context& ctx, const QString& text);

    QString txtMsg() const { return m_text; }
    void setTxtMsg(const QString& text);

    void Timer1_Timer();
    void cmdOK_Click();

    QLineEdit* txtMinutes;
    QComboBox* cbTimesOfPlay;
    const RemindMe& countdown() const { return m_remind; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Context& m_ctx;
    RemindMe m_remind;
    QString m_text;
    QPlainTextEdit* m_txtMsg;
    QPushButton* cmdOK;
    QTimer* Timer1;
};
