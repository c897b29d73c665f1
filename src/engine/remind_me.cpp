#include "engine/remind_me.h"

#include "platform/clock.h"
#include "platform/numeric.h"

QString RemindMe::title(const QDateTime& now) {
    return QStringLiteral("Message  ") + captionMoment(now);
}

RemindMe::OkResult RemindMe::ok(const QString& minutesEdit, const QString& chosenPlay, const QDateTime& now) {
    if (minutesEdit.isEmpty())
        return OkResult::Close;
    const long minutes = leadingDigitsValue(minutesEdit);
    if (minutes == 0)
        return OkResult::ZeroRefused;
    minutesLeft = static_cast<int>(minutes);
    counting = true;
    lastMinute = now.time().minute();
    playWord = chosenPlay.isEmpty() ? QStringLiteral("once") : chosenPlay;
    return OkResult::Counting;
}

bool RemindMe::step(const QDateTime& now, QString& messageText) {
    if (!counting || now.time().minute() == lastMinute)
        return false;
    lastMinute = now.time().minute();
    --minutesLeft;
    if (minutesLeft != 0)
        return false;
    counting = false;
    messageText = messageText.left(qMax<qsizetype>(0, messageText.size() - 8)) + timeText(now);
    return true;
}
