#pragma once

#include "alarmset/windowless_alarm_set.h"
#include "engine/context.h"
#include "platform/clock.h"
#include "qt_printers.h"
#include "sound/alarm_sound.h"
#include "sound/notices.h"

#include <QApplication>
#include <QFile>
#include <QKeyEvent>
#include <QStringList>
#include <QTemporaryDir>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <functional>
#include <future>
#include <memory>
#include <sys/resource.h>
#include <unistd.h>
#include <vector>

inline void writeBytes(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    f.open(QIODevice::WriteOnly);
    f.write(bytes);
}
inline QByteArray readBytes(const QString& path) {
    QFile f(path);
    f.open(QIODevice::ReadOnly);
    return f.readAll();
}
// Runs work on a thread and tells whether it ended within ms. Work held up in the open of the named pipe is
// let go by a writer after the limit, so a test fails instead of hanging.
inline bool finishesWithin(int ms, const QString& pipe, const std::function<void()>& work) {
    std::future<void> done = std::async(std::launch::async, work);
    if (done.wait_for(std::chrono::milliseconds(ms)) == std::future_status::ready)
        return true;
    while (done.wait_for(std::chrono::milliseconds(50)) != std::future_status::ready) {
        const int fd = ::open(QFile::encodeName(pipe).constData(), O_WRONLY | O_NONBLOCK);
        if (fd >= 0)
            ::close(fd);
    }
    return false;
}
// One record of a schedule or data file: the line in quotes, then CR LF.
inline QByteArray quotedRecord(const QByteArray& line) {
    return '"' + line + "\"\r\n";
}
// One 55-byte settings record: the key padded with blanks to 17, two little-endian longs, the value padded to 30.
inline QByteArray settingBytes(const QByteArray& key, int32_t v1, int32_t v2, const QByteArray& value, char pad = ' ') {
    QByteArray out = key.leftJustified(17, ' ');
    for (const int32_t v : {v1, v2})
        for (int shift = 0; shift < 32; shift += 8)
            out.append(char((uint32_t(v) >> shift) & 0xFF));
    return out + value.leftJustified(30, pad);
}
// Holds the size any file of this process may grow to, as a full disk would, for the life of the object.
struct FileSizeLimit {
    rlimit saved{};
    void (*savedHandler)(int) = nullptr;
    explicit FileSizeLimit(rlim_t bytes) {
        getrlimit(RLIMIT_FSIZE, &saved);
        savedHandler = std::signal(SIGXFSZ, SIG_IGN);
        rlimit limited = saved;
        limited.rlim_cur = bytes;
        setrlimit(RLIMIT_FSIZE, &limited);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &saved);
        std::signal(SIGXFSZ, savedHandler);
    }
};

inline void typeText(QWidget* target, const QString& text) {
    for (const QChar c : text) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_unknown, Qt::NoModifier, QString(c));
        QApplication::sendEvent(target, &press);
        QApplication::sendEvent(target, &release);
    }
}

struct RecordedErrorList : ErrorList {
    QStringList lines;
    bool shown = false;
    void addLine(const QString& text) override { lines.append(text); }
    void showList() override { shown = true; }
};

struct RecordingNotices : Notices {
    QStringList warnings;
    QStringList alarmWindows;
    std::vector<std::unique_ptr<RecordedErrorList>> errorLists;
    RecordedErrorList shared;
    int beeps = 0;
    QStringList* order = nullptr; // when set, shared with the sound to see what came first

    void answerOk(const QString& text) override { warnings.append(text); }
    void showAlarmWindow(const QString& text) override {
        alarmWindows.append(text);
        if (order)
            order->append(QStringLiteral("window"));
    }
    ErrorList& newErrorList() override {
        errorLists.push_back(std::make_unique<RecordedErrorList>());
        return *errorLists.back();
    }
    ErrorList& sharedErrorList() override { return shared; }
    void beep() override { ++beeps; }
    void systemModalBox(const QString&) override {}
};

struct RecordingSound : AlarmSound {
    QStringList played; // "word|file"
    QStringList waves;  // playWaveFile names
    int sweeps = 0;
    QStringList* order = nullptr;
    void playAlarm(const QString& playWord, const QString& soundPath) override {
        played.append(playWord + QLatin1Char('|') + soundPath);
        if (order)
            order->append(QStringLiteral("sound"));
    }
    void playWaveFile(const QString& name, int) override { waves.append(name); }
    void sweepSpeaker() override { ++sweeps; }
    std::function<void()> onReady; // readying the song, as a large one on a slow disk takes its time
    void readyAlarm(const QString&, const QString&) override {
        if (onReady)
            onReady();
    }
};

// A context over a fresh program folder, a fake clock and recording services.
struct EngineFixture {
    QTemporaryDir dir;
    FakeClock clock;
    RecordingNotices notices;
    RecordingSound sound;
    Context ctx{clock, notices, sound};
    WindowlessAlarmSet alarmSet{ctx};

    EngineFixture() {
        ctx.setStartValues(dir.path());
        ctx.alarmSetUi = &alarmSet;
    }

    QString path(const QString& name) const { return ctx.folder + name; }
    void writeFile(const QString& name, const QByteArray& bytes) const { writeBytes(path(name), bytes); }
    QByteArray readFile(const QString& name) const { return readBytes(path(name)); }
};
