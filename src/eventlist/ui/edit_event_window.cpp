#include "eventlist/ui/edit_event_window.h"
#include "message/ui/message_text_box.h"

#include "alarmset/time_input.h"
#include "alarmset/ui/button_faces.h"
#include "alarmset/ui/drop_down_combo.h"
#include "alarmset/ui/key_filters.h"
#include "alarmset/ui/picture_button.h"
#include "engine/alarm_event.h"
#include "engine/context.h"
#include "eventlist/edit_event.h"
#include "platform/clock.h"
#include "platform/numeric.h"
#include "platform/ui/accessible_names.h"
#include "platform/ui/dialog_keys.h"
#include "platform/ui/typed_key.h"
#include "platform/ui/window_twips.h"
#include "settings/settings_records.h"
#include "sound/notices.h"

#include <QCalendarWidget>
#include <QCloseEvent>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

using window_twips::place;

namespace {

constexpr double kClientWidth = 3744;
constexpr double kClientHeight = 4920;
// While the window is open the event list shows its heads only.
constexpr double kCutListHeight = 264;

QPointer<EditEventWindow>& current() {
    static QPointer<EditEventWindow> form;
    return form;
}

QStringList itemsOf(const QComboBox* box) {
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items.append(box->itemText(i));
    return items;
}

void completeList(QComboBox* box, void (*dropDown)(QStringList&)) {
    QStringList items = itemsOf(box);
    dropDown(items);
    for (int i = box->count(); i < items.size(); ++i)
        box->addItem(items.at(i));
}

void setTextKeepingList(QComboBox* box, const QString& text) {
    box->setCurrentIndex(box->findText(text));
    box->setEditText(text);
}

} // namespace

EditEventWindow* EditEventWindow::instance() {
    return current();
}

EditEventWindow* EditEventWindow::openOn(Context& ctx, const QString& markField, const QString& dateField,
                                         const QString& timeField, const QString& messageField, QWidget* eventList) {
    EditEventWindow* form = current();
    const bool loading = !form;
    if (loading) {
        form = new EditEventWindow(ctx, eventList);
        current() = form;
        form->load();
    }
    form->showControls(editControlsFor(markField, dateField, timeField, messageField));
    form->show();
    form->raise();
    form->activateWindow();
    // Only the first opening sees the list at its own height.
    if (loading && form->m_eventList) {
        form->m_listHeight = form->m_eventList->height();
        form->m_eventList->resize(form->m_eventList->width(), form->px(kCutListHeight));
    }
    return form;
}

EditEventWindow::EditEventWindow(Context& ctx, QWidget* eventList)
    : QWidget(nullptr, Qt::Dialog), m_ctx(ctx), m_eventList(eventList) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("EditEventWindow"));
    setWindowTitle(QStringLiteral(" Edit"));
    setFixedSize(px(kClientWidth), px(kClientHeight));
    buildControls();
    connectHandlers();
}

void EditEventWindow::buildControls() {
    dateFrame = new QGroupBox(this);
    place(dateFrame, 120, 120, 3492, 612);
    dateEdit = new QLineEdit(QStringLiteral("dateEdit"), dateFrame);
    place(dateEdit, 120, 240, 1812, 264);
    dateEdit->installEventFilter(this);
    dateLabel = new QLabel(QStringLiteral("yyyy/mm/dd"), dateFrame);
    place(dateLabel, 2040, 240, 1332, 252);
    dateLabel->setCursor(Qt::PointingHandCursor);
    dateLabel->setToolTip(QStringLiteral("Choose the day"));
    dateLabel->installEventFilter(this);

    timeFrame = new QGroupBox(QStringLiteral("Alarm time is : "), this);
    place(timeFrame, 120, 960, 3492, 1452);
    auto timeBox = [&](double left, double width, int first, int last) {
        auto* box = new DropDownCombo(timeFrame);
        place(box, left, 360, width, 276);
        box->setEditable(true);
        box->setCompleter(nullptr);
        box->setInsertPolicy(QComboBox::NoInsert);
        for (int n = first; n <= last; ++n)
            box->addItem(QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0')));
        return box;
    };
    hourBox = timeBox(120, 792, 1, 12);
    auto* hourColon = new QLabel(QStringLiteral(":"), timeFrame);
    place(hourColon, 960, 360, 132, 252);
    minuteBox = timeBox(1080, 732, 0, 9);
    auto* minuteColon = new QLabel(QStringLiteral(":"), timeFrame);
    place(minuteColon, 1860, 360, 132, 252);
    secondBox = timeBox(1956, 612, 0, 9);
    auto* timeKeys = new TimeBoxKeys(m_ctx, this);
    for (QComboBox* box :
         {static_cast<QComboBox*>(hourBox), static_cast<QComboBox*>(minuteBox), static_cast<QComboBox*>(secondBox)})
        box->installEventFilter(timeKeys);

    amPm = new QLineEdit(timeFrame);
    place(amPm, 2640, 360, 372, 264);
    amPm->setReadOnly(true);
    amPm->setAlignment(Qt::AlignCenter);
    amPm->setFocusPolicy(Qt::NoFocus);
    amPm->setTextMargins(0, 0, 0, 0);
    upButton = new PictureButton(button_faces::arrowUp, QStringLiteral("AM or PM"), timeFrame);
    place(upButton, 3120, 360, 252, 108);
    downButton = new PictureButton(button_faces::arrowDown, QStringLiteral("AM or PM"), timeFrame);
    place(downButton, 3120, 480, 252, 108);

    playCountBox = new QComboBox(timeFrame);
    place(playCountBox, 1920, 840, 1332, 276);
    playCountBox->addItems(alarm_event::playWords());
    playCountBox->setPlaceholderText(QStringLiteral("Play Times"));
    playCountBox->installEventFilter(new NoTypedKeys(this));

    // The message box of the Input Message window: the same quote rule and length.
    input = new MessageTextBox(this);
    place(input, 120, 2640, 3492, 1572);

    okButton = new QPushButton(QStringLiteral("OK"), this);
    place(okButton, 1800, 4440, 732, 372);
    cancelButton = new QPushButton(QStringLiteral("Cancel"), this);
    place(cancelButton, 2880, 4440, 732, 372);

    calendar = new QCalendarWidget(this);
    place(calendar, 0, 840, 4008, 2136);
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->hide();

    // The layout is measured for an 8-point face of Arial's widths, as on the Alarm Set window.
    QFont design = window_twips::designFont(font());
    setFont(design);
    for (QWidget* w : findChildren<QWidget*>())
        w->setFont(design);
    input->setFont(QFont(QStringLiteral("Times New Roman"), 9));

    setTabOrder(dateEdit, hourBox);
    setTabOrder(hourBox, minuteBox);
    setTabOrder(minuteBox, secondBox);
    setTabOrder(secondBox, playCountBox);
    setTabOrder(playCountBox, input);
    setTabOrder(input, okButton);
    setTabOrder(okButton, cancelButton);

    dateEdit->setAccessibleName(QStringLiteral("Date"));
    accessible_names::nameTimeBoxes(hourBox, minuteBox, secondBox);
    amPm->setAccessibleName(QStringLiteral("AM or PM"));
    upButton->setAccessibleName(QStringLiteral("AM or PM up"));
    downButton->setAccessibleName(QStringLiteral("AM or PM down"));
    playCountBox->setAccessibleName(QStringLiteral("Play Times"));
    input->setAccessibleName(QStringLiteral("Message"));
    new DialogKeys(this, cancelButton);
}

void EditEventWindow::connectHandlers() {
    connect(okButton, &QPushButton::clicked, this, &EditEventWindow::onOkClicked);
    connect(cancelButton, &QPushButton::clicked, this, &EditEventWindow::onCancelClicked);
    connect(upButton, &QAbstractButton::clicked, this, [this] {
        QString am = amPm->text();
        flipHalfDayUp(am);
        amPm->setText(am);
    });
    connect(downButton, &QAbstractButton::clicked, this, [this] {
        QString am = amPm->text();
        flipHalfDayDown(am);
        amPm->setText(am);
    });
    minuteBox->dropDown = [this] { completeList(minuteBox, fillMinutes); };
    secondBox->dropDown = [this] { completeList(secondBox, fillSeconds); };
    connect(calendar, &QCalendarWidget::clicked, this, &EditEventWindow::onCalendarClicked);
    connect(calendar, &QCalendarWidget::activated, this, &EditEventWindow::onCalendarDoubleClicked);
}

void EditEventWindow::load() {
    calendar->setSelectedDate(m_ctx.clock.now().date());
    m_clientWidth = width();
    SettingRecord rec;
    if (settings_records::readRecord(m_ctx.folder, settings_records::kEditWindowLoc, rec))
        window_twips::moveTo(this, rec.value2, rec.value1);
}

void EditEventWindow::showControls(const EditControls& c) {
    playCountBox->setCurrentIndex(c.playCountIndex);
    dateEdit->setText(c.dateEdit);
    setTextKeepingList(hourBox, c.hourBox);
    amPm->setText(c.amPm);
    setTextKeepingList(minuteBox, c.minuteBox);
    setTextKeepingList(secondBox, c.secondBox);
    input->setMessage(c.input);
}

EditControls EditEventWindow::controls() const {
    EditControls c;
    c.dateEdit = dateEdit->text();
    c.hourBox = hourBox->currentText();
    c.minuteBox = minuteBox->currentText();
    c.secondBox = secondBox->currentText();
    c.amPm = amPm->text();
    c.playCountIndex = playCountBox->currentIndex();
    c.input = input->message();
    return c;
}

void EditEventWindow::onOkClicked() {
    EditControls c = controls();
    const bool done = confirmEdit(m_ctx, c);
    // The padded time stands in the boxes whether the edit went through or not.
    if (hourBox->currentText() != c.hourBox)
        setTextKeepingList(hourBox, c.hourBox);
    if (minuteBox->currentText() != c.minuteBox)
        setTextKeepingList(minuteBox, c.minuteBox);
    if (secondBox->currentText() != c.secondBox)
        setTextKeepingList(secondBox, c.secondBox);
    if (done)
        close();
}

void EditEventWindow::onCancelClicked() {
    close();
}

void EditEventWindow::onDateLabelClicked() {
    if (calendar->isHidden()) {
        // The window's width counts its borders; the calendar gets that width less a small margin.
        const int borders = frameGeometry().width() - width();
        if (calendar->width() > frameGeometry().width())
            setClientWidth(qMax(calendar->width(), calendar->width() + px(120) - borders));
        calendar->show();
        calendar->raise();
    } else {
        calendar->hide();
        setClientWidth(m_clientWidth);
    }
}

void EditEventWindow::onCalendarClicked(const QDate& day) {
    dateEdit->setText(dateText(QDateTime(day, QTime(0, 0))));
}

void EditEventWindow::onCalendarDoubleClicked() {
    calendar->hide();
}

void EditEventWindow::setClientWidth(int clientWidth) {
    setFixedWidth(clientWidth);
}

void EditEventWindow::closeEvent(QCloseEvent* event) {
    // Unloaded from here on: the next opening builds the window anew.
    if (current() == this)
        current() = nullptr;
    const QPointF at = window_twips::placeOf(this);
    // Silent, like every settings write: a lost place only means the next window opens elsewhere.
    settings_records::writeEditWindowLoc(m_ctx.folder, static_cast<int32_t>(roundHalfEven(at.y())),
                                         static_cast<int32_t>(roundHalfEven(at.x())));
    if (m_eventList && m_listHeight > 0)
        m_eventList->resize(m_eventList->width(), m_listHeight);
    QWidget::closeEvent(event);
}

bool EditEventWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == dateLabel && event->type() == QEvent::MouseButtonPress) {
        onDateLabelClicked();
        return true;
    }
    if (watched == dateEdit && !committedText(event).isEmpty()) {
        m_ctx.notices.beep(); // composed characters are never digits or "/"
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (!typesCharacter(key))
        return QWidget::eventFilter(watched, event);
    const QChar typed = key->text().at(0);
    if (watched == dateEdit && !editDateKeyPasses(typed)) {
        m_ctx.notices.beep();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

int EditEventWindow::px(double twipValue) const {
    return window_twips::px(this, twipValue);
}
