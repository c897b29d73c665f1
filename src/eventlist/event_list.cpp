#include "eventlist/event_list.h"

#include "engine/alarm_event.h"
#include "recurring/recurring_rows.h"

namespace {
QStringView dateTimeKey(const QString& row) {
    return alarm_event::rowDateTime(row);
}
} // namespace

void EventList::insertRow(const QString& markText, const QString& dateTime, const QString& messageText,
                          bool highlight) {
    insertRow(alarm_event::eventListRow(markText, dateTime, messageText), highlight);
}

void EventList::insertRow(const QString& row, bool highlight) {
    if (m_bulk) {
        m_pending.append(row);
        m_pendingHighlight.push_back(highlight);
        return;
    }
    rows.insertSortedBatch({row}, dateTimeKey, {highlight});
}

void EventList::clear() {
    m_pending.clear();
    m_pendingHighlight.clear();
    rows.clear();
}

void EventList::removeFirstHighlighted() {
    rows.removeItem(rows.firstSelected());
}

void EventList::crackCurrentRow() {
    const int current = rows.currentIndex();
    if (current < 0)
        return;
    const alarm_event::CrackedRow cracked = alarm_event::crackRow(rows.item(current));
    m_mark = cracked.mark;
    m_date = cracked.date;
    m_time = cracked.time;
    m_message = cracked.message;
}

QByteArray EventList::scheduleBytes() const {
    QByteArray data;
    qsizetype size = 0;
    for (const QString& row : rows.items())
        size += row.size();
    data.reserve(size);
    for (const QString& row : rows.items()) {
        // A recurring alarm's occurrence is shown here but kept in recurring.ics.
        if (recurring_rows::isRecurringRow(row))
            continue;
        const QStringView r(row);
        const QStringView message =
            r.size() > alarm_event::kRowFixedLength ? r.right(r.size() - alarm_event::kRowFixedLength) : QStringView();
        const QString word = alarm_event::shortWordFromMark(r.size() > 6 ? r[6] : QChar());
        record_file::appendRecord(data, {message, alarm_event::rowDate(r), word, alarm_event::rowTime(r)});
    }
    return data;
}

bool EventList::saveToFile(const QString& path, FileError& error) const {
    return record_file::rewriteBytes(path, scheduleBytes(), error);
}

void EventList::beginBulk(qsizetype expectedRows) {
    m_bulk = true;
    m_pending.reserve(expectedRows);
    m_pendingHighlight.reserve(static_cast<std::size_t>(expectedRows));
}

void EventList::endBulk() {
    m_bulk = false;
    if (m_pending.isEmpty())
        return;
    QStringList pending = std::move(m_pending);
    const std::vector<bool> highlights = std::move(m_pendingHighlight);
    m_pending.clear();
    m_pendingHighlight.clear();
    rows.insertSortedBatch(std::move(pending), dateTimeKey, highlights);
}
