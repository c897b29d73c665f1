#include "platform/clock.h"

#include <QLocale>

QString Clock::dateText() const {
    refreshTexts();
    return m_dateText;
}

QString Clock::timeText() const {
    refreshTexts();
    return m_timeText;
}

qint64 Clock::secondKey() const {
    const QDateTime t = now();
    return t.date().toJulianDay() * 86400 + t.time().msecsSinceStartOfDay() / 1000;
}

Clock::Present Clock::present() const {
    refreshTexts();
    return {m_dateText, m_timeText};
}

void Clock::refreshTexts() const {
    const qint64 key = secondKey();
    if (key == m_textKey)
        return;
    m_textKey = key;
    const QDateTime t = now();
    m_dateText = ::dateText(t);
    m_timeText = ::timeText(t);
}

namespace {
qint64 floorSecond(qint64 msecsSinceEpoch) {
    return msecsSinceEpoch >= 0 ? msecsSinceEpoch / 1000 : (msecsSinceEpoch - 999) / 1000;
}
} // namespace

qint64 SystemClock::secondKey() const {
    return floorSecond(QDateTime::currentMSecsSinceEpoch());
}

QDateTime SystemClock::now() const {
    const qint64 ms = QDateTime::currentMSecsSinceEpoch();
    const qint64 second = floorSecond(ms);
    const qint64 period = second >= 0 ? second / m_zoneCheckSeconds : (second + 1) / m_zoneCheckSeconds - 1;
    if (period != m_offsetPeriod) {
        m_offset = localOffset(ms);
        m_offsetPeriod = period;
    }
    return QDateTime::fromMSecsSinceEpoch(ms, Qt::OffsetFromUTC, m_offset);
}

int SystemClock::localOffset(qint64 msecsSinceEpoch) const {
    return QDateTime::fromMSecsSinceEpoch(msecsSinceEpoch, Qt::LocalTime).offsetFromUtc();
}

namespace {
// Formatted by hand: the schedule load asks for these texts for every record.
void putDigits(QChar*& out, int value, int width) {
    for (int i = width - 1; i >= 0; --i) {
        out[i] = QChar(u'0' + value % 10);
        value /= 10;
    }
    out += width;
}
} // namespace

QString dateText(const QDateTime& t) {
    const QDate d = t.date();
    QString text(10, Qt::Uninitialized);
    QChar* out = text.data();
    putDigits(out, d.year(), 4);
    *out++ = u'/';
    putDigits(out, d.month(), 2);
    *out++ = u'/';
    putDigits(out, d.day(), 2);
    return text;
}

QString timeText(const QDateTime& t) {
    const QTime time = t.time();
    QString text(8, Qt::Uninitialized);
    QChar* out = text.data();
    putDigits(out, time.hour(), 2);
    *out++ = u':';
    putDigits(out, time.minute(), 2);
    *out++ = u':';
    putDigits(out, time.second(), 2);
    return text;
}

QString captionMoment(const QDateTime& t) {
    // The C locale gives English month names and AM/PM whatever the desktop's language.
    return QLocale::c().toString(t, QStringLiteral("dd MMM yyyy / hh:mm AP"));
}

QString twelveHourTime(const QString& hhmmss) {
    const QTime time = QTime::fromString(hhmmss, QStringLiteral("HH:mm:ss"));
    if (!time.isValid())
        return hhmmss;
    return QLocale::c().toString(time, QStringLiteral("hh:mm:ss AP"));
}
