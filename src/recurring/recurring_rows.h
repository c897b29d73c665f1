#pragma once

#include <QString>
#include <QStringView>

class Context;

// Recurring alarms in the event list: their next occurrences as rows that carry a "*" ahead of the play mark.
// They are shown only: the schedule file never holds them, and a rewrite of it leaves them out.
namespace recurring_rows {

// Occurrences shown for each alarm, and how far ahead.
inline constexpr int kShownPerAlarm = 5;
inline constexpr int kShownDays = 31;

inline bool isRecurringRow(QStringView row) {
    return row.size() > 6 && row[5] == QLatin1Char('*');
}

// Puts the rows of the coming occurrences in anew.
void show(Context& ctx);

// Deleting a recurring row: skip only that day's occurrence (an EXDATE), or end the whole series. Both take the
// occurrences concerned out of today's lists too. False, with a warning, when the row's alarm is not found.
bool skipDay(Context& ctx, const QString& row);
bool endSeries(Context& ctx, const QString& row);

} // namespace recurring_rows
