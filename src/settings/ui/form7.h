#pragma once

#include <QWidget>

class CaptionFrame;
class Context;
class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

// The Settings window: a view over ctx.form7, which may have been loaded hidden long before.
// Closing it saves records 4 and 8 and unloads it; it deletes itself then.
class Form7 : public QWidget {
    Q_OBJECT
public:
    explicit Form7(Context& ctx, QWidget* parent = nullptr);
    ~Form7() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void showState();
    void applyFont(int fontChoice);
    void stopListening();

    Context& m_ctx;
    bool m_listening = false;
    CaptionFrame* Frame1;
    CaptionFrame* Frame2;
    CaptionFrame* Frame3;
    CaptionFrame* fraLoadBwk;
    QCheckBox* chkSoundOn;
    QCheckBox* chkErrMsgPop;
    QCheckBox* chkAutoLoad;
    QCheckBox* chkNoSec;
    QCheckBox* chkInternalSpeaker;
    QCheckBox* chkISInsteadMidi;
    QLabel* lblSoundOn;
    QLabel* lblPremier;
    QLabel* lblAutoLoad;
    QLabel* lblNoSec;
    QLabel* lblInternalSpeaker;
    QLabel* lblISpeakerInsteadMidi;
    QLabel* lblTest;
    QLabel* lblLoadBwk;
    QRadioButton* optFont[3];
    QPushButton* cmdNext;
    QPushButton* cmdClose;
    QPushButton* cmdPlayIS;
    QPushButton* cmdRun;
    QPushButton* cmdNoRun;
};
