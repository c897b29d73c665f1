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
class EditEventWindow : public QWidget {
    Q_OBJECT
public:
    // Opens the window (once) on the fields of a row; eventList is the list control to cut down meanwhile.
    static EditEventWindow* openOn(Context& ctx, const QString& markField, const QString& dateField,
                                   const QString& timeField, const QString& messageField, QWidget* eventList);
    static EditEventWindow* instance();

    void onOkClicked();
    void onCancelClicked();
    void onDateLabelClicked();
    void onCalendarClicked(const QDate& day);
    void onCalendarDoubleClicked();

    QGroupBox* dateFrame;
    QLineEdit* dateEdit;
    QLabel* dateLabel;
    QGroupBox* timeFrame;
    DropDownCombo* hourBox;
    DropDownCombo* minuteBox;
    DropDownCombo* secondBox;
    QLineEdit* amPm;
    PictureButton* upButton;
    PictureButton* downButton;
    QComboBox* playCountBox;
    MessageTextBox* input;
    QPushButton* okButton;
    QPushButton* cancelButton;
    QCalendarWidget* calendar;

protected:
    // closeEvent: every way out stores the place and gives the event list its height back.
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    EditEventWindow(Context& ctx, QWidget* eventList);
    void buildControls();
    void connectHandlers();
    void load();
    void showControls(const EditControls& c);
    EditControls controls() const;
    void setClientWidth(int width);
    int px(double twipValue) const;

    Context& m_ctx;
    QPointer<QWidget> m_eventList;
    int m_clientWidth = 0; // logical pixels of the client area
    int m_listHeight = 0;  // logical pixels
};
