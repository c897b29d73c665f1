#pragma once

#include "engine/context.h"
#include "platform/clock.h"
#include "sound/alarm_sound.h"
#include "sound/notices.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

// A quiet engine over a fresh folder for one fuzz input.
struct FuzzList : ErrorList {
    void AddItem(const QString&) override {}
    void Show() override {}
};
struct FuzzNotices : Notices {
    FuzzList list;
    void AnswerOk(const QString&) override {}
    void ShowAlarmWindow(const QString&) override {}
    ErrorList& NewErrorList() override { return list; }
    ErrorList& SharedErrorList() override { return list; }
    void Beep() override {}
    void SystemModalBox(const QString&) override {}
};
struct FuzzSound : AlarmSound {
    void PlaySound(const QString&, const QString&) override {}
    void sndPlaySoundA(const QString&, int) override {}
    void InternalSpeaker() override {}
};

struct FuzzEngine {
    QTemporaryDir dir;
    FakeClock clock{QDateTime(QDate(2002, 5, 1), QTime(12, 0, 0))};
    FuzzNotices notices;
    FuzzSound sound;
    Context ctx{clock, notices, sound};

    FuzzEngine() { ctx.m.setStartValues(dir.path()); }
    void write(const char* name, const uint8_t* data, size_t size) const {
        QFile f(ctx.m.strAppPath + QLatin1String(name));
        if (f.open(QIODevice::WriteOnly))
            f.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size));
    }
};
