#include "clock/ui/form2.h"

#include "clock/clock_picture.h"
#include "clock/clock_settings.h"
#include "clock/clock_text.h"
#include "clock/qt_screen_services.h"
#include "clock/roll_up.h"
#include "clock/screen_services.h"
#include "clock/window_region.h"
#include "engine/context.h"
#include "platform/clock.h"
#include "platform/numeric.h"
#include "platform/ui/window_shape.h"
#include "settings/settings_records.h"

#include <QCloseEvent>
#include <QCursor>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QMoveEvent>
#include <QPainter>
#include <QShowEvent>
#include <QTimer>

#include <cmath>

namespace {

constexpr int kTimerInterval = 400;
constexpr int kSettleTime = 1000; // ms after showing in which the window manager's idea of our place is doubted

QtScreenServices& qtScreen() {
    static QtScreenServices screen;
    return screen;
}

} // namespace

clsDockingHandler& Form2::sharedDock() {
    static clsDockingHandler dock(qtScreen());
    return dock;
}

Form2::Form2(Context& ctx, QWidget* parent) : Form2(ctx, qtScreen(), sharedDock(), parent) {}

Form2::Form2(Context& ctx, ScreenServices& screen, clsDockingHandler& dock, QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint), ctx(ctx), m_screen(screen),
      clsDock(dock), m_picture(clock_picture::pill()) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(toLogicalX(ClockFace::kFormWidth), toLogicalY(ClockFace::kFormHeight));

    lblShowTime = new QLabel(this);
    lblShowTime->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    lblShowTime->setMouseTracking(true); // a pointer arriving on the strip brings the clock back
    lblShowTime->installEventFilter(this);
    imgSetting_ShowTime = new QWidget(this);
    imgSetting_ShowTime->installEventFilter(this);
    imgClose_ShowTime = new QWidget(this);
    imgClose_ShowTime->installEventFilter(this);

    Timer1 = new QTimer(this);
    Timer1->setTimerType(Qt::PreciseTimer);
    Timer1->setInterval(kTimerInterval);
    connect(Timer1, &QTimer::timeout, this, &Form2::Timer1_Timer);

    buildMenu();
    Form_Load();
    Timer1->start();
}

Form2::~Form2() {
    if (clsDock.ParentForm() == this)
        clsDock.setParentForm(nullptr);
}

void Form2::buildMenu() {
    mShowTimeSetting = new QMenu(QStringLiteral("ShowTimeSetting"), this);
    m24Hour = mShowTimeSetting->addAction(QStringLiteral("24 hour"));
    mEnabledSecond = mShowTimeSetting->addAction(QStringLiteral("Enabled second"));
    QMenu* mSize = mShowTimeSetting->addMenu(QStringLiteral(" Size"));
    mEight = mSize->addAction(QStringLiteral(" 8"));
    mNine = mSize->addAction(QStringLiteral(" 9"));
    mTen = mSize->addAction(QStringLiteral(" 10"));
    mEleven = mSize->addAction(QStringLiteral(" 11"));
    mOn = mShowTimeSetting->addAction(QStringLiteral(" On"));
    for (QAction* item : {m24Hour, mEnabledSecond, mOn}) {
        item->setCheckable(true);
        item->setChecked(true);
    }

    // Each toggle is stored at once; a write that fails leaves the menu as it is.
    const QString appPath = ctx.m.strAppPath;
    connect(m24Hour, &QAction::triggered, this, [this, appPath](bool checked) {
        m_bln24Hour = checked;
        settings_records::write24Hour(appPath, checked);
    });
    connect(mEnabledSecond, &QAction::triggered, this,
            [appPath](bool checked) { settings_records::writeEnabledSecond(appPath, checked); });
    connect(mOn, &QAction::triggered, this,
            [appPath](bool checked) { settings_records::writeShowSmallClock(appPath, checked); });
    connect(mEight, &QAction::triggered, this, [this] { chooseSize(8); });
    connect(mNine, &QAction::triggered, this, [this] { chooseSize(9); });
    connect(mTen, &QAction::triggered, this, [this] { chooseSize(10); });
    connect(mEleven, &QAction::triggered, this, [this] { chooseSize(11); });
}

void Form2::Form_Load() {
    clsDock.setParentForm(this);
    clsDock.setAlwaysOnTop(true);
    lblShowTime->setText(QString());

    setTop(0);
    setLeft(static_cast<float>(
        (m_screen.ScreenWidth() * static_cast<double>(m_screen.TwipsPerPixelX()) - ClockFace::kFormWidth) / 2));
    m_blnRolledUp = false;
    m_bln24Hour = false;
    m24Hour->setChecked(false);
    mOn->setChecked(false);

    const ClockStoredSettings stored = ReadClockSettings(ctx.m.strAppPath);
    if (stored.hasLocation) {
        setTop(static_cast<float>(stored.top));
        setLeft(static_cast<float>(stored.left));
    }
    if (stored.has24Hour) {
        m24Hour->setChecked(stored.is24Hour);
        m_bln24Hour = stored.is24Hour;
    }
    if (stored.hasEnabledSecond)
        mEnabledSecond->setChecked(stored.enabledSecond);
    ApplyStoredClockSize(m_face, stored.sizeMatched, stored.sizeValue);

    m_lngLogPixelsX = m_screen.LogPixelsX();
    m_lngDpiOffset = DpiOffset(m_lngLogPixelsX, m_screen.TwipsPerPixelX());
    ApplyDensityCorrections(m_face, m_lngLogPixelsX, m_lngDpiOffset, stored.sizeValue, m_screen.TwipsPerPixelY());
    applyFace();

    std::vector<ShapeControl> shpBorder = ClockBorderShapes();
    m_lngClockRgn = MakeWindowRegion(shpBorder, 0, 0);
    window_shape::SetWindowRgn(*this, m_lngClockRgn);
}

void Form2::applyFace() {
    lblShowTime->setGeometry(toLogicalX(m_face.lblLeft), toLogicalY(m_face.lblTop), toLogicalX(m_face.lblWidth),
                             toLogicalY(m_face.lblHeight));
    QFont font(QStringLiteral("Times New Roman"));
    font.setPointSizeF(m_face.lblFontSize);
    lblShowTime->setFont(font);
    imgSetting_ShowTime->setGeometry(0, 0, toLogicalX(ClockFace::kImageWidth), toLogicalY(ClockFace::kImageHeight));
    imgClose_ShowTime->setGeometry(toLogicalX(m_face.closeLeft), 0, toLogicalX(ClockFace::kImageWidth),
                                   toLogicalY(ClockFace::kImageHeight));
}

void Form2::chooseSize(int32_t size) {
    ChooseClockSize(m_face, size, m_lngLogPixelsX, m_lngDpiOffset, m_screen.TwipsPerPixelY());
    settings_records::writeFontSizeOfClock(ctx.m.strAppPath, size);
    applyFace();
}

void Form2::Timer1_Timer() {
    lblShowTime->setText(ClockTimeText(ctx.clock.now().time(), m_bln24Hour, mEnabledSecond->isChecked()));
}

void Form2::switchTimeDate() {
    if (Timer1->isActive()) {
        Timer1->stop();
        // The date then stands as it is, across midnight too.
        lblShowTime->setText(ClockDateText(ctx.clock.now().date()));
    } else {
        Timer1->start();
    }
}

void Form2::handOverToForm4() {
    ctx.touchForm4();
    if (showForm4)
        showForm4();
    ctx.m.blnForm4Wanted = true;
}

void Form2::ShowFromTray() {
    show();
    setWindowState(Qt::WindowNoState);
    // A rolled-up clock comes back; its flag stays until the next move above the edge clears it.
    if (Top() < 0)
        setTop(0);
}

void Form2::rollUpTest() {
    if (Top() >= 0)
        return;
    setTop(roll_up::RolledUpTop(m_lngLogPixelsX, m_screen.TwipsPerPixelY(), ClockFace::kImageHeight));
    roll_up::MovePointerOffStrip(m_screen);
    m_blnRolledUp = true;
}

void Form2::unrollTest() {
    if (Top() < 0 && m_blnRolledUp) {
        setTop(0);
        m_blnRolledUp = false;
    }
}

void Form2::closeEvent(QCloseEvent* event) {
    // Above the screen's top (rolled up) or minimised: the place of the last good close stands.
    if (Top() >= 0 && windowState() == Qt::WindowNoState)
        settings_records::writeForm2Location(ctx.m.strAppPath, static_cast<int32_t>(roundHalfEven(Top())),
                                             static_cast<int32_t>(roundHalfEven(Left())));
    event->accept();
}

void Form2::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.fillRect(rect(), clock_picture::backColour());
    // The picture keeps its pixel size at every density, as the outline does.
    const double ratio = devicePixelRatioF();
    p.scale(1 / ratio, 1 / ratio);
    p.drawImage(0, 0, m_picture);
}

bool Form2::eventFilter(QObject* watched, QEvent* event) {
    const QEvent::Type type = event->type();
    const bool press = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonDblClick;
    if (watched == lblShowTime) {
        if (press || type == QEvent::MouseMove || type == QEvent::MouseButtonRelease) {
            lblShowTime_MouseEvent(event);
            return true;
        }
    } else if (watched == imgClose_ShowTime) {
        if (press) {
            imgClose_ShowTime_MouseDown(static_cast<QMouseEvent*>(event)->button());
            return true;
        }
    } else if (watched == imgSetting_ShowTime && (press || type == QEvent::MouseButtonRelease)) {
        // Only mouse events may be taken for mouse events.
        auto* mouse = static_cast<QMouseEvent*>(event);
        if (press && mouse->button() == Qt::LeftButton) {
            m_settingPressed = true;
            return true;
        }
        if (type == QEvent::MouseButtonRelease && mouse->button() == Qt::LeftButton) {
            const bool click = m_settingPressed && imgSetting_ShowTime->rect().contains(mouse->position().toPoint());
            m_settingPressed = false;
            if (click)
                imgSetting_ShowTime_Click();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void Form2::lblShowTime_MouseEvent(QEvent* event) {
    auto* mouse = static_cast<QMouseEvent*>(event);
    const QPointF twipPos = toTwips(mouse->position());
    const auto X = static_cast<float>(twipPos.x());
    const auto Y = static_cast<float>(twipPos.y());
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        if (mouse->button() == Qt::LeftButton)
            clsDock.StartDockDrag(X, Y);
        else if (mouse->button() == Qt::RightButton)
            handOverToForm4(); // at the press, and no drag starts
        break;
    case QEvent::MouseMove:
        unrollTest();
        if (mouse->buttons() & Qt::LeftButton)
            clsDock.UpdateDockDrag(X, Y);
        break;
    case QEvent::MouseButtonRelease:
        rollUpTest();
        break;
    default:
        break;
    }
}

void Form2::imgClose_ShowTime_MouseDown(Qt::MouseButton button) {
    if (button == Qt::RightButton)
        switchTimeDate();
    else if (button == Qt::LeftButton)
        close();
}

void Form2::imgSetting_ShowTime_Click() {
    // Right-aligned to the pointer: the menu's right edge lies at the pointer's x.
    const QPoint at = QCursor::pos();
    mShowTimeSetting->popup(QPoint(at.x() - mShowTimeSetting->sizeHint().width(), at.y()));
}

float Form2::Left() const {
    return static_cast<float>(roundHalfEven(pos().x() * devicePixelRatioF()) * m_screen.TwipsPerPixelX());
}

float Form2::Top() const {
    return static_cast<float>(roundHalfEven(pos().y() * devicePixelRatioF()) * m_screen.TwipsPerPixelY());
}

float Form2::Width() const {
    return static_cast<float>(roundHalfEven(width() * devicePixelRatioF()) * m_screen.TwipsPerPixelX());
}

float Form2::Height() const {
    return static_cast<float>(roundHalfEven(height() * devicePixelRatioF()) * m_screen.TwipsPerPixelY());
}

void Form2::SetWindowPos(int32_t insertAfter, int32_t x, int32_t y, int32_t cx, int32_t cy) {
    const double ratio = devicePixelRatioF();
    const QSize size(static_cast<int>(roundHalfEven(cx / ratio)), static_cast<int>(roundHalfEven(cy / ratio)));
    if (size != this->size())
        setFixedSize(size);
    place(QPoint(static_cast<int>(roundHalfEven(x / ratio)), static_cast<int>(roundHalfEven(y / ratio))));
    setTopmost(insertAfter == clsDockingHandler::kHwndTopmost);
}

void Form2::setTopmost(bool on) {
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

void Form2::setLeft(float twipValue) {
    place(QPoint(toLogicalX(twipValue), m_place.y()));
}

void Form2::setTop(float twipValue) {
    place(QPoint(m_place.x(), toLogicalY(twipValue)));
}

void Form2::place(const QPoint& logical) {
    m_place = logical;
    move(logical);
}

void Form2::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // Now that the window exists the outline can go to it pixel for pixel.
    window_shape::SetWindowRgn(*this, m_lngClockRgn);
    m_settling = true;
    QTimer::singleShot(kSettleTime, this, [this] { m_settling = false; });
}

void Form2::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (!event->spontaneous())
        return;
    if (!m_settling) {
        m_place = pos(); // moved by the window manager: believe it
        return;
    }
    // While the window is being framed, the manager may report the frame's first place (0, 0) though the
    // window stands where we put it. Every drag step reads our place, so set it again.
    if (pos() != m_place)
        QTimer::singleShot(0, this, [this] { move(m_place); });
}

int Form2::toLogicalX(double twipValue) const {
    const long device = roundHalfEven(twipValue / m_screen.TwipsPerPixelX());
    return static_cast<int>(roundHalfEven(device / devicePixelRatioF()));
}

int Form2::toLogicalY(double twipValue) const {
    const long device = roundHalfEven(twipValue / m_screen.TwipsPerPixelY());
    return static_cast<int>(roundHalfEven(device / devicePixelRatioF()));
}

QPointF Form2::toTwips(const QPointF& logical) const {
    const double ratio = devicePixelRatioF();
    return QPointF(logical.x() * ratio * m_screen.TwipsPerPixelX(), logical.y() * ratio * m_screen.TwipsPerPixelY());
}
