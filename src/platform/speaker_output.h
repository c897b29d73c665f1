#pragma once

// Where the tones of the speaker sound. Tones are queued and sound one after another, so the caller
// never waits for them.
class SpeakerOutput {
public:
    virtual ~SpeakerOutput() = default;
    // The output can sound now.
    virtual bool available() = 0;
    // A tone of hz (0: a rest) for ms, after those already queued; returns at once.
    virtual void queueTone(double hz, int ms) = 0;
};

// The most an output lets queue up; tones beyond it are dropped, so sweeps asked for faster than they
// sound cannot pile up.
constexpr int kMaxQueuedToneMs = 3000;

// No speaker at all.
class NullSpeakerOutput : public SpeakerOutput {
public:
    bool available() override { return false; }
    void queueTone(double, int) override {}
};

// The first of two outputs that can sound.
class FirstAvailableSpeaker : public SpeakerOutput {
public:
    FirstAvailableSpeaker(SpeakerOutput& first, SpeakerOutput& second) : m_first(first), m_second(second) {}
    bool available() override { return m_first.available() || m_second.available(); }
    void queueTone(double hz, int ms) override {
        if (m_first.available())
            m_first.queueTone(hz, ms);
        else if (m_second.available())
            m_second.queueTone(hz, ms);
    }

private:
    SpeakerOutput& m_first;
    SpeakerOutput& m_second;
};
