#pragma once

#include <QList>
#include <QString>

// The occurrences of recurring alarms armed into today's lists, so that a second arming on the same day (the
// first touch of the Alarm Set window, the midnight reload, an add) arms none twice, and a firing can be
// told to belong to its alarm.
struct RecurringDay {
    struct Armed {
        QString uid;
        QString time; // "hh:mm:ss"
        QString plays;
        QString message;
        bool taken = false; // fired or reported as slipped
    };
    QString day; // "yyyy/mm/dd" the list is of
    QList<Armed> armed;
    QString lastProblem; // the load problem last reported, so a broken file is reported once
};
