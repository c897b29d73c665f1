#pragma once

#include <QDateTime>
#include <QString>

// The one source of the present moment, so tests can drive the tick through any second.
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;

    // "yyyy/mm/dd" and "hh:mm:ss" (24-hour), the forms every comparison uses.
    QString dateText() const;
    QString timeText() const;
};

class SystemClock : public Clock {
public:
    QDateTime now() const override { return QDateTime::currentDateTime(); }
};

class FakeClock : public Clock {
public:
    explicit FakeClock(QDateTime start = QDateTime(QDate(2002, 5, 1), QTime(8, 0, 0))) : m_now(start) {}
    QDateTime now() const override { return m_now; }
    void set(const QDateTime& t) { m_now = t; }
    void set(int y, int mo, int d, int h, int mi, int s, int ms = 0) {
        m_now = QDateTime(QDate(y, mo, d), QTime(h, mi, s, ms));
    }
    void advanceMs(qint64 ms) { m_now = m_now.addMSecs(ms); }

private:
    QDateTime m_now;
};

// Text forms of a moment.
QString dateText(const QDateTime& t);
QString timeText(const QDateTime& t);
// "dd mmm yyyy / hh:mm AM/PM", as in 01 May 2002 / 08:30 PM
QString captionMoment(const QDateTime& t);
// "hh:mm:ss AM/PM" of a "hh:mm:ss" 24-hour text
QString twelveHourTime(const QString& hhmmss);
