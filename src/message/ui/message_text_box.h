#pragma once

#include <QPlainTextEdit>

// The message box: a typed, pasted or composed double quote goes in as an apostrophe, and nothing takes the
// text past the length a message may have. Return starts a new line; Tab moves on to the buttons.
class MessageTextBox : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit MessageTextBox(QWidget* parent = nullptr);

    // The text as a message is kept, with CR LF line breaks, and back.
    QString message() const;
    void setMessage(const QString& message);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;
    void inputMethodEvent(QInputMethodEvent* event) override;

private:
    QString fitting(const QString& inserted) const;
};
