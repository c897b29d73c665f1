#pragma once

#include <QPointer>
#include <QWidget>

class Context;
class DropDownCombo;
class MessageTextBox;
class PictureButton;
class QCalendarWidget;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
struct EditControls;

// The Edit window: one event of the event list, changed and put back by its new date. Not modal; while it
// is open the event list is cut down to its column heads, so no other row can be picked.
class Form16 : public QWidget {
    Q_OBJECT
public:
    // Opens the window (once) on the fields of a row; eventList is the list control to cut down meanwhile.
    static Form16* ShowEditEvent(Context& ctx, const QString& strPlayTimesIs, const QString& strDateIs,
                                 const QString& strTimeIs, const QString& strMessageIs, QWidget* eventList);
    static Form16* instance();

    void cmdOK_Click();
    void cmdCancel_Click();
    void lblDate_Click();
    void MonthView1_DateClick(const QDate& day);
    void MonthView1_DateDblClick();

    QGroupBox* fraTop;
    QLineEdit* txtDate;
    QLabel* lblDate;
    QGroupBox* Frame1;
    DropDownCombo* cbHour;
    DropDownCombo* cbMin;
    DropDownCombo* cbSec;
    QLineEdit* txtAm;
    PictureButton* cmdUp;
    PictureButton* cmdDown;
    QComboBox* cbPlayTimes;
    MessageTextBox* txtInput;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;
    QCalendarWidget* MonthView1;

protected:
    // Form_QueryUnload: every way out stores the place and gives the event list its height back.
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Form16(Context& ctx, QWidget* eventList);
    void buildControls();
    void connectHandlers();
    void Form_Load();
    void showControls(const EditControls& c);
    EditControls controls() const;
    void setClientWidth(int width);
    int px(double twipValue) const;
    double twipsOf(int logicalPixels) const;

    Context& m_ctx;
    QPointer<QWidget> m_eventList;
    int lngFormWidth = 0;  // logical pixels of the client area
    int lngListHeight = 0; // logical pixels
};
