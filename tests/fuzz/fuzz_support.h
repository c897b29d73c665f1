#pragma once

#include "alarmset/windowless_alarm_set.h"
#include "engine/context.h"
#include "platform/clock.h"
#include "sound/null_services.h"

#include <QFile>
#include <QTemporaryDir>

// A quiet engine over a fresh folder for one fuzz input.
struct FuzzEngine {
    QTemporaryDir dir;
    FakeClock clock{QDateTime(QDate(2002, 5, 1), QTime(12, 0, 0))};
    NullNotices notices;
    NullSound sound;
    Context ctx{clock, notices, sound};
    WindowlessAlarmSet alarmSet{ctx};

    FuzzEngine() {
        ctx.setStartValues(dir.path());
        ctx.alarmSetUi = &alarmSet;
    }
    void write(const char* name, const uint8_t* data, size_t size) const {
        QFile f(ctx.folder + QLatin1String(name));
        if (f.open(QIODevice::WriteOnly))
            f.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    }
};
