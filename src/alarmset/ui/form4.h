#pragma once

#include "alarmset/form4_links.h"
#include "alarmset/message_view.h"

#include <QColor>
#include <QMainWindow>

class BwklistboxView;
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
class QListView;
class QPlainTextEdit;
class QPushButton;
class QTimer;
struct EntryControls;
struct Form4Hooks;

// The Alarm Set window. It is the home of today's lists, so it is never closed, only hidden; its
// handlers hand their controls to the Alarm Set procedures.
class Form4 : public QMainWindow {
    Q_OBJECT
public:
    Form4(Context& ctx, Form4Hooks& hooks, QWidget* parent = nullptr);

    // Reads the settings and the schedule; run once, when the window is first touched.
    void Form_Load();

    void SetNoSecondMode(bool on);
    void EveryControlsChanged();
    void setDataListShaded(bool shaded);
    // The title clock.
    void Timer1_Timer();

    QGroupBox* Frame2;
    QListView* lstData;
    PictureBox* imgSha;
    QLabel* lblATis;
    DropDownCombo* cbHour;
    QLabel* lblColon1;
    DropDownCombo* cbMin;
    QLabel* lblColon2;
    DropDownCombo* cbSec;
    QLineEdit* txtAm;
    PictureButton* cmdUp;
    PictureButton* cmdDown;
    QLabel* lblDate;
    QComboBox* cbPlayTimes;
    PictureButton* cmdWithMessage;
    QPushButton* cmdAdd;
    PictureButton* cmdDelete;
    PictureButton* cmdDeleteAll;
    QCheckBox* chkEMPlay;
    QComboBox* cbEMPlay;
    QLabel* Label2;
    QPushButton* cmdViewM;
    DropDownCombo* cmbSong;
    PictureButton* cmdPlayB;
    PictureButton* cmdMin;
    QPushButton* cmdExit;
    PictureButton* cmdSaveFile;
    PictureButton* cmdLoad;
    PictureButton* cmdEditor;
    PictureBox* Image1;
    QPlainTextEdit* txtViewM;
    QCalendarWidget* MonthView1;
    BwklistboxView* Bwklistbox1;
    QTimer* Timer1;
    QAction* mSettings;
    QAction* mComing;

    // lblDate's colours as laid out.
    QColor lngDateFore;
    QColor lngDateBack;

protected:
    // Form_QueryUnload: every request to close only hides the window.
    void closeEvent(QCloseEvent* event) override;
    // Enter presses the focused button, else the default button cmdAdd.
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void buildControls(QWidget* client);
    void connectHandlers();

    void cmdAdd_Click();
    void cmdWithMessage_Click();
    void cmdUp_Click();
    void cmdDown_Click();
    void lblDate_Click();
    void MonthView1_DateClick(const QDate& day);
    void MonthView1_DateDblClick();
    void cmdDelete_Click();
    void cmdDeleteAll_Click();
    void lstData_DblClick();
    void cmdViewM_Click();
    void cbEMPlay_Click();
    void chkEMPlay_Click();
    void cmbSong_DropDown();
    void cmbSong_Click(int index);
    void cmdPlayB_Click();
    void cmdMin_Click();
    void cmdExit_Click();
    void mSettings_Click();
    void mComing_Click();

    void ApplyFontSetting();
    void SetControlFonts(const QString& fontName, int pointSize);
    void showDateLabel(const QString& caption, const QColor& fore, const QColor& back);

    EntryControls entryControls() const;
    void showEntry(const EntryControls& entry);
    void addEvent();
    Form4Links links();
    int px(double twipValue) const;
    double twipsOf(int logicalPixels) const;

    Context& ctx;
    Form4Hooks& hooks;
    MessageView m_view;
};
