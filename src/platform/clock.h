#pragma once

#include <QDateTime>
#include <QString>

#include <limits>

// The one source of the present moment, so tests can drive the tick through any second.
class Clock {
public:
    virtual ~Clock() = default;
    virtual QDateTime now() const = 0;

    // "yyyy/mm/dd" and "hh:mm:ss" (24-hour), the forms every comparison uses. The present moment is asked for
    // anew on every call; the texts are formatted again only when its second has changed.
    QString dateText() const;
    QString timeText() const;
    // Both at one reading of the clock, without a copy: they refer to the clock's own texts, which change at its
    // next reading. A schedule load asks twice for every record.
    struct Present {
        const QString& date;
        const QString& time;
    };
    Present present() const;

protected:
    // A number that changes with the present second (and with nothing else that shows in the texts).
    virtual qint64 secondKey() const;

private:
    void refreshTexts() const;
    mutable qint64 m_textKey = std::numeric_limits<qint64>::min();
    mutable QString m_dateText;
    mutable QString m_timeText;
};

// The system's clock in the local zone. The zone's offset is looked up at most once a minute of universal time:
// a lookup costs file system calls, a schedule load asks for the present moment for every record, and the idle
// program asks for it several times a second. Zones change their offset only at the turn of a minute, so a
// daylight-saving change counts from its own second; a new zone chosen by the user counts from the next minute.
class SystemClock : public Clock {
public:
    explicit SystemClock(int zoneCheckSeconds = 60) : m_zoneCheckSeconds(zoneCheckSeconds) {}
    QDateTime now() const override;

protected:
    qint64 secondKey() const override;
    // The local zone's offset from universal time at this moment, in seconds.
    virtual int localOffset(qint64 msecsSinceEpoch) const;

private:
    const int m_zoneCheckSeconds;
    mutable qint64 m_offsetPeriod = std::numeric_limits<qint64>::min();
    mutable int m_offset = 0;
};

class FakeClock : public Clock {
public:
    explicit FakeClock(QDateTime start = QDateTime(QDate(2002, 5, 1), QTime(8, 0, 0))) : m_now(start) {}
    // Each reading moves the clock on by the step, as time passes during long work (0 by default).
    QDateTime now() const override {
        const QDateTime t = m_now;
        if (m_step)
            m_now = m_now.addMSecs(m_step);
        return t;
    }
    void setStepPerReading(qint64 ms) { m_step = ms; }
    void set(const QDateTime& t) { m_now = t; }
    void set(int y, int mo, int d, int h, int mi, int s, int ms = 0) {
        m_now = QDateTime(QDate(y, mo, d), QTime(h, mi, s, ms));
    }
    void advanceMs(qint64 ms) { m_now = m_now.addMSecs(ms); }

private:
    mutable QDateTime m_now;
    qint64 m_step = 0;
};

// Text forms of a moment.
QString dateText(const QDateTime& t);
QString timeText(const QDateTime& t);
// "dd mmm yyyy / hh:mm AM/PM", as in 01 May 2002 / 08:30 PM
QString captionMoment(const QDateTime& t);
// "hh:mm:ss AM/PM" of a "hh:mm:ss" 24-hour text
QString twelveHourTime(const QString& hhmmss);
