#include "sound/ui/warning_window.h"

#include "engine/context.h"
#include "platform/ui/front.h"
#include "platform/ui/pictures.h"
#include "platform/ui/window_twips.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

using window_twips::place;

WarningWindow::WarningWindow(Context& ctx, const QString& text) : m_ctx(ctx) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFont(window_twips::designFont(font()));
    setWindowTitle(QStringLiteral("Warning Message"));
    window_twips::sizeAndCentre(this, 3432, 1716);
    if (previousFront == 0)
        previousFront = ctx.front.claimant;

    auto* warningIcon = new QLabel(this);
    place(warningIcon, 120, 240, 384, 384);
    warningIcon->setPixmap(pictures::warning(warningIcon->width()));

    textLabel = new QLabel(this);
    place(textLabel, 840, 240, 2412, 852);
    textLabel->setAutoFillBackground(true);
    QPalette palette = textLabel->palette();
    palette.setColor(QPalette::Window, QColor(0xC0, 0xC0, 0xC0));
    palette.setColor(QPalette::WindowText, Qt::black);
    textLabel->setPalette(palette);
    textLabel->setWordWrap(true);
    textLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    okButton = new QPushButton(QStringLiteral("OK"), this);
    place(okButton, 1320, 1200, 732, 372);
    okButton->setDefault(true);
    connect(okButton, &QPushButton::clicked, this, &WarningWindow::onOkClicked);

    serialLabel = new QLabel(this);
    place(serialLabel, 120, 1320, 972, 252);
    serialLabel->hide();

    m_serial = ctx.front.nextWarningSerial;
    serialLabel->setText(QString::number(m_serial));
    ++ctx.front.nextWarningSerial;
    if (ctx.front.nextWarningSerial >= 1999000)
        ctx.front.nextWarningSerial = 1000000;
    // A carriage return in our texts starts a new line.
    textLabel->setText(QString(text)
                           .replace(QLatin1String("\r\n"), QLatin1String("\n"))
                           .replace(QLatin1Char('\r'), QLatin1Char('\n')));

    window_twips::makeTopmost(this);
    show();
}

QString WarningWindow::text() const {
    return textLabel->text();
}

void WarningWindow::onOkClicked() {
    giveFrontBack();
    close();
}

// However the warning goes (OK, its close box, Escape), the window before it gets the front back once.
void WarningWindow::giveFrontBack() {
    if (m_frontGivenBack)
        return;
    m_frontGivenBack = true;
    Front::bringToFront(previousFront);
    m_ctx.front.claimant = 0;
}

void WarningWindow::reject() {
    giveFrontBack();
    QDialog::reject();
}

void WarningWindow::closeEvent(QCloseEvent* event) {
    giveFrontBack();
    QDialog::closeEvent(event);
}

void WarningWindow::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow())
        QTimer::singleShot(0, this, &WarningWindow::onLostFocus);
}

void WarningWindow::onLostFocus() {
    if (!isVisible()) {
        close();
        return;
    }
    if (isActiveWindow())
        return;
    const int32_t top = m_ctx.front.claimant;
    if (m_serial >= top && top >= 0) {
        raise();
        activateWindow();
        QApplication::beep();
        m_ctx.front.claimant = m_serial;
    }
}
