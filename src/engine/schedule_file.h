#pragma once

#include <QString>
#include <QStringList>

class Context;

// Reads the schedule into the event list and arms today's coming events.
void LoadFutureFile(Context& ctx, const QString& fFileName);
// Appends the event being entered, with this message, and shows it highlighted in the event list.
void SaveFutureFile(Context& ctx, const QString& MessageInput);

// The validity test of a today row: Fdata becomes false when the row is bad, and is never set true.
void Filting(const QString& strAlarmEvent, bool& Fdata);
// Inserts a today row into lstData at its place by time, ahead of rows of an equal time, and selects it.
void Sorting(Context& ctx, const QString& strGetAlarmTimeIs, const QString& strGetPlayTimesIs, bool blnAcceptSameAlarm);
// The same for many rows at once, as if each were inserted in turn.
void SortingBatch(Context& ctx, const QStringList& todayRows);
