#pragma once

#include <QWidget>

class CaptionFrame;
class Context;
class QCheckBox;
class QLabel;
class QPushButton;
class QRadioButton;

// The Settings window: a view over the settings state of the context, which may have been loaded hidden long before.
// Closing it saves records 4 and 8 and unloads it; it deletes itself then.
class SettingsWindow : public QWidget {
    Q_OBJECT
public:
    explicit SettingsWindow(Context& ctx, QWidget* parent = nullptr);
    ~SettingsWindow() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void showState();
    void applyFont(int fontChoice);
    void stopListening();

    Context& m_ctx;
    bool m_listening = false;
    CaptionFrame* speakerFrame;
    CaptionFrame* optionsFrame;
    CaptionFrame* fontFrame;
    CaptionFrame* autostartFrame;
    QCheckBox* soundOnBox;
    QCheckBox* errorPopupsBox;
    QCheckBox* autoLoadBox;
    QCheckBox* noSecondBox;
    QCheckBox* internalSpeakerBox;
    QCheckBox* speakerInsteadOfMidiBox;
    QLabel* soundOnLabel;
    QLabel* errorPopupsLabel;
    QLabel* autoLoadLabel;
    QLabel* noSecondLabel;
    QLabel* internalSpeakerLabel;
    QLabel* speakerInsteadOfMidiLabel;
    QLabel* testLabel;
    QLabel* autostartLabel;
    QRadioButton* fontButtons[3];
    QPushButton* nextPageButton;
    QPushButton* closeButton;
    QPushButton* testSpeakerButton;
    QPushButton* autostartOnButton;
    QPushButton* autostartOffButton;
};
