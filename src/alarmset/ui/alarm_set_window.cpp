#include "alarmset/ui/alarm_set_window.h"

#include "alarmset/add_entry.h"
#include "alarmset/alarm_set_settings.h"
#include "alarmset/day_list_delete.h"
#include "alarmset/song_choice.h"
#include "alarmset/time_input.h"
#include "alarmset/ui/alarm_set_hooks.h"
#include "alarmset/ui/button_faces.h"
#include "alarmset/ui/drop_down_combo.h"
#include "alarmset/ui/key_filters.h"
#include "alarmset/ui/picture_box.h"
#include "alarmset/ui/picture_button.h"
#include "alarmset/ui/single_pick_list.h"
#include "engine/alarm_event.h"
#include "engine/alarm_tick.h"
#include "engine/context.h"
#include "engine/schedule_file.h"
#include "eventlist/ui/event_list_view.h"
#include "platform/clock.h"
#include "platform/ui/accessible_names.h"
#include "platform/ui/focus_marked_button.h"
#include "platform/ui/window_place.h"
#include "platform/ui/window_twips.h"

#include <QAbstractButton>
#include <QAbstractItemView>
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
#include <QShowEvent>
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

AlarmSetWindow::AlarmSetWindow(Context& ctx, AlarmSetHooks& hooks, QWidget* parent)
    : QMainWindow(parent), ctx(ctx), hooks(hooks) {
    setObjectName(QStringLiteral("AlarmSetWindow"));
    window_place::keep(*this);
    setWindowTitle(QStringLiteral("Bellwick Alarm Clock..."));

    settingsAction = menuBar()->addAction(QStringLiteral("Settings"));
    comingAction = menuBar()->addAction(QStringLiteral("Coming"));

    auto* client = new QWidget(this);
    setCentralWidget(client);
    buildControls(client);
    connectHandlers();

    const int height = px(kFormHeight - kCaptionAndBorders);
    client->setFixedSize(px(kClientWidth), height - menuBar()->sizeHint().height());
    setFixedSize(px(kClientWidth), height);

    timer = new QTimer(this);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(1000);
    connect(timer, &QTimer::timeout, this, &AlarmSetWindow::onTick);
}

// The title clock touches nothing while the window is hidden, so it need not wake the program then.
void AlarmSetWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    timer->start();
    // Shown again after hiding: typing goes to the hour, not to the button that hid the window.
    if (!event->spontaneous())
        hourBox->setFocus(Qt::OtherFocusReason);
}

void AlarmSetWindow::hideEvent(QHideEvent* event) {
    QMainWindow::hideEvent(event);
    // Minimising hides too, and the title still counts in the taskbar.
    if (!isVisible())
        timer->stop();
}

void AlarmSetWindow::buildControls(QWidget* client) {
    auto place = [](QWidget* w, double left, double top, double width, double height, const char* name) {
        window_twips::place(w, left, top, width, height);
        w->setObjectName(QLatin1String(name));
    };

    playListFrame = new QGroupBox(QStringLiteral("Play list :"), client);
    place(playListFrame, 120, 360, 6132, 2052, "playListFrame");

    todayList = new SinglePickList(playListFrame);
    place(todayList, 120, 360, 1812, 1488, "todayList");
    todayList->setModel(&ctx.today.alarms);
    todayList->setSelectionModel(ctx.today.alarms.selection());
    todayList->setEditTriggers(QAbstractItemView::NoEditTriggers);
    todayList->setUniformItemSizes(true);

    hourglass = new PictureBox(button_faces::hourglass, playListFrame);
    place(hourglass, 840, 720, 228, 312, "hourglass");
    hourglass->hide();

    atLabel = new QLabel(QStringLiteral("Alarm time is :"), playListFrame);
    place(atLabel, 2520, 240, 1812, 252, "atLabel");

    auto timeBox = [&](double left, double width, const char* name, int last) {
        auto* box = new DropDownCombo(playListFrame);
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
    hourBox = timeBox(2520, 792, "hourBox", 12);
    hourColon = new QLabel(QStringLiteral(":"), playListFrame);
    place(hourColon, 3360, 480, 132, 252, "hourColon");
    minuteBox = timeBox(3480, 732, "minuteBox", 9);
    minuteColon = new QLabel(QStringLiteral(":"), playListFrame);
    place(minuteColon, 4320, 480, 132, 252, "minuteColon");
    secondBox = timeBox(4440, 612, "secondBox", 9);
    auto* timeKeys = new TimeBoxKeys(ctx, this);
    for (QComboBox* box :
         {static_cast<QComboBox*>(hourBox), static_cast<QComboBox*>(minuteBox), static_cast<QComboBox*>(secondBox)})
        box->installEventFilter(timeKeys);

    amPm = new QLineEdit(playListFrame);
    place(amPm, 5160, 480, 372, 264, "amPm");
    amPm->setReadOnly(true);
    amPm->setAlignment(Qt::AlignCenter);
    amPm->setFocusPolicy(Qt::NoFocus);
    amPm->setTextMargins(0, 0, 0, 0);

    upButton = new PictureButton(button_faces::arrowUp, QStringLiteral("AM or PM up"), playListFrame);
    place(upButton, 5640, 480, 252, 108, "upButton");
    downButton = new PictureButton(button_faces::arrowDown, QStringLiteral("AM or PM down"), playListFrame);
    place(downButton, 5640, 600, 252, 108, "downButton");

    dateLabel = new QLabel(QStringLiteral("Date"), playListFrame);
    place(dateLabel, 2520, 960, 1692, 252, "dateLabel");
    dateLabel->setAlignment(Qt::AlignCenter);
    dateLabel->setAutoFillBackground(true);
    dateLabel->setFrameShape(QFrame::Box);
    dateLabel->setCursor(Qt::PointingHandCursor);
    dateLabel->setToolTip(QStringLiteral("Choose the day"));
    showDateLabel(QStringLiteral("Date"), QColor(0x00, 0x00, 0x80), QColor(0xff, 0xff, 0xff));
    dateLabel->installEventFilter(this);
    // A Tab stop: Space, Enter or F4 opens the calendar, as a click does.
    dateLabel->setFocusPolicy(Qt::TabFocus);
    dateLabel->setAccessibleDescription(QStringLiteral("The alarm's day: Space, Enter or F4 opens the calendar"));

    auto* noKeys = new NoTypedKeys(this);
    playCountBox = new QComboBox(playListFrame);
    place(playCountBox, 4560, 960, 1332, 276, "playCountBox");
    playCountBox->addItems(alarm_event::playWords());
    playCountBox->setPlaceholderText(QStringLiteral("Play Times"));
    playCountBox->setCurrentIndex(-1);
    playCountBox->installEventFilter(noKeys);

    withMessageButton =
        new PictureButton(button_faces::addWithPencil, QStringLiteral("Add with a message"), playListFrame);
    place(withMessageButton, 4320, 1440, 732, 372, "withMessageButton");
    addButton = new FocusMarkedButton(QStringLiteral("Add"), playListFrame);
    place(addButton, 5280, 1440, 612, 372, "addButton");
    addButton->setDefault(true);

    deleteButton = new PictureButton(button_faces::scissors, QStringLiteral("Delete the selected alarm"), client);
    place(deleteButton, 240, 2640, 372, 252, "deleteButton");
    deleteAllButton =
        new PictureButton(button_faces::twoScissors, QStringLiteral("Delete all alarms of today"), client);
    place(deleteAllButton, 1200, 2640, 732, 252, "deleteAllButton");

    chimeBox = new QCheckBox(QStringLiteral("Every"), client);
    place(chimeBox, 2640, 2688, 732, 180, "chimeBox");
    chimeBox->setEnabled(false);
    chimeIntervalBox = new QComboBox(client);
    place(chimeIntervalBox, 3360, 2640, 732, 276, "chimeIntervalBox");
    chimeIntervalBox->addItems({QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"), QStringLiteral("4"),
                                QStringLiteral("5"), QStringLiteral("10"), QStringLiteral("15"), QStringLiteral("30"),
                                QStringLiteral("60")});
    chimeIntervalBox->setCurrentIndex(-1);
    chimeIntervalBox->installEventFilter(noKeys);
    minutesLabel = new QLabel(QStringLiteral("min(s)"), client);
    place(minutesLabel, 4200, 2700, 612, 252, "minutesLabel");

    viewMessagesButton = new QPushButton(m_view.caption, client);
    place(viewMessagesButton, 240, 3120, 1452, 372, "viewMessagesButton");

    songBox = new DropDownCombo(client);
    place(songBox, 2640, 3120, 2172, 276, "songBox");
    songBox->setPlaceholderText(QStringLiteral("Song"));
    songBox->installEventFilter(noKeys);
    playSongButton = new PictureButton(button_faces::playTriangle, QStringLiteral("Play the song"), client);
    place(playSongButton, 4920, 3240, 252, 156, "playSongButton");

    minimiseButton = new PictureButton(button_faces::minimiseBar, QStringLiteral("Minimise"), client);
    place(minimiseButton, 5520, 3240, 612, 180, "minimiseButton");
    exitButton = new QPushButton(QStringLiteral("Exit"), client);
    place(exitButton, 5520, 3600, 612, 372, "exitButton");

    saveFileButton = new PictureButton(button_faces::floppyDisk, QStringLiteral("Save alarms to a file"), client);
    place(saveFileButton, 240, 3720, 252, 252, "saveFileButton");
    loadButton = new PictureButton(button_faces::openFolder, QStringLiteral("Load alarms from files"), client);
    place(loadButton, 840, 3720, 252, 252, "loadButton");
    editorButton = new PictureButton(button_faces::sheetAndPencil, QStringLiteral("Edit a data file"), client);
    place(editorButton, 1560, 3600, 372, 372, "editorButton");

    bellPicture = new PictureBox(button_faces::ringingBell, client);
    place(bellPicture, 5160, 0, 852, 336, "bellPicture");

    messageView = new QPlainTextEdit(client);
    place(messageView, 2160, 0, 372, 264, "messageView");
    messageView->setReadOnly(true);
    messageView->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    messageView->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    messageView->hide();

    calendar = new QCalendarWidget(client);
    place(calendar, 120, 1680, 4008, 2136, "calendar");
    calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    calendar->setGridVisible(false);
    calendar->hide();
    if (auto* days = calendar->findChild<QAbstractItemView*>())
        days->installEventFilter(this);

    eventListView = new EventListView(ctx, client);
    place(eventListView, 120, 2568, 5292, 1716, "eventListView");
    eventListView->showPopupMenu = [this](QPoint globalPos) {
        if (this->hooks.showEventPopup)
            this->hooks.showEventPopup(globalPos);
    };
    eventListView->hide();
    for (QWidget* overlay :
         {static_cast<QWidget*>(messageView), static_cast<QWidget*>(calendar), static_cast<QWidget*>(eventListView)})
        overlay->installEventFilter(this);

    todayList->setAccessibleName(QStringLiteral("Play list"));
    accessible_names::nameTimeBoxes(hourBox, minuteBox, secondBox);
    amPm->setAccessibleName(QStringLiteral("AM or PM"));
    playCountBox->setAccessibleName(QStringLiteral("Play Times"));
    chimeIntervalBox->setAccessibleName(QStringLiteral("Chime every so many minutes"));
    songBox->setAccessibleName(QStringLiteral("Song"));
    messageView->setAccessibleName(QStringLiteral("Messages"));
    hourglass->setAccessibleName(QStringLiteral("Busy"));
    bellPicture->setAccessibleName(QStringLiteral("Bell"));

    // The layout is measured for an 8-point face of Arial's widths; the wider desktop faces would cut captions.
    // It is set on every control, so that a font given to the frame later stays on the frame.
    QFont design = window_twips::designFont(font());
    setFont(design);
    for (QWidget* w : client->findChildren<QWidget*>())
        w->setFont(design);
    menuBar()->setFont(design);

    setTabOrder(hourBox, minuteBox);
    setTabOrder(minuteBox, secondBox);
    setTabOrder(secondBox, playCountBox);
    setTabOrder(playCountBox, dateLabel);
    setTabOrder(dateLabel, addButton);
    hourBox->setFocus();
}

void AlarmSetWindow::connectHandlers() {
    connect(addButton, &QPushButton::clicked, this, &AlarmSetWindow::onAddClicked);
    connect(withMessageButton, &QAbstractButton::clicked, this, &AlarmSetWindow::onWithMessageClicked);
    connect(upButton, &QAbstractButton::clicked, this, &AlarmSetWindow::onUpClicked);
    connect(downButton, &QAbstractButton::clicked, this, &AlarmSetWindow::onDownClicked);
    minuteBox->dropDown = [this] {
        QStringList items = itemsOf(minuteBox);
        fillMinutes(items);
        addNewItems(minuteBox, items);
    };
    secondBox->dropDown = [this] {
        QStringList items = itemsOf(secondBox);
        fillSeconds(items);
        addNewItems(secondBox, items);
    };
    connect(calendar, &QCalendarWidget::clicked, this, &AlarmSetWindow::onCalendarClicked);
    connect(calendar, &QCalendarWidget::activated, this, &AlarmSetWindow::onCalendarDoubleClicked);
    connect(deleteButton, &QAbstractButton::clicked, this, &AlarmSetWindow::onDeleteClicked);
    connect(deleteAllButton, &QAbstractButton::clicked, this, &AlarmSetWindow::onDeleteAllClicked);
    todayList->viewport()->installEventFilter(this);
    connect(viewMessagesButton, &QPushButton::clicked, this, &AlarmSetWindow::onViewMessagesClicked);
    connect(chimeIntervalBox, &QComboBox::activated, this, &AlarmSetWindow::onChimeIntervalChosen);
    connect(chimeBox, &QCheckBox::clicked, this, &AlarmSetWindow::onChimeBoxClicked);
    songBox->dropDown = [this] { onSongDropDown(); };
    connect(songBox, &QComboBox::activated, this, &AlarmSetWindow::onSongChosen);
    connect(playSongButton, &QAbstractButton::clicked, this, &AlarmSetWindow::onPlaySongClicked);
    connect(minimiseButton, &QAbstractButton::clicked, this, &AlarmSetWindow::onMinimiseClicked);
    connect(exitButton, &QPushButton::clicked, this, &AlarmSetWindow::onExitClicked);
    connect(saveFileButton, &QAbstractButton::clicked, this, [this] {
        if (hooks.openSaveChooser)
            hooks.openSaveChooser();
    });
    connect(loadButton, &QAbstractButton::clicked, this, [this] {
        if (hooks.openLoadChooser)
            hooks.openLoadChooser();
    });
    connect(editorButton, &QAbstractButton::clicked, this, [this] {
        if (hooks.openEditorChooser)
            hooks.openEditorChooser();
    });
    connect(settingsAction, &QAction::triggered, this, &AlarmSetWindow::onSettingsChosen);
    connect(comingAction, &QAction::triggered, this, &AlarmSetWindow::onComingChosen);
}

void AlarmSetWindow::load() {
    ctx.entry.lastPlayWord = QStringLiteral("once");
    AlarmSetLoadResult loaded;
    loadAlarmSetSettings(ctx, loaded);
    amPm->setText(loaded.amPm);
    if (loaded.havePosition)
        window_twips::moveTo(this, loaded.left, loaded.top);
    applyFontSetting();
    ctx.entry.date = ctx.clock.dateText();
    dateLabel->setText(ctx.entry.date);
    loadSchedule(ctx, QStringLiteral("future.dat"));
    window_twips::place(eventListView, 120, 2568, 5292, 1716);
    calendar->move(px(120), px(1680));
    dateFore = dateLabel->palette().color(QPalette::WindowText);
    dateBack = dateLabel->palette().color(QPalette::Window);
    calendar->setSelectedDate(ctx.clock.now().date());
    ctx.entry.date = ctx.clock.dateText();
}

void AlarmSetWindow::applyFontSetting() {
    const ControlFont chosen = alarmSetControlFont(ctx);
    if (!chosen.family.isEmpty())
        setControlFonts(chosen.family, chosen.pointSize);
}

void AlarmSetWindow::setControlFonts(const QString& fontName, int pointSize) {
    const QList<QWidget*> controls = {hourBox,    minuteBox,          playCountBox,  secondBox,    songBox, addButton,
                                      exitButton, viewMessagesButton, playListFrame, minutesLabel, atLabel, todayList};
    for (QWidget* w : controls) {
        QFont f = w->font();
        f.setFamily(fontName);
        if (pointSize > 0)
            f.setPointSize(pointSize);
        w->setFont(f);
    }
}

void AlarmSetWindow::setNoSecondMode(bool on) {
    minuteColon->setVisible(!on);
    secondBox->setVisible(!on);
}

void AlarmSetWindow::chimeControlsChanged() {
    const QSignalBlocker blocker(chimeBox);
    chimeBox->setChecked(ctx.chime.controls.checked);
    chimeIntervalBox->setEnabled(ctx.chime.controls.intervalEnabled);
}

void AlarmSetWindow::setTodayListShaded(bool shaded) {
    todayList->setVisible(!shaded);
    hourglass->setVisible(shaded);
}

void AlarmSetWindow::onTick() {
    if (isVisible())
        setWindowTitle(kCaption + captionMoment(ctx.clock.now()));
}

void AlarmSetWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    hideOrMinimise();
    ctx.dropNewEvent();
}

void AlarmSetWindow::hideOrMinimise() {
    if (m_trayMenu)
        showMinimized();
    else
        hide();
}

void AlarmSetWindow::standInForTray(QMenu* trayMenu) {
    if (m_trayMenu)
        menuBar()->removeAction(m_trayMenu->menuAction());
    m_trayMenu = trayMenu;
    if (m_trayMenu)
        menuBar()->addMenu(m_trayMenu);
}

void AlarmSetWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QMainWindow::keyPressEvent(event);
        return;
    }
    // A check box has no click of its own for Enter.
    auto* focused = qobject_cast<QAbstractButton*>(focusWidget());
    if (!focused || qobject_cast<QCheckBox*>(focused))
        focused = addButton;
    focused->click();
}

bool AlarmSetWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == messageView || watched == calendar || watched == eventListView) {
        if (event->type() == QEvent::Show || event->type() == QEvent::Hide || event->type() == QEvent::Resize ||
            event->type() == QEvent::Move)
            keepTabOffCovered();
        return QMainWindow::eventFilter(watched, event);
    }
    if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (watched == dateLabel && (enter || key->key() == Qt::Key_Space || key->key() == Qt::Key_F4)) {
            onDateLabelClicked();
            if (calendar->isVisible())
                calendar->setFocus(Qt::OtherFocusReason);
            return true;
        }
        if (watched != dateLabel && calendar->isAncestorOf(static_cast<QWidget*>(watched))) {
            // Space picks the day as a click does; Enter picks it and closes, as a double click does.
            if (key->key() == Qt::Key_Space || enter)
                onCalendarClicked(calendar->selectedDate());
            if (key->key() == Qt::Key_Space)
                return true;
            if (key->key() == Qt::Key_Escape) {
                onCalendarDoubleClicked();
                return true;
            }
        }
    } else if (watched == dateLabel && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)) {
        // The label draws no focus of its own: a thicker box shows it.
        dateLabel->setLineWidth(dateLabel->hasFocus() ? 2 : 1);
    }
    if (watched == dateLabel && event->type() == QEvent::MouseButtonRelease &&
        dateLabel->rect().contains(static_cast<QMouseEvent*>(event)->position().toPoint())) {
        onDateLabelClicked();
    } else if (watched == todayList->viewport() && event->type() == QEvent::MouseButtonDblClick) {
        onTodayListDoubleClicked();
    }
    return QMainWindow::eventFilter(watched, event);
}

EntryControls AlarmSetWindow::entryControls() const {
    EntryControls c;
    c.hourBox = hourBox->currentText();
    c.minuteBox = minuteBox->currentText();
    c.secondBox = secondBox->currentText();
    c.secondIndex = secondBox->currentIndex();
    c.amPm = amPm->text();
    c.playCountIndex = playCountBox->currentIndex();
    c.playCountText = playCountBox->currentText();
    return c;
}

void AlarmSetWindow::showEntry(const EntryControls& c) {
    setEditTextIfChanged(hourBox, c.hourBox);
    setEditTextIfChanged(minuteBox, c.minuteBox);
    if (secondBox->currentIndex() != c.secondIndex)
        secondBox->setCurrentIndex(c.secondIndex);
    setEditTextIfChanged(secondBox, c.secondBox);
}

int AlarmSetWindow::px(double twipValue) const {
    return window_twips::px(this, twipValue);
}

AlarmSetLinks AlarmSetWindow::links() {
    AlarmSetLinks l;
    l.openInputMessage = hooks.openInputMessage;
    l.chooseMessageToDelete = hooks.chooseMessageToDelete;
    l.setTodayListShaded = [this](bool shaded) { setTodayListShaded(shaded); };
    l.showEventList = [this] {
        eventListView->show();
        eventListView->raise();
    };
    return l;
}

void AlarmSetWindow::addEvent() {
    EntryControls c = entryControls();
    addEntry(ctx, c, ctx.entry.lastPlayWord, links());
    showEntry(c);
}

void AlarmSetWindow::onAddClicked() {
    addEvent();
}

void AlarmSetWindow::onWithMessageClicked() {
    ctx.entry.withMessage = true;
    addEvent();
    ctx.entry.withMessage = false;
}

void AlarmSetWindow::onUpClicked() {
    QString am = amPm->text();
    flipHalfDayUp(am);
    amPm->setText(am);
}

void AlarmSetWindow::onDownClicked() {
    QString am = amPm->text();
    flipHalfDayDown(am);
    amPm->setText(am);
}

void AlarmSetWindow::showDateLabel(const QString& caption, const QColor& fore, const QColor& back) {
    QPalette palette = dateLabel->palette();
    palette.setColor(QPalette::WindowText, fore);
    palette.setColor(QPalette::Window, back);
    dateLabel->setPalette(palette);
    dateLabel->setText(caption);
}

void AlarmSetWindow::onDateLabelClicked() {
    calendar->setVisible(!calendar->isVisible());
    calendar->raise();
}

void AlarmSetWindow::onCalendarClicked(const QDate& day) {
    DateLabel label;
    pickDate(ctx, day, dateFore, dateBack, label);
    showDateLabel(label.caption, label.fore, label.back);
}

void AlarmSetWindow::onCalendarDoubleClicked() {
    const bool hadFocus = calendar->isAncestorOf(focusWidget());
    calendar->hide();
    if (hadFocus)
        dateLabel->setFocus(Qt::OtherFocusReason);
}

// Controls that lie mostly under the message view, the calendar or the event list leave the Tab chain while they
// are covered, so that Tab and Space never reach a control out of sight.
void AlarmSetWindow::keepTabOffCovered() {
    static const char* const kRestPolicy = "restFocusPolicy";
    QWidget* client = centralWidget();
    if (!client)
        return;
    const QList<QWidget*> overlays = {messageView, calendar, eventListView};
    for (QWidget* w : client->findChildren<QWidget*>()) {
        bool covered = false;
        const QRect at(w->mapTo(client, QPoint(0, 0)), w->size());
        for (QWidget* overlay : overlays) {
            if (overlay == w || overlay->isAncestorOf(w)) {
                covered = false;
                break;
            }
            const QRect under = at.intersected(overlay->geometry());
            if (!overlay->isHidden() && 2 * under.width() * under.height() > at.width() * at.height())
                covered = true;
        }
        const QVariant rest = w->property(kRestPolicy);
        if (covered && !rest.isValid() && w->focusPolicy() != Qt::NoFocus) {
            w->setProperty(kRestPolicy, int(w->focusPolicy()));
            w->setFocusPolicy(Qt::NoFocus);
        } else if (!covered && rest.isValid()) {
            w->setFocusPolicy(Qt::FocusPolicy(rest.toInt()));
            w->setProperty(kRestPolicy, QVariant());
        }
    }
}

void AlarmSetWindow::onDeleteClicked() {
    deleteSelectedRow(ctx, links());
}

void AlarmSetWindow::onDeleteAllClicked() {
    deleteAllToday(ctx);
}

void AlarmSetWindow::onTodayListDoubleClicked() {
    openRowMessages(ctx, links());
}

void AlarmSetWindow::onViewMessagesClicked() {
    toggleMessageView(ctx, m_view);
    viewMessagesButton->setText(m_view.caption);
    if (m_view.visible) {
        // The view's lines end in CR LF; the box breaks lines on LF alone.
        QString text = m_view.text;
        text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
        messageView->setPlainText(text);
        messageView->resize(px(kViewWidth), px(kViewHeight));
        messageView->show();
        messageView->raise();
    } else {
        messageView->hide();
        messageView->clear();
    }
}

void AlarmSetWindow::onChimeIntervalChosen() {
    if (chimeIntervalBox->currentIndex() < 0)
        return;
    chimeBox->setEnabled(true);
    ctx.chime.controls.interval = chimeIntervalBox->currentText();
}

void AlarmSetWindow::onChimeBoxClicked() {
    ctx.chime.controls.checked = chimeBox->isChecked();
    ctx.chime.controls.interval = chimeIntervalBox->currentText();
    updateChime(ctx);
    chimeControlsChanged();
}

void AlarmSetWindow::onSongDropDown() {
    QStringList songs;
    listSongs(ctx, songs);
    songBox->clear();
    songBox->addItems(songs);
    songBox->setCurrentIndex(-1);
}

void AlarmSetWindow::onSongChosen(int index) {
    chooseSong(ctx, itemsOf(songBox), index);
}

void AlarmSetWindow::onPlaySongClicked() {
    playSongTrial(ctx, itemsOf(songBox), songBox->currentIndex());
}

void AlarmSetWindow::onMinimiseClicked() {
    showMinimized();
    ctx.dropNewEvent();
}

void AlarmSetWindow::onExitClicked() {
    const QPointF place = window_twips::placeOf(this);
    storeAlarmSetPlace(ctx, place.y(), place.x(), ctx.today.alarms);
    hideOrMinimise();
    ctx.dropNewEvent();
}

void AlarmSetWindow::onSettingsChosen() {
    if (hooks.showSettings)
        hooks.showSettings();
}

void AlarmSetWindow::onComingChosen() {
    eventListView->setVisible(!eventListView->isVisible());
    eventListView->raise();
    // Chosen from the keyboard as well as with the mouse: the arrows and the Menu key go to the rows at once.
    if (eventListView->isVisible())
        eventListView->rows->setFocus(Qt::OtherFocusReason);
}
