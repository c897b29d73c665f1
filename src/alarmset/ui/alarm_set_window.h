#pragma once

#include "alarmset/alarm_set_links.h"
#include "alarmset/message_view.h"

#include <QColor>
#include <QMainWindow>

class EventListView;
class Context;
class DropDownCombo;
class PictureBox;
class PictureButton;
class QAction;
class QCalendarWidget;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QMenu;
class QListView;
class QPlainTextEdit;
class QPushButton;
class QTimer;
struct EntryControls;
struct AlarmSetHooks;

// The Alarm Set window. It is the home of today's lists, so it is never closed, only hidden; its
// handlers hand their controls to the Alarm Set procedures.
class AlarmSetWindow : public QMainWindow {
    Q_OBJECT
public:
    AlarmSetWindow(Context& ctx, AlarmSetHooks& hooks, QWidget* parent = nullptr);

    // Reads the settings and the schedule; run once, when the window is first touched.
    void load();

    void setNoSecondMode(bool on);
    void chimeControlsChanged();
    void setTodayListShaded(bool shaded);
    // The title clock.
    void onTick();
    // Without a notification area the tray's menu sits in the menu bar and closing only minimises, so the
    // program stays within reach; null puts the window back as it was.
    void standInForTray(QMenu* trayMenu);
    bool standsInForTray() const { return m_trayMenu != nullptr; }

    QGroupBox* playListFrame;
    QListView* todayList;
    PictureBox* hourglass;
    QLabel* atLabel;
    DropDownCombo* hourBox;
    QLabel* hourColon;
    DropDownCombo* minuteBox;
    QLabel* minuteColon;
    DropDownCombo* secondBox;
    QLineEdit* amPm;
    PictureButton* upButton;
    PictureButton* downButton;
    QLabel* dateLabel;
    QComboBox* playCountBox;
    PictureButton* withMessageButton;
    QPushButton* addButton;
    PictureButton* deleteButton;
    PictureButton* deleteAllButton;
    QCheckBox* chimeBox;
    QComboBox* chimeIntervalBox;
    QLabel* minutesLabel;
    QPushButton* viewMessagesButton;
    DropDownCombo* songBox;
    PictureButton* playSongButton;
    PictureButton* minimiseButton;
    QPushButton* exitButton;
    PictureButton* saveFileButton;
    PictureButton* loadButton;
    PictureButton* editorButton;
    PictureBox* bellPicture;
    QPlainTextEdit* messageView;
    QCalendarWidget* calendar;
    EventListView* eventListView;
    QTimer* timer;
    QAction* settingsAction;
    QAction* comingAction;

    // dateLabel's colours as laid out.
    QColor dateFore;
    QColor dateBack;

protected:
    // closeEvent: every request to close only hides the window.
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    // Enter presses the focused button, else the default button addButton.
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QMenu* m_trayMenu = nullptr;
    void buildControls(QWidget* client);
    void connectHandlers();
    void hideOrMinimise();

    void onAddClicked();
    void onWithMessageClicked();
    void onUpClicked();
    void onDownClicked();
    void onDateLabelClicked();
    void onCalendarClicked(const QDate& day);
    void onCalendarDoubleClicked();
    void keepTabOffCovered();
    void onDeleteClicked();
    void onDeleteAllClicked();
    void onTodayListDoubleClicked();
    void onViewMessagesClicked();
    void onChimeIntervalChosen();
    void onChimeBoxClicked();
    void onSongDropDown();
    void onSongChosen(int index);
    void onPlaySongClicked();
    void onMinimiseClicked();
    void onExitClicked();
    void onSettingsChosen();
    void onComingChosen();

    void applyFontSetting();
    void setControlFonts(const QString& fontName, int pointSize);
    void showDateLabel(const QString& caption, const QColor& fore, const QColor& back);

    EntryControls entryControls() const;
    void showEntry(const EntryControls& entry);
    void addEvent();
    AlarmSetLinks links();
    int px(double twipValue) const;

    Context& ctx;
    AlarmSetHooks& hooks;
    MessageView m_view;
};
