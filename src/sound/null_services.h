#pragma once

#include "sound/alarm_sound.h"
#include "sound/notices.h"

#include <cstdio>

// Do-nothing sound and notices, for running the engine without windows or audio. Warnings go to stderr.
class NullErrorList : public ErrorList {
public:
    void addLine(const QString&) override {}
    void showList() override {}
};

class NullNotices : public Notices {
public:
    int warnings = 0;
    void answerOk(const QString& text) override {
        ++warnings;
        std::fprintf(stderr, "warning: %s\n", qPrintable(text));
    }
    void showAlarmWindow(const QString&) override {}
    ErrorList& newErrorList() override { return m_list; }
    ErrorList& sharedErrorList() override { return m_list; }
    void beep() override {}
    void systemModalBox(const QString&) override {}

private:
    NullErrorList m_list;
};

class NullSound : public AlarmSound {
public:
    void playAlarm(const QString&, const QString&) override {}
    void playWaveFile(const QString&, int) override {}
    void sweepSpeaker() override {}
};
