#pragma once

#include "engine/context.h"
#include "platform/clock.h"
#include "qt_printers.h"
#include "sound/alarm_sound.h"
#include "sound/notices.h"

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <vector>

struct RecordedErrorList : ErrorList {
    QStringList lines;
    bool shown = false;
    void AddItem(const QString& text) override { lines.append(text); }
    void Show() override { shown = true; }
};

// Keeps what the engine said to the user, for the test to look at.
struct RecordingNotices : Notices {
    QStringList warnings;
    QStringList alarmWindows;
    std::vector<std::unique_ptr<RecordedErrorList>> errorLists;
    RecordedErrorList shared;
    int beeps = 0;
    QStringList* order = nullptr; // when set, shared with the sound to see what came first

    void AnswerOk(const QString& text) override { warnings.append(text); }
    void ShowAlarmWindow(const QString& text) override {
        alarmWindows.append(text);
        if (order)
            order->append(QStringLiteral("window"));
    }
    ErrorList& NewErrorList() override {
        errorLists.push_back(std::make_unique<RecordedErrorList>());
        return *errorLists.back();
    }
    ErrorList& SharedErrorList() override { return shared; }
    void Beep() override { ++beeps; }
    QStringList modalBoxes;
    void SystemModalBox(const QString& text) override { modalBoxes.append(text); }
};

// Keeps what was asked to sound.
struct RecordingSound : AlarmSound {
    QStringList played; // "word|file"
    QStringList waves;  // sndPlaySoundA names
    int sweeps = 0;
    QStringList* order = nullptr;
    void PlaySound(const QString& strTimes, const QString& sSoundName) override {
        played.append(strTimes + QLatin1Char('|') + sSoundName);
        if (order)
            order->append(QStringLiteral("sound"));
    }
    void sndPlaySoundA(const QString& name, int) override { waves.append(name); }
    void InternalSpeaker() override { ++sweeps; }
};

// A context over a fresh program folder, a fake clock and recording services.
struct EngineFixture {
    QTemporaryDir dir;
    FakeClock clock;
    RecordingNotices notices;
    RecordingSound sound;
    Context ctx{clock, notices, sound};

    EngineFixture() { ctx.m.setStartValues(dir.path()); }

    QString path(const QString& name) const { return ctx.m.strAppPath + name; }
    void writeFile(const QString& name, const QByteArray& bytes) const {
        QFile f(path(name));
        f.open(QIODevice::WriteOnly);
        f.write(bytes);
    }
    QByteArray readFile(const QString& name) const {
        QFile f(path(name));
        f.open(QIODevice::ReadOnly);
        return f.readAll();
    }
};
