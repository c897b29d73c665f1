#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <ctime>

// The local zone of the process for one test: floating alarm times must keep their wall time across its turns.
struct LocalZone {
    QByteArray old;
    explicit LocalZone(const char* zone) : old(qgetenv("TZ")) {
        qputenv("TZ", zone);
        tzset();
    }
    ~LocalZone() {
        if (old.isEmpty())
            qunsetenv("TZ");
        else
            qputenv("TZ", old);
        tzset();
    }
};
