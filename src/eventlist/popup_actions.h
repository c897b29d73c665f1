#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class Context;

// Opens the Edit window with the four fields of a row: mark, date, time, message.
using OpenEditorFn =
    std::function<void(const QString& mark, const QString& date, const QString& time, const QString& message)>;

// editAction of the event list's menu: exactly one highlighted row is wanted; it becomes the current row, whose
// fields are shown.
void editFromPopup(Context& ctx, const OpenEditorFn& openEditor);

// deleteAction: every highlighted row goes, without a question, and the schedule is rewritten once.
// Nothing at all happens when no row is highlighted.
void deleteFromPopup(Context& ctx);

// The highlighted rows that show occurrences of recurring alarms: the menu's Delete asks about them first.
QStringList highlightedRecurringRows(const Context& ctx);
// Skips the day of each of these occurrences, or ends the series each belongs to.
void deleteRecurringRows(Context& ctx, const QStringList& rows, bool wholeSeries);
