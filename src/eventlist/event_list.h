#pragma once

#include "engine/list_model.h"
#include "platform/record_file.h"

#include <QString>
#include <vector>

// The event list: every event of the schedule as one row, soonest first.
class EventList {
public:
    // Inserts one row ahead of the first row of an equal or later date-time, highlighted or not.
    void insertRow(const QString& markText, const QString& dateTime, const QString& messageText, bool highlight);
    // Inserts a row made already (as by alarm_event::eventListRow).
    void insertRow(const QString& row, bool highlight);
    void clear();
    // Removes the first highlighted row, if any.
    void removeFirstHighlighted();
    // Removes every highlighted row at once; how many went.
    int removeHighlighted() { return rows.removeSelected(); }
    int highlightedCount() const { return rows.selectedCount(); }
    int currentRow() const { return rows.currentIndex(); }

    // Splits the current row into the four fields; nothing when there is no current row.
    void crackCurrentRow();
    const QString& crackedMark() const { return m_mark; }
    const QString& crackedDate() const { return m_date; }
    const QString& crackedTime() const { return m_time; }
    const QString& crackedMessage() const { return m_message; }

    // Rewrites the schedule file from all rows; false with error set when it could not be written.
    bool saveToFile(const QString& path, FileError& error) const;
    // The records of all rows, in row order, as they stand in the schedule file.
    QByteArray scheduleBytes() const;

    // While a whole file is read, rows are gathered and put in order once at the end.
    void beginBulk(qsizetype expectedRows = 0);
    void endBulk();

    ListModel rows;

private:
    bool m_bulk = false;
    QStringList m_pending;
    std::vector<bool> m_pendingHighlight;
    QString m_mark, m_date, m_time, m_message;
};
