#pragma once

#include "platform/speaker_output.h"

#include <QString>
#include <QTimer>

#include <deque>

// The PC speaker of the kernel's input layer: a tone event (EV_SND, SND_TONE) starts a tone of the
// given Hz, 0 ends it. A timer of the event loop steps through the queued tones.
class EvdevSpeaker : public SpeakerOutput {
public:
    // With an empty path the speaker device is looked for.
    explicit EvdevSpeaker(QString devicePath = QString());
    EvdevSpeaker(const EvdevSpeaker&) = delete;
    EvdevSpeaker& operator=(const EvdevSpeaker&) = delete;
    ~EvdevSpeaker() override;

    // The device can be written.
    bool available() override;
    void queueTone(double hz, int ms) override;

    bool idle() const { return m_queue.empty() && !m_timer.isActive(); }
    // Milliseconds of tones waiting behind the one that sounds.
    int queuedMs() const { return m_queuedMs; }

    // The first input device that can sound tones, or the empty text.
    static QString findDevice();

private:
    struct Tone {
        double hz;
        int ms;
    };
    void next();
    void writeTone(int hz);
    void closeDevice();

    QString m_path;
    bool m_searched = false;
    int m_fd = -1;
    std::deque<Tone> m_queue;
    int m_queuedMs = 0;
    QTimer m_timer;
};
