#include "message/ui/input_message_window.h"

#include "engine/context.h"
#include "message/message_text.h"
#include "message/ui/message_text_box.h"
#include "platform/ui/dialog_keys.h"
#include "platform/ui/front.h"
#include "platform/ui/window_twips.h"
#include "sound/notices.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>

using window_twips::place;
using window_twips::px;

namespace {
constexpr double kWidth = 4332;
constexpr double kHeight = 2880;
constexpr double kFirstLeft = 4944;
constexpr double kFirstTop = 4740;
constexpr double kFirstFontSize = 9;
} // namespace

InputMessageWindow::InputMessageWindow(Context& ctx, QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::WindowStaysOnTopHint),
      m_ctx(ctx), m_core(ctx) {
    setWindowTitle(QStringLiteral("Input Message"));
    setFixedSize(px(this, kWidth), px(this, kHeight));
    // The layout is measured for an 8-point face of Arial's widths; wider desktop faces would cut captions.
    QFont design = window_twips::designFont(font());
    setFont(design);

    input = new MessageTextBox(this);
    place(input, 240, 240, 3852, 2052);
    okButton = new QPushButton(QStringLiteral("Save"), this);
    place(okButton, 2040, 2400, 972, 372);
    cancelButton = new QPushButton(QStringLiteral("Abandon"), this);
    place(cancelButton, 3240, 2400, 972, 372);
    nextMessageButton = new QPushButton(QStringLiteral(">"), this);
    place(nextMessageButton, 240, 0, 492, 252);
    messageNumberLabel = new QLabel(this);
    place(messageNumberLabel, 840, 0, 3492, 252);
    fontSizeLabel = new QLabel(QStringLiteral("Font size :"), this);
    place(fontSizeLabel, 120, 2520, 852, 252);
    // Flat buttons that look like the signs they are; the keyboard reaches them too.
    minusButton = new QToolButton(this);
    minusButton->setText(QStringLiteral("-"));
    place(minusButton, 1080, 2520, 252, 252);
    minusButton->setAccessibleName(QStringLiteral("Smaller text"));
    plusButton = new QToolButton(this);
    plusButton->setText(QStringLiteral("+"));
    place(plusButton, 1440, 2520, 252, 252);
    plusButton->setAccessibleName(QStringLiteral("Larger text"));
    for (QToolButton* sign : {minusButton, plusButton}) {
        QFont bold = sign->font();
        bold.setBold(true);
        sign->setFont(bold);
        sign->setAutoRaise(true);
        sign->setCursor(Qt::PointingHandCursor);
        sign->setToolTip(sign->accessibleName());
    }
    input->setAccessibleName(QStringLiteral("Message"));
    nextMessageButton->setAccessibleName(QStringLiteral("Next message"));
    // Return belongs to the text: no button is pressed by it.
    for (QPushButton* button : {okButton, cancelButton, nextMessageButton}) {
        button->setAutoDefault(false);
        button->setDefault(false);
    }
    setTabOrder(input, okButton);
    setTabOrder(okButton, cancelButton);
    setTabOrder(cancelButton, minusButton);
    setTabOrder(minusButton, plusButton);
    new DialogKeys(this, cancelButton);

    connect(okButton, &QPushButton::clicked, this, &InputMessageWindow::onOkClicked);
    connect(cancelButton, &QPushButton::clicked, this, &InputMessageWindow::onCancelClicked);
    connect(nextMessageButton, &QPushButton::clicked, this, &InputMessageWindow::onNextMessageClicked);
    connect(minusButton, &QToolButton::clicked, this, &InputMessageWindow::onMinusClicked);
    connect(plusButton, &QToolButton::clicked, this, &InputMessageWindow::onPlusClicked);

    showControls(MessageControls());
    Front::registerWindow(1, this);
}

void InputMessageWindow::load() {
    // Every load starts from the window as it was drawn.
    input->clear();
    showControls(MessageControls());
    setFontSize(kFirstFontSize);
    window_twips::moveTo(this, kFirstLeft, kFirstTop);
    // A hidden window keeps its last focus; the typing of a new message must go into the box.
    input->setFocus(Qt::OtherFocusReason);

    const MessagePlacement placement = m_core.load();
    if (placement.hasLocation)
        window_twips::moveTo(this, placement.left, placement.top);
    if (placement.hasFontSize && placement.fontSize > 0)
        setFontSize(placement.fontSize);
    window_twips::makeTopmost(this);
}

void InputMessageWindow::openInputMessage(const QString& origin) {
    if (!m_core.loaded())
        load();
    show();
    raise();
    activateWindow();
    MessageControls c = controls();
    m_core.openInputMessage(origin, c);
    showControls(c);
}

MessageControls InputMessageWindow::controls() const {
    MessageControls c;
    c.input = input->message();
    c.cancelButton = cancelButton->text();
    c.nextMessageButtonVisible = !nextMessageButton->isHidden();
    c.messageNumberLabelVisible = !messageNumberLabel->isHidden();
    c.messageNumberLabel = messageNumberLabel->text();
    return c;
}

void InputMessageWindow::showControls(const MessageControls& c) {
    if (input->message() != c.input)
        input->setMessage(c.input);
    cancelButton->setText(c.cancelButton);
    nextMessageButton->setVisible(c.nextMessageButtonVisible);
    messageNumberLabel->setVisible(c.messageNumberLabelVisible);
    messageNumberLabel->setText(c.messageNumberLabel);
}

void InputMessageWindow::setFontSize(double pointSize) {
    QFont font(QStringLiteral("Times New Roman"));
    font.setPointSizeF(pointSize);
    input->setFont(font);
}

void InputMessageWindow::onOkClicked() {
    if (m_core.save(controls(), input->font().pointSizeF()))
        close();
}

void InputMessageWindow::onCancelClicked() {
    close();
}

void InputMessageWindow::onNextMessageClicked() {
    MessageControls c = controls();
    m_core.nextMessage(c);
    showControls(c);
}

void InputMessageWindow::onPlusClicked() {
    double size = input->font().pointSizeF();
    if (message_text::larger(size))
        setFontSize(size);
    else
        m_ctx.notices.beep();
}

void InputMessageWindow::onMinusClicked() {
    double size = input->font().pointSizeF();
    if (message_text::smaller(size))
        setFontSize(size);
    else
        m_ctx.notices.beep();
}

void InputMessageWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && m_core.loaded())
        QTimer::singleShot(0, this, &InputMessageWindow::onDeactivated);
}

void InputMessageWindow::onDeactivated() {
    if (!m_core.loaded())
        return;
    if (!isVisible()) {
        unload();
        return;
    }
    // Only a window of our own taking the focus counts; switching to another program does not.
    const QWidget* active = QApplication::activeWindow();
    if (isActiveWindow() || !active)
        return;
    if (m_core.deactivated()) {
        window_twips::makeTopmost(this);
        activateWindow();
    }
}

void InputMessageWindow::closeEvent(QCloseEvent* event) {
    unload();
    event->accept();
}

void InputMessageWindow::unload() {
    if (!m_core.loaded())
        return;
    const bool normal = !(windowState() & (Qt::WindowMinimized | Qt::WindowMaximized));
    const QPointF place = window_twips::placeOf(this);
    m_core.closing(normal, place.y(), place.x());
    hide();
}
