#pragma once

#include "engine/list_model.h"
#include "platform/record_file.h"

#include <QString>
#include <vector>

// The event list: every event of the schedule as one row, soonest first.
class Bwklistbox {
public:
    // Inserts one row ahead of the first row of an equal or later date-time, highlighted or not.
    void ShowData(const QString& strPlayTimes, const QString& strDateTime, const QString& strMessages,
                  bool blnHighlight);
    void ClearListView();
    // Removes the first highlighted row, if any.
    void MultiDelete();
    int MultiSelectedItem() const { return lstMain.selCount(); }
    int SelectedItem() const { return lstMain.listIndex(); }

    // Splits the current row into the four fields; nothing when there is no current row.
    void CrackAlarmEvent();
    const QString& PlayTimesIs() const { return m_mark; }
    const QString& DateIs() const { return m_date; }
    const QString& TimeIs() const { return m_time; }
    const QString& MessageIs() const { return m_message; }

    // Rewrites the schedule file from all rows; false with error set when it could not be written.
    bool SaveAllEventsToDisk(const QString& path, FileError& error) const;
    // The records of all rows, in row order, as they stand in the schedule file.
    QByteArray scheduleBytes() const;

    // While a whole file is read, rows are gathered and put in order once at the end.
    void beginBulk();
    void endBulk();

    ListModel lstMain;

private:
    bool m_bulk = false;
    QStringList m_pending;
    std::vector<bool> m_pendingHighlight;
    QString m_mark, m_date, m_time, m_message;
};
