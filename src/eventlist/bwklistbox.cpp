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

QStringList Bwklistbox::scheduleLines() const {
    QStringList lines;
    lines.reserve(lstMain.count());
    for (const QString& row : lstMain.items()) {
        const alarm_event::CrackedRow c = alarm_event::crackRow(row);
        lines.append(
            alarm_event::scheduleLine(c.message, c.date, alarm_event::shortWordFromMark(c.mark.at(0)), c.time));
    }
    return lines;
}

bool Bwklistbox::SaveAllEventsToDisk(const QString& path, FileError& error) const {
    return record_file::rewriteRecords(path, scheduleLines(), error);
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
