#include "engine/remind_me.h"

#include "platform/clock.h"
#include "platform/numeric.h"

QString RemindMe::title(const QDateTime& now) {
    return QStringLiteral("Message  ") + captionMoment(now);
}

RemindMe::OkResult RemindMe::ok(const QString& txtMinutes, const QString& chosenPlay, const QDateTime& now) {
    if (txtMinutes.isEmpty())
        return OkResult::Close;
    const long minutes = leadingDigitsValue(txtMinutes);
    if (minutes == 0)
        return OkResult::ZeroRefused;
    iMinutesLeft = static_cast<int>(minutes);
    blnCounting = true;
    iLastMinute = now.time().minute();
    strTimesOfPlay = chosenPlay.isEmpty() ? QStringLiteral("once") : chosenPlay;
    return OkResult::Counting;
}

bool RemindMe::step(const QDateTime& now, QString& txtMsg) {
    if (!blnCounting || now.time().minute() == iLastMinute)
        return false;
    iLastMinute = now.time().minute();
    --iMinutesLeft;
    if (iMinutesLeft != 0)
        return false;
    blnCounting = false;
    txtMsg = txtMsg.left(qMax<qsizetype>(0, txtMsg.size() - 8)) + timeText(now);
    return true;
}
