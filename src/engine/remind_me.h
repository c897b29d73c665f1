#pragma once

#include <QDateTime>
#include <QString>

// The countdown of a message window: after N changes of the clock minute it rings again.
class RemindMe {
public:
    enum class OkResult { Close, ZeroRefused, Counting };

    // The window's title for this moment.
    static QString title(const QDateTime& now);
    // Only digits and backspace can be typed into the minutes box.
    static bool keyAllowed(QChar key) { return (key.isDigit() && key.unicode() < 128) || key == QChar(8); }
    // A minutes text of three characters or more is emptied: 99 minutes at most.
    static bool tooLong(const QString& text) { return text.size() >= 3; }

    // OK pressed with this minutes text and chosen play word (empty for none).
    OkResult ok(const QString& minutesEdit, const QString& chosenPlay, const QDateTime& now);
    // One second of the window's timer. True when the reminder runs out now: messageText then ends in the present time.
    bool step(const QDateTime& now, QString& messageText);

    bool counting = false;
    int lastMinute = 0;
    int minutesLeft = 0;
    QString playWord;
};
