#include "message/ui/form5.h"

#include "engine/context.h"
#include "message/message_text.h"
#include "message/ui/message_text_box.h"
#include "platform/twips.h"
#include "platform/ui/front.h"
#include "platform/ui/window_twips.h"
#include "sound/notices.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QTimer>

using window_twips::place;
using window_twips::px;

namespace {
constexpr double kWidth = 4332;
constexpr double kHeight = 2880;
constexpr double kFirstLeft = 4944;
constexpr double kFirstTop = 4740;
constexpr double kFirstFontSize = 9;
} // namespace

Form5::Form5(Context& ctx, QWidget* parent)
    : QWidget(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                          Qt::WindowStaysOnTopHint),
      m_ctx(ctx), m_core(ctx) {
    setWindowTitle(QStringLiteral("Input Message"));
    setFixedSize(px(this, kWidth), px(this, kHeight));
    // The layout is measured for an 8-point face of Arial's widths; wider desktop faces would cut captions.
    QFont design = window_twips::designFont(font());
    setFont(design);

    txtInput = new MessageTextBox(this);
    place(txtInput, 240, 240, 3852, 2052);
    cmdOK = new QPushButton(QStringLiteral("Save"), this);
    place(cmdOK, 2040, 2400, 972, 372);
    cmdCancel = new QPushButton(QStringLiteral("Abandon"), this);
    place(cmdCancel, 3240, 2400, 972, 372);
    cmdShowMessages = new QPushButton(QStringLiteral(">"), this);
    place(cmdShowMessages, 240, 0, 492, 252);
    lblNumberOfMessage = new QLabel(this);
    place(lblNumberOfMessage, 840, 0, 3492, 252);
    lblFontSize = new QLabel(QStringLiteral("Font size :"), this);
    place(lblFontSize, 120, 2520, 852, 252);
    lblMinus = new QLabel(QStringLiteral("-"), this);
    place(lblMinus, 1080, 2520, 252, 252);
    lblPlus = new QLabel(QStringLiteral("+"), this);
    place(lblPlus, 1440, 2520, 252, 252);
    for (QLabel* sign : {lblMinus, lblPlus}) {
        QFont bold = sign->font();
        bold.setBold(true);
        sign->setFont(bold);
        sign->setAlignment(Qt::AlignCenter);
        sign->setCursor(Qt::PointingHandCursor);
        sign->installEventFilter(this);
    }
    // Return belongs to the text: no button is pressed by it.
    for (QPushButton* button : {cmdOK, cmdCancel, cmdShowMessages}) {
        button->setAutoDefault(false);
        button->setDefault(false);
    }
    setTabOrder(txtInput, cmdOK);
    setTabOrder(cmdOK, cmdCancel);

    connect(cmdOK, &QPushButton::clicked, this, &Form5::cmdOK_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &Form5::cmdCancel_Click);
    connect(cmdShowMessages, &QPushButton::clicked, this, &Form5::cmdShowMessages_Click);

    showControls(MessageControls());
    Front::registerWindow(1, this);
}

void Form5::Form_Load() {
    // Every load starts from the window as it was drawn.
    txtInput->clear();
    showControls(MessageControls());
    setFontSize(kFirstFontSize);
    move(px(this, kFirstLeft), px(this, kFirstTop));

    const MessagePlacement placement = m_core.Load();
    if (placement.hasLocation)
        move(px(this, placement.left), px(this, placement.top));
    if (placement.hasFontSize && placement.fontSize > 0)
        setFontSize(placement.fontSize);
    window_twips::makeTopmost(this);
}

void Form5::GetOldMessageToTextbox(const QString& WhereYouFrom) {
    if (!m_core.loaded())
        Form_Load();
    show();
    raise();
    activateWindow();
    MessageControls c = controls();
    m_core.GetOldMessageToTextbox(WhereYouFrom, c);
    showControls(c);
}

MessageControls Form5::controls() const {
    MessageControls c;
    c.txtInput = txtInput->message();
    c.cmdCancel = cmdCancel->text();
    c.cmdShowMessagesVisible = !cmdShowMessages->isHidden();
    c.lblNumberOfMessageVisible = !lblNumberOfMessage->isHidden();
    c.lblNumberOfMessage = lblNumberOfMessage->text();
    return c;
}

void Form5::showControls(const MessageControls& c) {
    if (txtInput->message() != c.txtInput)
        txtInput->setMessage(c.txtInput);
    cmdCancel->setText(c.cmdCancel);
    cmdShowMessages->setVisible(c.cmdShowMessagesVisible);
    lblNumberOfMessage->setVisible(c.lblNumberOfMessageVisible);
    lblNumberOfMessage->setText(c.lblNumberOfMessage);
}

void Form5::setFontSize(double pointSize) {
    QFont font(QStringLiteral("Times New Roman"));
    font.setPointSizeF(pointSize);
    txtInput->setFont(font);
}

void Form5::cmdOK_Click() {
    m_core.OKClick(controls(), txtInput->font().pointSizeF());
    close();
}

void Form5::cmdCancel_Click() {
    close();
}

void Form5::cmdShowMessages_Click() {
    MessageControls c = controls();
    m_core.ShowMessagesClick(c);
    showControls(c);
}

void Form5::lblPlus_Click() {
    double size = txtInput->font().pointSizeF();
    if (message_text::larger(size))
        setFontSize(size);
    else
        m_ctx.notices.Beep();
}

void Form5::lblMinus_Click() {
    double size = txtInput->font().pointSizeF();
    if (message_text::smaller(size))
        setFontSize(size);
    else
        m_ctx.notices.Beep();
}

bool Form5::eventFilter(QObject* watched, QEvent* event) {
    if ((watched == lblPlus || watched == lblMinus) && event->type() == QEvent::MouseButtonRelease) {
        auto* mouse = static_cast<QMouseEvent*>(event);
        auto* label = static_cast<QLabel*>(watched);
        if (mouse->button() == Qt::LeftButton && label->rect().contains(mouse->position().toPoint())) {
            if (label == lblPlus)
                lblPlus_Click();
            else
                lblMinus_Click();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void Form5::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow() && m_core.loaded())
        QTimer::singleShot(0, this, &Form5::Form_Deactivate);
}

void Form5::Form_Deactivate() {
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
    if (m_core.Deactivate()) {
        window_twips::makeTopmost(this);
        activateWindow();
    }
}

void Form5::closeEvent(QCloseEvent* event) {
    unload();
    event->accept();
}

void Form5::unload() {
    if (!m_core.loaded())
        return;
    const double perPixel = window_twips::twipsPerPixel(this);
    const double ratio = devicePixelRatioF();
    const bool normal = !(windowState() & (Qt::WindowMinimized | Qt::WindowMaximized));
    m_core.QueryUnload(normal, twips::toTwips(qRound(y() * ratio), perPixel),
                       twips::toTwips(qRound(x() * ratio), perPixel));
    hide();
}
