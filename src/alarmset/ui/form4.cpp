#include "alarmset/ui/form4.h"

#include "alarmset/add_click.h"
#include "alarmset/day_list_delete.h"
#include "alarmset/form4_settings.h"
#include "alarmset/song_choice.h"
#include "alarmset/time_input.h"
#include "alarmset/ui/button_faces.h"
#include "alarmset/ui/drop_down_combo.h"
#include "alarmset/ui/form4_hooks.h"
#include "alarmset/ui/key_filters.h"
#include "alarmset/ui/picture_box.h"
#include "alarmset/ui/picture_button.h"
#include "alarmset/ui/single_pick_list.h"
#include "engine/alarm_tick.h"
#include "engine/context.h"
#include "engine/schedule_file.h"
#include "eventlist/ui/bwklistbox_view.h"
#include "platform/clock.h"
#include "platform/twips.h"
#include "platform/ui/window_twips.h"

#include <QAbstractButton>
#include <QCalendarWidget>
#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>

namespace {

constexpr double kClientWidth = 6384;
// The window's height with its caption, borders and menu; the caption and borders take 405 of it.
constexpr double kFormHeight = 4860;
constexpr double kCaptionAndBorders = 405;
constexpr double kViewWidth = 4092;
constexpr double kViewHeight = 3012;

const QString kCaption = QStringLiteral("Bellwick Alarm Clock sp...");

QStringList itemsOf(const QComboBox* box) {
    QStringList items;
    for (int i = 0; i < box->count(); ++i)
        items.append(box->itemText(i));
    return items;
}

// Adds the items a procedure appended to the list it was given.
void addNewItems(QComboBox* box, const QStringList& items) {
    for (int i = box->count(); i < items.size(); ++i)
        box->addItem(items.at(i));
}

void setEditTextIfChanged(QComboBox* box, const QString& text) {
    if (box->currentText() != text)
        box->setEditText(text);
}

} // namespace

Form4::Form4(Context& ctx, Form4Hooks& hooks, QWidget* parent) : QMainWindow(parent), ctx(ctx), hooks(hooks) {
    setObjectName(QStringLiteral("Form4"));
    setWindowTitle(QStringLiteral("Bellwick Alarm Clock..."));

    mSettings = menuBar()->addAction(QStringLiteral("Settings"));
    mComing = menuBar()->addAction(QStringLiteral("Coming"));

    auto* client = new QWidget(this);
    setCentralWidget(client);
    buildControls(client);
    connectHandlers();

    const int height = px(kFormHeight - kCaptionAndBorders);
    client->setFixedSize(px(kClientWidth), height - menuBar()->sizeHint().height());
    setFixedSize(px(kClientWidth), height);

    Timer1 = new QTimer(this);
    Timer1->setTimerType(Qt::PreciseTimer);
    Timer1->setInterval(1000);
    connect(Timer1, &QTimer::timeout, this, &Form4::Timer1_Timer);
    Timer1->start();
}

void Form4::buildControls(QWidget* client) {
    auto place = [](QWidget* w, double left, double top, double width, double height, const char* name) {
        window_twips::place(w, left, top, width, height);
        w->setObjectName(QLatin1String(name));
    };

    Frame2 = new QGroupBox(QStringLiteral("Play list :"), client);
    place(Frame2, 120, 360, 6132, 2052, "Frame2");

    lstData = new SinglePickList(Frame2);
    place(lstData, 120, 360, 1812, 1488, "lstData");
    lstData->setModel(&ctx.lstData);
    lstData->setSelectionModel(ctx.lstData.selection());
    lstData->setEditTriggers(QAbstractItemView::NoEditTriggers);
    lstData->setUniformItemSizes(true);

    imgSha = new PictureBox(button_faces::hourglass, Frame2);
    place(imgSha, 840, 720, 228, 312, "imgSha");
    imgSha->hide();

    lblATis = new QLabel(QStringLiteral("Alarm time is :"), Frame2);
    place(lblATis, 2520, 240, 1812, 252, "lblATis");

    auto timeBox = [&](double left, double width, const char* name, int last) {
        auto* box = new DropDownCombo(Frame2);
        place(box, left, 480, width, 276, name);
        box->setEditable(true);
        box->setCompleter(nullptr);
        box->setInsertPolicy(QComboBox::NoInsert);
        for (int n = last == 12 ? 1 : 0; n <= last; ++n)
            box->addItem(QStringLiteral("%1").arg(n, 2, 10, QLatin1Char('0')));
        box->setCurrentIndex(-1);
        box->setEditText(QString());
        return box;
    };
    cbHour = timeBox(2520, 792, "cbHour", 12);
    lblColon1 = new QLabel(QStringLiteral(":"), Frame2);
    place(lblColon1, 3360, 480, 132, 252, "lblColon1");
    cbMin = timeBox(3480, 732, "cbMin", 9);
    lblColon2 = new QLabel(QStringLiteral(":"), Frame2);
    place(lblColon2, 4320, 480, 132, 252, "lblColon2");
    cbSec = timeBox(4440, 612, "cbSec", 9);
    auto* timeKeys = new TimeBoxKeys(ctx, this);
    for (QComboBox* box :
         {static_cast<QComboBox*>(cbHour), static_cast<QComboBox*>(cbMin), static_cast<QComboBox*>(cbSec)})
        box->installEventFilter(timeKeys);

    txtAm = new QLineEdit(Frame2);
    place(txtAm, 5160, 480, 372, 264, "txtAm");
    txtAm->setReadOnly(true);
    txtAm->setAlignment(Qt::AlignCenter);
    txtAm->setFocusPolicy(Qt::NoFocus);
    txtAm->setTextMargins(0, 0, 0, 0);

    cmdUp = new PictureButton(button_faces::arrowUp, QStringLiteral("AM or PM"), Frame2);
    place(cmdUp, 5640, 480, 252, 108, "cmdUp");
    cmdDown = new PictureButton(button_faces::arrowDown, QStringLiteral("AM or PM"), Frame2);
    place(cmdDown, 5640, 600, 252, 108, "cmdDown");

    lblDate = new QLabel(QStringLiteral("Date"), Frame2);
    place(lblDate, 2520, 960, 1692, 252, "lblDate");
    lblDate->setAlignment(Qt::AlignCenter);
    lblDate->setAutoFillBackground(true);
    lblDate->setFrameShape(QFrame::Box);
    lblDate->setCursor(Qt::PointingHandCursor);
    lblDate->setToolTip(QStringLiteral("Choose the day"));
    showDateLabel(QStringLiteral("Date"), QColor(0x00, 0x00, 0x80), QColor(0xff, 0xff, 0xff));
    lblDate->installEventFilter(this);

    auto* noKeys = new NoTypedKeys(this);
    cbPlayTimes = new QComboBox(Frame2);
    place(cbPlayTimes, 4560, 960, 1332, 276, "cbPlayTimes");
    cbPlayTimes->addItems(
        {QStringLiteral("once"), QStringLiteral("twice"), QStringLiteral("thrice"), QStringLiteral("repeat")});
    cbPlayTimes->setPlaceholderText(QStringLiteral("Play Times"));
    cbPlayTimes->setCurrentIndex(-1);
    cbPlayTimes->installEventFilter(noKeys);

    cmdWithMessage = new PictureButton(button_faces::addWithPencil, QStringLiteral("Add with a message"), Frame2);
    place(cmdWithMessage, 4320, 1440, 732, 372, "cmdWithMessage");
    cmdAdd = new QPushButton(QStringLiteral("Add"), Frame2);
    place(cmdAdd, 5280, 1440, 612, 372, "cmdAdd");
    cmdAdd->setDefault(true);

    cmdDelete = new PictureButton(button_faces::scissors, QStringLiteral("Delete the selected alarm"), client);
    place(cmdDelete, 240, 2640, 372, 252, "cmdDelete");
    cmdDeleteAll = new PictureButton(button_faces::twoScissors, QStringLiteral("Delete all alarms of today"), client);
    place(cmdDeleteAll, 1200, 2640, 732, 252, "cmdDeleteAll");

    chkEMPlay = new QCheckBox(QStringLiteral("Every"), client);
    place(chkEMPlay, 2640, 2688, 732, 180, "chkEMPlay");
    chkEMPlay->setEnabled(false);
    cbEMPlay = new QComboBox(client);
    place(cbEMPlay, 3360, 2640, 732, 276, "cbEMPlay");
    cbEMPlay->addItems({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4"),
                        QStringLiteral("5"), QStringLiteral("10"), QStringLiteral("15"), QStringLiteral("30"),
                        QStringLiteral("60")});
    cbEMPlay->setCurrentIndex(-1);
    cbEMPlay->installEventFilter(noKeys);
    Label2 = new QLabel(QStringLiteral("min(s)"), client);
    place(Label2, 4200, 2700, 612, 252, "Label2");

    cmdViewM = new QPushButton(m_view.caption, client);
    place(cmdViewM, 240, 3120, 1452, 372, "cmdViewM");

    cmbSong = new DropDownCombo(client);
    place(cmbSong, 2640, 3120, 2172, 276, "cmbSong");
    cmbSong->setPlaceholderText(QStringLiteral("Song"));
    cmbSong->installEventFilter(noKeys);
    cmdPlayB = new PictureButton(button_faces::playTriangle, QStringLiteral("Play the song"), client);
    place(cmdPlayB, 4920, 3240, 252, 156, "cmdPlayB");

    cmdMin = new PictureButton(button_faces::minimiseBar, QStringLiteral("Minimise"), client);
    place(cmdMin, 5520, 3240, 612, 180, "cmdMin");
    cmdExit = new QPushButton(QStringLiteral("Exit"), client);
    place(cmdExit, 5520, 3600, 612, 372, "cmdExit");

    cmdSaveFile = new PictureButton(button_faces::floppyDisk, QStringLiteral("Save alarms to a file"), client);
    place(cmdSaveFile, 240, 3720, 252, 252, "cmdSaveFile");
    cmdLoad = new PictureButton(button_faces::openFolder, QStringLiteral("Load alarms from files"), client);
    place(cmdLoad, 840, 3720, 252, 252, "cmdLoad");
    cmdEditor = new PictureButton(button_faces::sheetAndPencil, QStringLiteral("Edit a data file"), client);
    place(cmdEditor, 1560, 3600, 372, 372, "cmdEditor");

    Image1 = new PictureBox(button_faces::ringingBell, client);
    place(Image1, 5160, 0, 852, 336, "Image1");

    txtViewM = new QPlainTextEdit(client);
    place(txtViewM, 2160, 0, 372, 264, "txtViewM");
    txtViewM->setReadOnly(true);
    txtViewM->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    txtViewM->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    txtViewM->hide();

    MonthView1 = new QCalendarWidget(client);
    place(MonthView1, 120, 1680, 4008, 2136, "MonthView1");
    MonthView1->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    MonthView1->setGridVisible(false);
    MonthView1->hide();

    Bwklistbox1 = new BwklistboxView(ctx, client);
    place(Bwklistbox1, 120, 2568, 5292, 1716, "Bwklistbox1");
    Bwklistbox1->showPopupMenu = [this](QPoint globalPos) {
        if (this->hooks.showEventPopup)
            this->hooks.showEventPopup(globalPos);
    };
    Bwklistbox1->hide();

    // The layout is measured for an 8-point face of Arial's widths; the wider desktop faces would cut captions.
    // It is set on every control, so that a font given to the frame later stays on the frame.
    QFont design = window_twips::designFont(font());
    setFont(design);
    for (QWidget* w : client->findChildren<QWidget*>())
        w->setFont(design);
    menuBar()->setFont(design);

    setTabOrder(cbHour, cbMin);
    setTabOrder(cbMin, cbSec);
    setTabOrder(cbSec, cbPlayTimes);
    setTabOrder(cbPlayTimes, cmdAdd);
    cbHour->setFocus();
}

void Form4::connectHandlers() {
    connect(cmdAdd, &QPushButton::clicked, this, &Form4::cmdAdd_Click);
    connect(cmdWithMessage, &QAbstractButton::clicked, this, &Form4::cmdWithMessage_Click);
    connect(cmdUp, &QAbstractButton::clicked, this, &Form4::cmdUp_Click);
    connect(cmdDown, &QAbstractButton::clicked, this, &Form4::cmdDown_Click);
    cbMin->dropDown = [this] {
        QStringList items = itemsOf(cbMin);
        MinDropDown(items);
        addNewItems(cbMin, items);
    };
    cbSec->dropDown = [this] {
        QStringList items = itemsOf(cbSec);
        SecDropDown(items);
        addNewItems(cbSec, items);
    };
    connect(MonthView1, &QCalendarWidget::clicked, this, &Form4::MonthView1_DateClick);
    connect(MonthView1, &QCalendarWidget::activated, this, &Form4::MonthView1_DateDblClick);
    connect(cmdDelete, &QAbstractButton::clicked, this, &Form4::cmdDelete_Click);
    connect(cmdDeleteAll, &QAbstractButton::clicked, this, &Form4::cmdDeleteAll_Click);
    lstData->viewport()->installEventFilter(this);
    connect(cmdViewM, &QPushButton::clicked, this, &Form4::cmdViewM_Click);
    connect(cbEMPlay, &QComboBox::activated, this, &Form4::cbEMPlay_Click);
    connect(chkEMPlay, &QCheckBox::clicked, this, &Form4::chkEMPlay_Click);
    cmbSong->dropDown = [this] { cmbSong_DropDown(); };
    connect(cmbSong, &QComboBox::activated, this, &Form4::cmbSong_Click);
    connect(cmdPlayB, &QAbstractButton::clicked, this, &Form4::cmdPlayB_Click);
    connect(cmdMin, &QAbstractButton::clicked, this, &Form4::cmdMin_Click);
    connect(cmdExit, &QPushButton::clicked, this, &Form4::cmdExit_Click);
    connect(cmdSaveFile, &QAbstractButton::clicked, this, [this] {
        if (hooks.cmdSaveFile)
            hooks.cmdSaveFile();
    });
    connect(cmdLoad, &QAbstractButton::clicked, this, [this] {
        if (hooks.cmdLoad)
            hooks.cmdLoad();
    });
    connect(cmdEditor, &QAbstractButton::clicked, this, [this] {
        if (hooks.cmdEditor)
            hooks.cmdEditor();
    });
    connect(mSettings, &QAction::triggered, this, &Form4::mSettings_Click);
    connect(mComing, &QAction::triggered, this, &Form4::mComing_Click);
}

void Form4::Form_Load() {
    ctx.strTimesOfPlay = QStringLiteral("once");
    Form4LoadResult loaded;
    fForm4Load(ctx, loaded);
    txtAm->setText(loaded.txtAm);
    if (loaded.havePosition)
        move(px(loaded.left), px(loaded.top));
    ApplyFontSetting();
    ctx.m.strAlarmDate = ctx.clock.dateText();
    lblDate->setText(ctx.m.strAlarmDate);
    LoadFutureFile(ctx, QStringLiteral("future.dat"));
    window_twips::place(Bwklistbox1, 120, 2568, 5292, 1716);
    MonthView1->move(px(120), px(1680));
    lngDateFore = lblDate->palette().color(QPalette::WindowText);
    lngDateBack = lblDate->palette().color(QPalette::Window);
    MonthView1->setSelectedDate(ctx.clock.now().date());
    ctx.m.strAlarmDate = ctx.clock.dateText();
}

void Form4::ApplyFontSetting() {
    const ControlFont chosen = Form4ControlFont(ctx);
    if (!chosen.family.isEmpty())
        SetControlFonts(chosen.family, chosen.pointSize);
}

void Form4::SetControlFonts(const QString& fontName, int pointSize) {
    const QList<QWidget*> controls = {cbHour,  cbMin,    cbPlayTimes, cbSec,  cmbSong, cmdAdd,
                                      cmdExit, cmdViewM, Frame2,      Label2, lblATis, lstData};
    for (QWidget* w : controls) {
        QFont f = w->font();
        f.setFamily(fontName);
        if (pointSize > 0)
            f.setPointSize(pointSize);
        w->setFont(f);
    }
}

void Form4::SetNoSecondMode(bool on) {
    lblColon2->setVisible(!on);
    cbSec->setVisible(!on);
}

void Form4::EveryControlsChanged() {
    const QSignalBlocker blocker(chkEMPlay);
    chkEMPlay->setChecked(ctx.everyControls.checked);
    cbEMPlay->setEnabled(ctx.everyControls.intervalEnabled);
}

void Form4::setDataListShaded(bool shaded) {
    lstData->setVisible(!shaded);
    imgSha->setVisible(shaded);
}

void Form4::Timer1_Timer() {
    if (isVisible())
        setWindowTitle(kCaption + captionMoment(ctx.clock.now()));
}

void Form4::closeEvent(QCloseEvent* event) {
    event->ignore();
    hide();
    ctx.unloadForm8();
}

void Form4::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QMainWindow::keyPressEvent(event);
        return;
    }
    // A check box has no click of its own for Enter.
    auto* focused = qobject_cast<QAbstractButton*>(focusWidget());
    if (!focused || qobject_cast<QCheckBox*>(focused))
        focused = cmdAdd;
    focused->click();
}

bool Form4::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblDate && event->type() == QEvent::MouseButtonRelease &&
        lblDate->rect().contains(static_cast<QMouseEvent*>(event)->position().toPoint())) {
        lblDate_Click();
    } else if (watched == lstData->viewport() && event->type() == QEvent::MouseButtonDblClick) {
        lstData_DblClick();
    }
    return QMainWindow::eventFilter(watched, event);
}

EntryControls Form4::entryControls() const {
    EntryControls c;
    c.cbHour = cbHour->currentText();
    c.cbMin = cbMin->currentText();
    c.cbSec = cbSec->currentText();
    c.cbSecIndex = cbSec->currentIndex();
    c.txtAm = txtAm->text();
    c.cbPlayTimesIndex = cbPlayTimes->currentIndex();
    c.cbPlayTimesText = cbPlayTimes->currentText();
    return c;
}

void Form4::showEntry(const EntryControls& c) {
    setEditTextIfChanged(cbHour, c.cbHour);
    setEditTextIfChanged(cbMin, c.cbMin);
    if (cbSec->currentIndex() != c.cbSecIndex)
        cbSec->setCurrentIndex(c.cbSecIndex);
    setEditTextIfChanged(cbSec, c.cbSec);
}

int Form4::px(double twipValue) const {
    return window_twips::px(this, twipValue);
}

double Form4::twipsOf(int logicalPixels) const {
    return twips::toTwips(qRound(logicalPixels * devicePixelRatioF()), window_twips::twipsPerPixel(this));
}

Form4Links Form4::links() {
    Form4Links l;
    l.GetOldMessageToTextbox = hooks.GetOldMessageToTextbox;
    l.GetAllMessages = hooks.GetAllMessages;
    l.setDataListShaded = [this](bool shaded) { setDataListShaded(shaded); };
    l.showEventList = [this] {
        Bwklistbox1->show();
        Bwklistbox1->raise();
    };
    return l;
}

void Form4::addEvent() {
    EntryControls c = entryControls();
    AddClick(ctx, c, ctx.strTimesOfPlay, links());
    showEntry(c);
}

void Form4::cmdAdd_Click() {
    addEvent();
}

void Form4::cmdWithMessage_Click() {
    ctx.m.blnWithMessage = true;
    addEvent();
    ctx.m.blnWithMessage = false;
}

void Form4::cmdUp_Click() {
    QString am = txtAm->text();
    UpClick(am);
    txtAm->setText(am);
}

void Form4::cmdDown_Click() {
    QString am = txtAm->text();
    DownClick(am);
    txtAm->setText(am);
}

void Form4::showDateLabel(const QString& caption, const QColor& fore, const QColor& back) {
    QPalette palette = lblDate->palette();
    palette.setColor(QPalette::WindowText, fore);
    palette.setColor(QPalette::Window, back);
    lblDate->setPalette(palette);
    lblDate->setText(caption);
}

void Form4::lblDate_Click() {
    MonthView1->setVisible(!MonthView1->isVisible());
    MonthView1->raise();
}

void Form4::MonthView1_DateClick(const QDate& day) {
    DateLabel label;
    DateClick(ctx, day, lngDateFore, lngDateBack, label);
    showDateLabel(label.caption, label.fore, label.back);
}

void Form4::MonthView1_DateDblClick() {
    MonthView1->hide();
}

void Form4::cmdDelete_Click() {
    DeleteClick(ctx, links());
}

void Form4::cmdDeleteAll_Click() {
    DeleteAllClick(ctx);
}

void Form4::lstData_DblClick() {
    DataDblClick(ctx, links());
}

void Form4::cmdViewM_Click() {
    ViewMClick(ctx, m_view);
    cmdViewM->setText(m_view.caption);
    if (m_view.visible) {
        // The view's lines end in CR LF; the box breaks lines on LF alone.
        QString text = m_view.text;
        text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        txtViewM->setPlainText(text);
        txtViewM->resize(px(kViewWidth), px(kViewHeight));
        txtViewM->show();
        txtViewM->raise();
    } else {
        txtViewM->hide();
        txtViewM->clear();
    }
}

void Form4::cbEMPlay_Click() {
    if (cbEMPlay->currentIndex() < 0)
        return;
    chkEMPlay->setEnabled(true);
    ctx.everyControls.interval = cbEMPlay->currentText();
}

void Form4::chkEMPlay_Click() {
    ctx.everyControls.checked = chkEMPlay->isChecked();
    ctx.everyControls.interval = cbEMPlay->currentText();
    ::chkEMPlay_Click(ctx);
    EveryControlsChanged();
}

void Form4::cmbSong_DropDown() {
    QStringList songs;
    SongDropDown(ctx, songs);
    cmbSong->clear();
    cmbSong->addItems(songs);
    cmbSong->setCurrentIndex(-1);
}

void Form4::cmbSong_Click(int index) {
    SongClick(ctx, itemsOf(cmbSong), index);
}

void Form4::cmdPlayB_Click() {
    PlayBClick(ctx, itemsOf(cmbSong), cmbSong->currentIndex());
}

void Form4::cmdMin_Click() {
    showMinimized();
    ctx.unloadForm8();
}

void Form4::cmdExit_Click() {
    fForm4ExitClick(ctx, twipsOf(y()), twipsOf(x()), ctx.lstData);
    hide();
    ctx.unloadForm8();
}

void Form4::mSettings_Click() {
    if (hooks.showSettings)
        hooks.showSettings();
}

void Form4::mComing_Click() {
    Bwklistbox1->setVisible(!Bwklistbox1->isVisible());
    Bwklistbox1->raise();
}
