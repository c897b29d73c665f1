#pragma once

#include "recurring/recurring_alarm.h"

#include <QDate>
#include <QDateTime>
#include <QStringList>

#include <optional>

// Expansion of a recurring alarm into its occurrences, through libical's iterator.
namespace recurrence {

// No day holds more occurrences than this; a rule that asks for more is cut here.
inline constexpr int kMostPerDay = 100;

// Why a rule cannot serve as an alarm's, or the empty text when it can.
QString ruleProblem(const QString& rule);
// The same for the rule from this start, which must also find a first day to ring on, and soon: a rule whose
// days never come is never expanded.
QString seriesProblem(const RecurringAlarm& alarm);

// The times "hh:mm:ss" of the occurrences on this local day, in order, skipped ones left out.
QStringList timesOn(const RecurringAlarm& alarm, const QDate& day);

// The first occurrence strictly after this moment, looked for up to ten years ahead.
std::optional<QDateTime> nextAfter(const RecurringAlarm& alarm, const QDateTime& after);

} // namespace recurrence
