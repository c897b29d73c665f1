#pragma once

#include "sound/alarm_sound.h"
#include "sound/notices.h"

#include <cstdio>

// Do-nothing sound and notices, for running the engine without windows or audio. Warnings go to stderr.
class NullErrorList : public ErrorList {
public:
    void AddItem(const QString&) override {}
    void Show() override {}
};

class NullNotices : public Notices {
public:
    int warnings = 0;
    void AnswerOk(const QString& text) override {
        ++warnings;
        std::fprintf(stderr, "warning: %s\n", qPrintable(text));
    }
    void ShowAlarmWindow(const QString&) override {}
    ErrorList& NewErrorList() override { return m_list; }
    ErrorList& SharedErrorList() override { return m_list; }
    void Beep() override {}
    void SystemModalBox(const QString&) override {}

private:
    NullErrorList m_list;
};

class NullSound : public AlarmSound {
public:
    void PlaySound(const QString&, const QString&) override {}
    void sndPlaySoundA(const QString&, int) override {}
    void InternalSpeaker() override {}
};
