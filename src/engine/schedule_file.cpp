#include "engine/schedule_file.h"

#include "engine/alarm_event.h"
#include "engine/context.h"
#include "engine/event_checker.h"
#include "platform/clock.h"
#include "platform/cp1252.h"
#include "platform/field_reader.h"
#include "platform/numeric.h"
#include "platform/record_file.h"
#include "recurring/recurring_arming.h"
#include "recurring/recurring_rows.h"
#include "sound/notices.h"

#include <QFileInfo>
#include <QVarLengthArray>

#include <algorithm>
#include <cstring>

namespace {
QStringView todayRowTime(const QString& row) {
    return alarm_event::timeOf(row);
}

// The number of line feeds, to size the row list once; memchr runs through the bytes many at a time.
qsizetype lineCount(const QByteArray& bytes) {
    qsizetype lines = 0;
    const char* at = bytes.constData();
    const char* const end = at + bytes.size();
    while (at < end) {
        const void* found = std::memchr(at, '\n', static_cast<std::size_t>(end - at));
        if (!found)
            break;
        ++lines;
        at = static_cast<const char*>(found) + 1;
    }
    return lines;
}

// alarm_event::messageRow of a record's fields, decoded straight into the row: a message of megabytes is
// then held once, not once more for the joining.
QString messageRow(QLatin1String message, QLatin1String time) {
    QString row;
    row.reserve(message.size() + 4 + time.size());
    appendFromCp1252(row, message);
    row += QLatin1String(" at ");
    appendFromCp1252(row, time);
    return row;
}

// The 4-letter play word of a record read from the file.
bool fromShortWord(QLatin1String bytes, QString& word, QChar& mark) {
    QChar letters[4];
    const qsizetype n = std::min<qsizetype>(bytes.size(), 4);
    for (qsizetype i = 0; i < n; ++i)
        letters[i] = QChar(static_cast<uchar>(bytes[i].toLatin1()));
    return alarm_event::fromShortWord(QStringView(letters, n), word, mark);
}
} // namespace

void filterTodayRow(QStringView rowText, bool& valid) {
    int16_t flag = 1;
    EventChecker().checkAlarmRow(rowText, flag);
    if (flag == 0)
        valid = false;
}

void insertTodayRow(Context& ctx, const QString& alarmTime, const QString& playWord, bool /*acceptSameTime*/) {
    const QString row = alarm_event::todayRow(playWord, alarmTime);
    const int at = ctx.today.alarms.sortedInsertPosition(QStringView(alarmTime), todayRowTime);
    ctx.today.alarms.addItem(row, at);
    ctx.today.alarms.selectOnly(at);
    ctx.newEvent.added = true;
    ctx.tick.needNextAlarm = true;
}

void insertTodayRows(Context& ctx, const QStringList& todayRows) {
    if (todayRows.isEmpty())
        return;
    const int last = ctx.today.alarms.insertSortedBatch(todayRows, todayRowTime);
    ctx.today.alarms.selectOnly(last);
    ctx.newEvent.added = true;
    ctx.tick.needNextAlarm = true;
}

void appendToSchedule(Context& ctx, const QString& message) {
    appendToSchedule(ctx, ctx.entry.date, message, true);
}

void appendToSchedule(Context& ctx, const QString& date, const QString& message, bool highlight) {
    const QString line = alarm_event::scheduleLine(message, date, ctx.newEvent.playWord, ctx.newEvent.time);
    FileError error;
    if (!record_file::appendRecords(ctx.appFile(QStringLiteral("future.dat")), {line}, error)) {
        ctx.notices.answerOk(QStringLiteral("Error occurred when saving alarm events to disk, data may be lost, ") +
                             QStringLiteral("Error # ") + numberForMessage(error.number) + QLatin1Char('\r') +
                             error.description);
    }
    ctx.eventList.insertRow(ctx.newEvent.mark, date + QLatin1Char('-') + ctx.newEvent.time, message, highlight);
}

namespace {
void loadScheduleFile(Context& ctx, const QString& fileName) {
    int errorCount = 1;
    const QString path = ctx.appFile(fileName);
    if (!QFileInfo::exists(path))
        return;
    // A file that cannot be read leaves everything as it stood.
    QByteArray bytes;
    FileError readError;
    if (!record_file::readBytes(path, bytes, readError))
        return;

    // A row that falls due while a long load runs is armed all the same: the tick then rings it in its second
    // or reports it as slipped, so no schedule is too large for its alarms.
    const QString loadDay = ctx.clock.dateText();
    const QString loadTime = ctx.clock.timeText();
    ctx.eventList.clear();
    ctx.eventList.beginBulk(lineCount(bytes));
    QStringList armed;
    ErrorList* errors = nullptr;
    QString word;
    QLatin1String message;
    // The mark survives from record to record, as the word does; it is left in the event being entered.
    QChar mark = ctx.newEvent.mark.isEmpty() ? QChar() : ctx.newEvent.mark.front();
    QVarLengthArray<QChar, 32> rowText;

    // Views into the file's bytes: a schedule of a million records must not cost a copy of each field, nor
    // one of the whole file as text.
    ByteFieldReader reader(std::move(bytes));
    while (!reader.atEnd()) {
        QLatin1String line = reader.nextView();
        if (line.size() == alarm_event::kTailLength) {
            message = QLatin1String();
        } else if (line.size() > alarm_event::kTailLength) {
            message = line.left(line.size() - alarm_event::kTailLength);
            line = line.right(alarm_event::kTailLength);
        }
        const QLatin1String date = line.left(10);
        const QLatin1String play = line.mid(10, 4);
        const QLatin1String time = line.right(8);
        QChar newMark;
        if (fromShortWord(play, word, newMark))
            mark = newMark;

        // The file's bytes compare with these texts as their decoded characters would: both are plain ASCII
        // wherever they can be equal.
        const Clock::Present before = ctx.clock.present();
        if (before.date.compare(date) > 0 || (before.date == date && before.time.compare(time) > 0))
            mark = QLatin1Char('x');

        ctx.newEvent.lineValid = true;
        // Word, a space and the time, put together in place: no text is made for a record that is not armed.
        rowText.resize(word.size() + 1 + time.size());
        std::copy(word.cbegin(), word.cend(), rowText.begin());
        rowText[word.size()] = QLatin1Char(' ');
        std::transform(time.begin(), time.end(), rowText.begin() + word.size() + 1,
                       [](char c) { return QChar(QLatin1Char(c)); });
        const QStringView row(rowText.constData(), rowText.size());
        filterTodayRow(row, ctx.newEvent.lineValid);
        if (ctx.newEvent.lineValid) {
            ctx.eventList.insertRow(alarm_event::eventListRow(mark, date, time, message), false);
            const Clock::Present present = ctx.clock.present();
            if ((present.date == date && present.time.compare(time) < 0) ||
                (loadDay == date && loadTime.compare(time) < 0)) {
                ctx.tick.on = true;
                armed.append(row.toString());
                if (!message.isEmpty())
                    ctx.today.messages.addItem(messageRow(message, time));
            }
            continue;
        }
        if (errorCount == 1) {
            errors = &ctx.notices.newErrorList();
            errors->addLine(fileName);
            errors->showList();
        }
        errors->addLine(QStringLiteral("Invalid data in file, Data ") + numberForMessage(errorCount));
        if (errorCount == 8) {
            errors->addLine(fileName + QStringLiteral(" seems to be wrong format"));
            break;
        }
        ++errorCount;
    }
    if (!mark.isNull())
        ctx.newEvent.mark = mark;
    ctx.eventList.endBulk();
    insertTodayRows(ctx, armed);
    ctx.tick.haveAlarms = ctx.today.alarms.count() > 0;
}
} // namespace

std::optional<std::pair<QString, QString>> firstLaterRow(const QString& path, QStringView today) {
    QByteArray bytes;
    FileError error;
    if (!QFileInfo::exists(path) || !record_file::readBytes(path, bytes, error))
        return std::nullopt;
    // Rows written by hand need not stand in date order: the least of the later ones.
    QByteArray best;
    ByteFieldReader reader(std::move(bytes));
    while (!reader.atEnd()) {
        const QLatin1String line = reader.nextView();
        if (line.size() < alarm_event::kTailLength)
            continue;
        const QLatin1String tail = line.right(alarm_event::kTailLength);
        const QLatin1String date = tail.left(10);
        const QLatin1String time = tail.right(8);
        if (!QDate::fromString(date, QStringLiteral("yyyy/MM/dd")).isValid() ||
            !QTime::fromString(time, QStringLiteral("hh:mm:ss")).isValid() || QStringView(today).compare(date) >= 0)
            continue;
        const QByteArray key = QByteArray(date.data(), date.size()) + QByteArray(time.data(), time.size());
        if (best.isEmpty() || key < best)
            best = key;
    }
    if (best.isEmpty())
        return std::nullopt;
    return std::make_pair(QString::fromLatin1(best.left(10)), QString::fromLatin1(best.mid(10)));
}

void loadSchedule(Context& ctx, const QString& fileName) {
    loadScheduleFile(ctx, fileName);
    // The day's occurrences of recurring alarms are armed with the schedule's, even when it has no file.
    if (fileName == QLatin1String("future.dat")) {
        recurring_arming::armToday(ctx);
        recurring_rows::show(ctx);
    }
}
