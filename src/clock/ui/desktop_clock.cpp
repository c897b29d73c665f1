#include "clock/ui/desktop_clock.h"

#include "clock/clock_picture.h"
#include "clock/clock_settings.h"
#include "clock/clock_text.h"
#include "clock/roll_up.h"
#include "clock/screen_services.h"
#include "clock/ui/clock_text_label.h"
#include "clock/ui/qt_screen_services.h"
#include "clock/window_region.h"
#include "engine/context.h"
#include "platform/clock.h"
#include "platform/display_choice.h"
#include "platform/numeric.h"
#include "platform/ui/window_shape.h"
#include "settings/settings_records.h"

#include <QCloseEvent>
#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QMouseEvent>
#include <QMoveEvent>
#include <QPainter>
#include <QShowEvent>
#include <QTimer>
#include <QWindow>

#include <algorithm>
#include <cmath>

namespace {

// The face is blank at most this long after the window opens.
constexpr int kFirstTick = 400;
// Woken a little after the turn of the second, never just before it.
constexpr int kPastTheTurn = 5;
constexpr int kSettleTime = 1000; // ms after showing in which the window manager's idea of our place is doubted

QtScreenServices& qtScreen() {
    static QtScreenServices screen;
    return screen;
}

} // namespace

DockingHandler& DesktopClock::sharedDock() {
    static DockingHandler dock(qtScreen());
    return dock;
}

DesktopClock::DesktopClock(Context& ctx, QWidget* parent)
    : DesktopClock(ctx, qtScreen(), sharedDock(), parent,
                   display_choice::windowsPlaceThemselves(QGuiApplication::platformName())) {}

DesktopClock::DesktopClock(Context& ctx, ScreenServices& screen, DockingHandler& dock, QWidget* parent, bool placeable)
    // A desktop clock never takes the keyboard: text typed elsewhere must not go to it while it is dragged.
    : QWidget(parent, placeable
                          ? Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint
                          : Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      ctx(ctx), m_screen(screen), dock(dock), m_placeable(placeable), m_picture(clock_picture::pill()) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(toLogicalX(ClockFace::kFormWidth), toLogicalY(ClockFace::kFormHeight));

    timeLabel = new ClockTextLabel(this);
    timeLabel->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    timeLabel->setMouseTracking(true); // a pointer arriving on the strip brings the clock back
    timeLabel->installEventFilter(this);
    menuEnd = new QWidget(this);
    menuEnd->installEventFilter(this);
    menuEnd->setAccessibleName(QStringLiteral("Clock menu"));
    closeEnd = new QWidget(this);
    closeEnd->installEventFilter(this);
    closeEnd->setAccessibleName(QStringLiteral("Close the clock"));
    setAccessibleName(QStringLiteral("Desktop clock"));

    timer = new QTimer(this);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setSingleShot(true);
    connect(timer, &QTimer::timeout, this, &DesktopClock::onTick);

    buildMenu();
    load();
    timer->start(qMin(kFirstTick, msToNextChange(ctx.clock.now().time())));
}

DesktopClock::~DesktopClock() {
    if (dock.window() == this)
        dock.setWindow(nullptr);
}

void DesktopClock::buildMenu() {
    settingsMenu = new QMenu(QStringLiteral("ShowTimeSetting"), this);
    hour24Action = settingsMenu->addAction(QStringLiteral("24 hour"));
    secondsAction = settingsMenu->addAction(QStringLiteral("Enabled second"));
    QMenu* sizeMenu = settingsMenu->addMenu(QStringLiteral(" Size"));
    size8Action = sizeMenu->addAction(QStringLiteral(" 8"));
    size9Action = sizeMenu->addAction(QStringLiteral(" 9"));
    size10Action = sizeMenu->addAction(QStringLiteral(" 10"));
    size11Action = sizeMenu->addAction(QStringLiteral(" 11"));
    showAtStartAction = settingsMenu->addAction(QStringLiteral(" On"));
    for (QAction* item : {hour24Action, secondsAction, showAtStartAction}) {
        item->setCheckable(true);
        item->setChecked(true);
    }

    // Each toggle is stored at once; a write that fails leaves the menu as it is.
    const QString appPath = ctx.folder;
    connect(hour24Action, &QAction::triggered, this, [this, appPath](bool checked) {
        m_hour24 = checked;
        settings_records::write24Hour(appPath, checked);
        showFormatChange();
    });
    connect(secondsAction, &QAction::triggered, this, [this, appPath](bool checked) {
        settings_records::writeEnabledSecond(appPath, checked);
        showFormatChange();
    });
    connect(showAtStartAction, &QAction::triggered, this,
            [appPath](bool checked) { settings_records::writeShowSmallClock(appPath, checked); });
    connect(size8Action, &QAction::triggered, this, [this] { chooseSize(8); });
    connect(size9Action, &QAction::triggered, this, [this] { chooseSize(9); });
    connect(size10Action, &QAction::triggered, this, [this] { chooseSize(10); });
    connect(size11Action, &QAction::triggered, this, [this] { chooseSize(11); });
}

void DesktopClock::load() {
    dock.setWindow(this);
    dock.setAlwaysOnTop(true);
    timeLabel->setText(QString());

    setTop(0);
    setLeft(static_cast<float>(
        (m_screen.screenWidth() * static_cast<double>(m_screen.twipsPerPixelX()) - ClockFace::kFormWidth) / 2));
    m_rolledUp = false;
    m_hour24 = false;
    hour24Action->setChecked(false);
    showAtStartAction->setChecked(false);

    const ClockStoredSettings stored = readClockSettings(ctx.folder);
    if (stored.hasLocation) {
        setTop(static_cast<float>(stored.top));
        setLeft(static_cast<float>(stored.left));
    }
    if (stored.has24Hour) {
        hour24Action->setChecked(stored.is24Hour);
        m_hour24 = stored.is24Hour;
    }
    if (stored.hasEnabledSecond)
        secondsAction->setChecked(stored.enabledSecond);
    applyStoredClockSize(m_face, stored.sizeMatched, stored.sizeValue);

    m_logPixelsX = m_screen.logPixelsX();
    m_dpiOffset = dpiOffsetOf(m_logPixelsX, m_screen.twipsPerPixelX());
    applyDensityCorrections(m_face, m_logPixelsX, m_dpiOffset, stored.sizeValue, m_screen.twipsPerPixelY());
    applyFace();

    std::vector<ShapeControl> borderShapes = clockBorderShapes();
    m_outline = windowRegion(borderShapes, 0, 0);
    if (m_placeable)
        window_shape::setWindowRegion(*this, m_outline);
}

void DesktopClock::applyFace() {
    timeLabel->setGeometry(toLogicalX(m_face.labelLeft), toLogicalY(m_face.labelTop), toLogicalX(m_face.labelWidth),
                           toLogicalY(m_face.labelHeight));
    QFont font(QStringLiteral("Times New Roman"));
    font.setPointSizeF(m_face.labelFontSize);
    timeLabel->setFont(font);
    menuEnd->setGeometry(0, 0, toLogicalX(ClockFace::kImageWidth), toLogicalY(ClockFace::kImageHeight));
    closeEnd->setGeometry(toLogicalX(m_face.closeLeft), 0, toLogicalX(ClockFace::kImageWidth),
                          toLogicalY(ClockFace::kImageHeight));
}

void DesktopClock::chooseSize(int32_t size) {
    chooseClockSize(m_face, size, m_logPixelsX, m_dpiOffset, m_screen.twipsPerPixelY());
    settings_records::writeFontSizeOfClock(ctx.folder, size);
    applyFace();
}

int DesktopClock::msToNextChange(const QTime& now) const {
    // The face shows seconds, or only minutes: an idle clock wakes when its text changes, not more.
    const int period = secondsAction->isChecked() ? 1000 : 60000;
    return period - now.msecsSinceStartOfDay() % period + kPastTheTurn;
}

void DesktopClock::showFormatChange() {
    // The next wake-up may be a minute away; the date, when shown, stands as it is.
    if (timer->isActive())
        onTick();
}

void DesktopClock::onTick() {
    const QTime now = ctx.clock.now().time();
    timeLabel->setText(clockTimeText(now, m_hour24, secondsAction->isChecked()));
    timer->start(msToNextChange(now));
}

void DesktopClock::switchTimeDate() {
    if (timer->isActive()) {
        timer->stop();
        // The date then stands as it is, across midnight too.
        timeLabel->setText(clockDateText(ctx.clock.now().date()));
    } else {
        onTick();
    }
}

void DesktopClock::handOverToAlarmSet() {
    ctx.touchAlarmSet();
    if (showAlarmSet)
        showAlarmSet();
    ctx.tick.alarmSetWanted = true;
}

void DesktopClock::showFromTray() {
    show();
    setWindowState(Qt::WindowNoState);
    // A rolled-up clock comes back; its flag stays until the next move above the edge clears it.
    if (topTwips() < 0)
        setTop(0);
}

void DesktopClock::rollUpTest() {
    if (topTwips() >= 0)
        return;
    setTop(roll_up::rolledUpTop(m_logPixelsX, m_screen.twipsPerPixelY(), ClockFace::kImageHeight));
    roll_up::movePointerOffStrip(m_screen);
    m_rolledUp = true;
}

void DesktopClock::unrollTest() {
    if (topTwips() < 0 && m_rolledUp) {
        setTop(0);
        m_rolledUp = false;
    }
}

void DesktopClock::closeEvent(QCloseEvent* event) {
    // Above the screen's top (rolled up) or minimised: the place of the last good close stands. A window that
    // cannot place itself does not know its place either, and would overwrite a good one with nothing.
    if (m_placeable && topTwips() >= 0 && windowState() == Qt::WindowNoState)
        settings_records::writeClockLocation(ctx.folder, static_cast<int32_t>(roundHalfEven(topTwips())),
                                             static_cast<int32_t>(roundHalfEven(leftTwips())));
    event->accept();
}

void DesktopClock::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), clock_picture::backColour());
    // The picture keeps its pixel size at every density, as the outline does.
    const double ratio = devicePixelRatioF();
    p.scale(1 / ratio, 1 / ratio);
    p.drawImage(0, 0, m_picture);
}

bool DesktopClock::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool press = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (watched == timeLabel) {
        if (press || type == QEvent::MouseMove || type == QEvent::MouseButtonRelease) {
            onTimeLabelMouse(event);
            return true;
        }
    } else if (watched == closeEnd) {
        if (press) {
            onCloseEndPressed(static_cast<QMouseEvent*>(event)->button());
            return true;
        }
    } else if (watched == menuEnd && (press || type == QEvent::MouseButtonRelease)) {
        // Only mouse events may be taken for mouse events.
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (press && mouse->button() == Qt::LeftButton) {
            m_settingPressed = true;
            return true;
        }
        if (type == QEvent::MouseButtonRelease && mouse->button() == Qt::LeftButton) {
            const bool click = m_settingPressed && menuEnd->rect().contains(mouse->position().toPoint());
            m_settingPressed = false;
            if (click)
                onMenuEndClicked();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void DesktopClock::onTimeLabelMouse(QEvent* event) {
    auto* mouse = static_cast<QMouseEvent*>(event);
    const QPointF twipPos = pointerInLabel(*mouse);
    const auto X = static_cast<float>(twipPos.x());
    const auto Y = static_cast<float>(twipPos.y());
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (mouse->button() == Qt::LeftButton && m_placeable)
            dock.startDrag(X, Y);
        else if (mouse->button() == Qt::LeftButton && windowHandle())
            windowHandle()->startSystemMove(); // the compositor moves it, with no snapping
        else if (mouse->button() == Qt::RightButton)
            handOverToAlarmSet(); // at the press, and no drag starts
        break;
    case QEvent::MouseMove:
        if (!m_placeable)
            break;
        unrollTest();
        if (mouse->buttons() & Qt::LeftButton)
            dock.updateDrag(X, Y);
        break;
    case QEvent::MouseButtonRelease:
        if (m_placeable)
            rollUpTest();
        break;
    default:
        break;
    }
}

void DesktopClock::onCloseEndPressed(Qt::MouseButton button) {
    if (button == Qt::RightButton)
        switchTimeDate();
    else if (button == Qt::LeftButton)
        close();
}

void DesktopClock::onMenuEndClicked() {
    // Right-aligned to the pointer: the menu's right edge lies at the pointer's x.
    const QPoint at = QCursor::pos();
    settingsMenu->popup(QPoint(at.x() - settingsMenu->sizeHint().width(), at.y()));
}

float DesktopClock::leftTwips() const {
    return static_cast<float>(devicePlace().x() * m_screen.twipsPerPixelX());
}

float DesktopClock::topTwips() const {
    return static_cast<float>(devicePlace().y() * m_screen.twipsPerPixelY());
}

float DesktopClock::widthTwips() const {
    return static_cast<float>(roundHalfEven(width() * devicePixelRatioF()) * m_screen.twipsPerPixelX());
}

float DesktopClock::heightTwips() const {
    return static_cast<float>(roundHalfEven(height() * devicePixelRatioF()) * m_screen.twipsPerPixelY());
}

void DesktopClock::setWindowPos(int32_t insertAfter, int32_t x, int32_t y, int32_t cx, int32_t cy) {
    const double ratio = devicePixelRatioF();
    const QSize size(static_cast<int>(roundHalfEven(cx / ratio)), static_cast<int>(roundHalfEven(cy / ratio)));
    if (size != this->size())
        setFixedSize(size); // through Qt's logical place: the place below comes after
    place(QPoint(x, y));
    setTopmost(insertAfter == DockingHandler::kHwndTopmost);
}

void DesktopClock::setTopmost(bool on) {
    // There a change of flags only builds the window anew, to no effect.
    if (!m_placeable)
        return;
    if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) != on) {
        // Changing a window's flags hides it; show it again as it was.
        const bool wasVisible = isVisible();
        setWindowFlag(Qt::WindowStaysOnTopHint, on);
        if (wasVisible)
            show();
    }
    if (on && isVisible())
        raise();
}

void DesktopClock::setLeft(float twipValue) {
    place(QPoint(static_cast<int>(roundHalfEven(twipValue / m_screen.twipsPerPixelX())), devicePlace().y()));
}

void DesktopClock::setTop(float twipValue) {
    place(QPoint(devicePlace().x(), static_cast<int>(roundHalfEven(twipValue / m_screen.twipsPerPixelY()))));
}

void DesktopClock::place(const QPoint& device) {
    m_place = device;
    m_native = isVisible() && placeNatively();
    if (m_native)
        return;
    // Hidden, or no native way: Qt's logical pixels; showing puts it on the device pixel.
    m_placing = true;
    move(toLogical(device));
    m_placing = false;
}

bool DesktopClock::placeNatively() {
    if (!m_placeable || !windowHandle() || !m_screen.moveWindow(*windowHandle(), m_place))
        return false;
    constexpr size_t kKept = 16;
    if (m_requested.size() >= kKept)
        m_requested.erase(m_requested.begin());
    m_requested.push_back(m_place);
    return true;
}

QPoint DesktopClock::devicePlace() const {
    // Moved through Qt by other means (a move before showing sends no event): its logical place is all there is.
    if (!m_native && pos() != toLogical(m_place))
        return toDevice(pos());
    return m_place;
}

void DesktopClock::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // Now that the window exists the outline can go to it pixel for pixel.
    if (m_placeable)
        window_shape::setWindowRegion(*this, m_outline);
    // The same for the place. Qt may still move the window to its logical place after this event, so again
    // once it is shown.
    m_place = devicePlace();
    m_native = placeNatively();
    if (m_native)
        QTimer::singleShot(0, this, [this] {
            if (m_native)
                placeNatively();
        });
    m_settling = true;
    QTimer::singleShot(kSettleTime, this, [this] { m_settling = false; });
}

void DesktopClock::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (!event->spontaneous() || m_placing)
        return;
    QPoint actual = toDevice(pos());
    if (m_native) {
        const std::optional<QPoint> native = windowHandle() ? m_screen.windowPlace(*windowHandle()) : std::nullopt;
        if (!native || *native == m_place) {
            m_requested.clear();
            return;
        }
        // The news of an earlier drag step, with the window already further on.
        if (std::find(m_requested.begin(), m_requested.end(), *native) != m_requested.end())
            return;
        actual = *native;
    } else if (pos() == toLogical(m_place)) {
        return;
    }
    if (!m_settling) {
        // Moved by the window manager: believe it.
        m_place = actual;
        m_requested.clear();
        return;
    }
    // While the window is being framed, the manager may report the frame's first place (0, 0) though the
    // window stands where we put it. Every drag step reads our place, so set it again.
    QTimer::singleShot(0, this, [this] { place(m_place); });
}

QPoint DesktopClock::toLogical(const QPoint& device) const {
    const double ratio = devicePixelRatioF();
    return QPoint(static_cast<int>(roundHalfEven(device.x() / ratio)),
                  static_cast<int>(roundHalfEven(device.y() / ratio)));
}

QPoint DesktopClock::toDevice(const QPoint& logical) const {
    const double ratio = devicePixelRatioF();
    return QPoint(static_cast<int>(roundHalfEven(logical.x() * ratio)),
                  static_cast<int>(roundHalfEven(logical.y() * ratio)));
}

int DesktopClock::toLogicalX(double twipValue) const {
    const long device = roundHalfEven(twipValue / m_screen.twipsPerPixelX());
    return static_cast<int>(roundHalfEven(device / devicePixelRatioF()));
}

int DesktopClock::toLogicalY(double twipValue) const {
    const long device = roundHalfEven(twipValue / m_screen.twipsPerPixelY());
    return static_cast<int>(roundHalfEven(device / devicePixelRatioF()));
}

QPointF DesktopClock::pointerInLabel(const QMouseEvent& mouse) const {
    QPointF device;
    if (m_native) {
        // Qt hands out mouse positions in whole logical pixels, up to one and a half device pixels apart: a pull of
        // the snap distance could not be told from one pixel more. The pointer itself is asked instead.
        device = m_screen.cursorPos() - devicePlace() - toDevice(timeLabel->pos());
    } else {
        device = mouse.position() * devicePixelRatioF();
    }
    return QPointF(device.x() * m_screen.twipsPerPixelX(), device.y() * m_screen.twipsPerPixelY());
}
