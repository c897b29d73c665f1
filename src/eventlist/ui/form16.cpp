#include "eventlist/ui/form16.h"
#include "message/ui/message_text_box.h"

#include "alarmset/time_input.h"
#include "alarmset/ui/button_faces.h"
#include "alarmset/ui/drop_down_combo.h"
#include "alarmset/ui/key_filters.h"
#include "alarmset/ui/picture_button.h"
#include "engine/context.h"
#include "eventlist/edit_event.h"
#include "platform/clock.h"
#include "platform/numeric.h"
#include "platform/twips.h"
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

QPointer<Form16>& current() {
    static QPointer<Form16> form;
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

Form16* Form16::instance() {
    return current();
}

Form16* Form16::ShowEditEvent(Context& ctx, const QString& strPlayTimesIs, const QString& strDateIs,
                              const QString& strTimeIs, const QString& strMessageIs, QWidget* eventList) {
    Form16* form = current();
    const bool loading = !form;
    if (loading) {
        form = new Form16(ctx, eventList);
        current() = form;
        form->Form_Load();
    }
    form->showControls(::ShowEditEvent(strPlayTimesIs, strDateIs, strTimeIs, strMessageIs));
    form->show();
    form->raise();
    form->activateWindow();
    // Only the first opening sees the list at its own height.
    if (loading && form->m_eventList) {
        form->lngListHeight = form->m_eventList->height();
        form->m_eventList->resize(form->m_eventList->width(), form->px(kCutListHeight));
    }
    return form;
}

Form16::Form16(Context& ctx, QWidget* eventList) : QWidget(nullptr, Qt::Dialog), m_ctx(ctx), m_eventList(eventList) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("Form16"));
    setWindowTitle(QStringLiteral(" Edit"));
    setFixedSize(px(kClientWidth), px(kClientHeight));
    buildControls();
    connectHandlers();
}

void Form16::buildControls() {
    fraTop = new QGroupBox(this);
    place(fraTop, 120, 120, 3492, 612);
    txtDate = new QLineEdit(QStringLiteral("txtDate"), fraTop);
    place(txtDate, 120, 240, 1812, 264);
    txtDate->installEventFilter(this);
    lblDate = new QLabel(QStringLiteral("yyyy/mm/dd"), fraTop);
    place(lblDate, 2040, 240, 1332, 252);
    lblDate->setCursor(Qt::PointingHandCursor);
    lblDate->setToolTip(QStringLiteral("Choose the day"));
    lblDate->installEventFilter(this);

    Frame1 = new QGroupBox(QStringLiteral("Alarm time is : "), this);
    place(Frame1, 120, 960, 3492, 1452);
    auto timeBox = [&](double left, double width, int first, int last) {
        auto* box = new DropDownCombo(Frame1);
        place(box, left, 360, width, 276);
        box->setEditable(true);
        box->setCompleter(nullptr);
        box->setInsertPolicy(QComboBox::NoInsert);
        for (int n = first; n <= last; ++n)
            box->addItem(QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0')));
        return box;
    };
    cbHour = timeBox(120, 792, 1, 12);
    auto* lblColon1 = new QLabel(QStringLiteral(":"), Frame1);
    place(lblColon1, 960, 360, 132, 252);
    cbMin = timeBox(1080, 732, 0, 9);
    auto* lblColon2 = new QLabel(QStringLiteral(":"), Frame1);
    place(lblColon2, 1860, 360, 132, 252);
    cbSec = timeBox(1956, 612, 0, 9);
    auto* timeKeys = new TimeBoxKeys(m_ctx, this);
    for (QComboBox* box :
         {static_cast<QComboBox*>(cbHour), static_cast<QComboBox*>(cbMin), static_cast<QComboBox*>(cbSec)})
        box->installEventFilter(timeKeys);

    txtAm = new QLineEdit(Frame1);
    place(txtAm, 2640, 360, 372, 264);
    txtAm->setReadOnly(true);
    txtAm->setAlignment(Qt::AlignCenter);
    txtAm->setFocusPolicy(Qt::NoFocus);
    txtAm->setTextMargins(0, 0, 0, 0);
    cmdUp = new PictureButton(button_faces::arrowUp, QStringLiteral("AM or PM"), Frame1);
    place(cmdUp, 3120, 360, 252, 108);
    cmdDown = new PictureButton(button_faces::arrowDown, QStringLiteral("AM or PM"), Frame1);
    place(cmdDown, 3120, 480, 252, 108);

    cbPlayTimes = new QComboBox(Frame1);
    place(cbPlayTimes, 1920, 840, 1332, 276);
    cbPlayTimes->addItems(EditPlayWords());
    cbPlayTimes->setPlaceholderText(QStringLiteral("Play Times"));
    cbPlayTimes->installEventFilter(new NoTypedKeys(this));

    // The message box of the Input Message window: the same quote rule and length.
    txtInput = new MessageTextBox(this);
    place(txtInput, 120, 2640, 3492, 1572);

    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    place(cmdOK, 1800, 4440, 732, 372);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    place(cmdCancel, 2880, 4440, 732, 372);

    MonthView1 = new QCalendarWidget(this);
    place(MonthView1, 0, 840, 4008, 2136);
    MonthView1->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    MonthView1->hide();

    // The layout is measured for an 8-point face of Arial's widths, as on the Alarm Set window.
    QFont design = window_twips::designFont(font());
    setFont(design);
    for (QWidget* w : findChildren<QWidget*>())
        w->setFont(design);
    txtInput->setFont(QFont(QStringLiteral("Times New Roman"), 9));

    setTabOrder(txtDate, cbHour);
    setTabOrder(cbHour, cbMin);
    setTabOrder(cbMin, cbSec);
    setTabOrder(cbSec, cbPlayTimes);
    setTabOrder(cbPlayTimes, txtInput);
    setTabOrder(txtInput, cmdOK);
    setTabOrder(cmdOK, cmdCancel);
}

void Form16::connectHandlers() {
    connect(cmdOK, &QPushButton::clicked, this, &Form16::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &Form16::cmdCancel_Click);
    connect(cmdUp, &QAbstractButton::clicked, this, [this] {
        QString am = txtAm->text();
        UpClick(am);
        txtAm->setText(am);
    });
    connect(cmdDown, &QAbstractButton::clicked, this, [this] {
        QString am = txtAm->text();
        DownClick(am);
        txtAm->setText(am);
    });
    cbMin->dropDown = [this] { completeList(cbMin, MinDropDown); };
    cbSec->dropDown = [this] { completeList(cbSec, SecDropDown); };
    connect(MonthView1, &QCalendarWidget::clicked, this, &Form16::MonthView1_DateClick);
    connect(MonthView1, &QCalendarWidget::activated, this, &Form16::MonthView1_DateDblClick);
}

void Form16::Form_Load() {
    MonthView1->setSelectedDate(m_ctx.clock.now().date());
    lngFormWidth = width();
    SettingRecord rec;
    if (settings_records::readRecord(m_ctx.m.strAppPath, settings_records::kLocationForm16, rec))
        move(px(rec.lngValue2), px(rec.lngValue1));
}

void Form16::showControls(const EditControls& c) {
    cbPlayTimes->setCurrentIndex(c.cbPlayTimesIndex);
    txtDate->setText(c.txtDate);
    setTextKeepingList(cbHour, c.cbHour);
    txtAm->setText(c.txtAm);
    setTextKeepingList(cbMin, c.cbMin);
    setTextKeepingList(cbSec, c.cbSec);
    txtInput->setMessage(c.txtInput);
}

EditControls Form16::controls() const {
    EditControls c;
    c.txtDate = txtDate->text();
    c.cbHour = cbHour->currentText();
    c.cbMin = cbMin->currentText();
    c.cbSec = cbSec->currentText();
    c.txtAm = txtAm->text();
    c.cbPlayTimesIndex = cbPlayTimes->currentIndex();
    c.txtInput = txtInput->message();
    return c;
}

void Form16::cmdOK_Click() {
    EditControls c = controls();
    const bool done = ConfirmEditEvent(m_ctx, c);
    // The padded time stands in the boxes whether the edit went through or not.
    if (cbHour->currentText() != c.cbHour)
        setTextKeepingList(cbHour, c.cbHour);
    if (cbMin->currentText() != c.cbMin)
        setTextKeepingList(cbMin, c.cbMin);
    if (cbSec->currentText() != c.cbSec)
        setTextKeepingList(cbSec, c.cbSec);
    if (done)
        close();
}

void Form16::cmdCancel_Click() {
    close();
}

void Form16::lblDate_Click() {
    if (MonthView1->isHidden()) {
        // The window's width counts its borders; the calendar gets that width less a small margin.
        const int borders = frameGeometry().width() - width();
        if (MonthView1->width() > frameGeometry().width())
            setClientWidth(qMax(MonthView1->width(), MonthView1->width() + px(120) - borders));
        MonthView1->show();
        MonthView1->raise();
    } else {
        MonthView1->hide();
        setClientWidth(lngFormWidth);
    }
}

void Form16::MonthView1_DateClick(const QDate& day) {
    txtDate->setText(dateText(QDateTime(day, QTime(0, 0))));
}

void Form16::MonthView1_DateDblClick() {
    MonthView1->hide();
}

void Form16::setClientWidth(int clientWidth) {
    setFixedWidth(clientWidth);
}

void Form16::closeEvent(QCloseEvent* event) {
    // Unloaded from here on: the next opening builds the window anew.
    if (current() == this)
        current() = nullptr;
    const QPoint at = pos();
    // Silent, like every settings write: a lost place only means the next window opens elsewhere.
    settings_records::writeLocationForm16(m_ctx.m.strAppPath, static_cast<int32_t>(roundHalfEven(twipsOf(at.y()))),
                                          static_cast<int32_t>(roundHalfEven(twipsOf(at.x()))));
    if (m_eventList && lngListHeight > 0)
        m_eventList->resize(m_eventList->width(), lngListHeight);
    QWidget::closeEvent(event);
}

bool Form16::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblDate && event->type() == QEvent::MouseButtonPress) {
        lblDate_Click();
        return true;
    }
    if (watched == txtDate && !committedText(event).isEmpty()) {
        m_ctx.notices.Beep(); // composed characters are never digits or "/"
        return true;
    }
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    auto* key = static_cast<QKeyEvent*>(event);
    if (!typesCharacter(key))
        return QWidget::eventFilter(watched, event);
    const QChar typed = key->text().at(0);
    if (watched == txtDate && !EditDateKeyPasses(typed)) {
        m_ctx.notices.Beep();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

int Form16::px(double twipValue) const {
    return window_twips::px(this, twipValue);
}

double Form16::twipsOf(int logicalPixels) const {
    return twips::toTwips(qRound(logicalPixels * devicePixelRatioF()), window_twips::twipsPerPixel(this));
}
