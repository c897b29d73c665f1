#pragma once

#include <QWidget>

// The clock's face text. Unlike a QLabel, a new text is painted at once and posts nothing, so the idle clock
// wakes the program once a second and no more.
class ClockTextLabel : public QWidget {
    Q_OBJECT
public:
    explicit ClockTextLabel(QWidget* parent = nullptr);

    QString text() const { return m_text; }
    void setText(const QString& text);
    void setAlignment(Qt::Alignment alignment);
    // The face's font, made smaller where a text would not fit the label (a long date in a large size).
    QFont shownFont() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_text;
    Qt::Alignment m_alignment = Qt::AlignLeft | Qt::AlignVCenter;
};
