#pragma once

#include <QString>
#include <QStringList>

#include <optional>
#include <utility>

class Context;

// Reads the schedule into the event list and arms today's coming events.
void loadSchedule(Context& ctx, const QString& fileName);
// Appends the event being entered, with this message, and shows it highlighted in the event list.
void appendToSchedule(Context& ctx, const QString& message);
// The same for the event being entered on this date; its row is highlighted or not.
void appendToSchedule(Context& ctx, const QString& date, const QString& message, bool highlight);

// The validity test of a today row: valid becomes false when the row is bad, and is never set true.
void filterTodayRow(QStringView rowText, bool& valid);
// Inserts a today row into todayList at its place by time, ahead of rows of an equal time, and selects it.
void insertTodayRow(Context& ctx, const QString& alarmTime, const QString& playWord, bool acceptSameTime);
// The same for many rows at once, as if each were inserted in turn.
void insertTodayRows(Context& ctx, const QStringList& todayRows);

// The soonest row of this schedule file on a day after today, as date and time, read without loading the file;
// nothing when there is none or the file cannot be read.
std::optional<std::pair<QString, QString>> firstLaterRow(const QString& path, QStringView today);
