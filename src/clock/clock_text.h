#pragma once

#include <QDate>
#include <QLocale>
#include <QString>
#include <QTime>

// What the clock shows on a tick: "hh : mm : ss  AM/PM", "hh : mm  AM/PM", "hh : mm : ss" or "hh : mm".
QString clockTimeText(const QTime& time, bool hour24, bool withSeconds);

// The date shown in place of the time: "ddd. dd mmm yyyy", names from the locale, as in "Thu. 19 Nov 2026".
QString clockDateText(const QDate& date, const QLocale& locale = QLocale());
