#include "eventlist/bwklistbox.h"

#include "engine/alarm_event.h"

namespace {
QStringView dateTimeKey(const QString& row) {
    return alarm_event::rowDateTime(row);
}
} // namespace

void Bwklistbox::ShowData(const QString& strPlayTimes, const QString& strDateTime, const QString& strMessages,
                          bool blnHighlight) {
    const QString row = alarm_event::eventListRow(strPlayTimes, strDateTime, strMessages);
    if (m_bulk) {
        m_pending.append(row);
        m_pendingHighlight.push_back(blnHighlight);
        return;
    }
    lstMain.insertSortedBatch({row}, dateTimeKey, {blnHighlight});
}

void Bwklistbox::ClearListView() {
    m_pending.clear();
    m_pendingHighlight.clear();
    lstMain.clear();
}

void Bwklistbox::MultiDelete() {
    lstMain.removeItem(lstMain.firstSelected());
}

void Bwklistbox::CrackAlarmEvent() {
    const int current = lstMain.listIndex();
    if (current < 0)
        return;
    const alarm_event::CrackedRow cracked = alarm_event::crackRow(lstMain.item(current));
    m_mark = cracked.mark;
    m_date = cracked.date;
    m_time = cracked.time;
    m_message = cracked.message;
}

QByteArray Bwklistbox::scheduleBytes() const {
    QByteArray data;
    qsizetype size = 0;
    for (const QString& row : lstMain.items())
        size += row.size();
    data.reserve(size);
    for (const QString& row : lstMain.items()) {
        const QStringView r(row);
        const QStringView message =
            r.size() > alarm_event::kRowFixedLength ? r.right(r.size() - alarm_event::kRowFixedLength) : QStringView();
        const QString word = alarm_event::shortWordFromMark(r.size() > 6 ? r[6] : QChar());
        record_file::appendRecord(data, {message, alarm_event::rowDate(r), word, alarm_event::rowTime(r)});
    }
    return data;
}

bool Bwklistbox::SaveAllEventsToDisk(const QString& path, FileError& error) const {
    return record_file::rewriteBytes(path, scheduleBytes(), error);
}

void Bwklistbox::beginBulk() {
    m_bulk = true;
}

void Bwklistbox::endBulk() {
    m_bulk = false;
    if (m_pending.isEmpty())
        return;
    const QStringList rows = std::move(m_pending);
    const std::vector<bool> highlights = std::move(m_pendingHighlight);
    m_pending.clear();
    m_pendingHighlight.clear();
    lstMain.insertSortedBatch(rows, dateTimeKey, highlights);
}
