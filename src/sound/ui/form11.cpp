#include "sound/ui/form11.h"

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

Form11::Form11(Context& ctx, const QString& ErrorMsgStr) : m_ctx(ctx) {
    setAttribute(Qt::WA_DeleteOnClose);
    setFont(window_twips::designFont(font()));
    setWindowTitle(QStringLiteral("Warning Message"));
    window_twips::sizeAndCentre(this, 3432, 1716);
    if (lngPrevTop == 0)
        lngPrevTop = ctx.m.lngTopWho;

    auto* imgWarningMessage = new QLabel(this);
    place(imgWarningMessage, 120, 240, 384, 384);
    imgWarningMessage->setPixmap(pictures::warning(imgWarningMessage->width()));

    Label1 = new QLabel(this);
    place(Label1, 840, 240, 2412, 852);
    Label1->setAutoFillBackground(true);
    QPalette palette = Label1->palette();
    palette.setColor(QPalette::Window, QColor(0xC0, 0xC0, 0xC0));
    palette.setColor(QPalette::WindowText, Qt::black);
    Label1->setPalette(palette);
    Label1->setWordWrap(true);
    Label1->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    cmdOK = new QPushButton(QStringLiteral("OK"), this);
    place(cmdOK, 1320, 1200, 732, 372);
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &Form11::cmdOK_Click);

    lblMyVisibility = new QLabel(this);
    place(lblMyVisibility, 120, 1320, 972, 252);
    lblMyVisibility->hide();

    m_serial = ctx.m.lngWarnSerial;
    lblMyVisibility->setText(QString::number(m_serial));
    ++ctx.m.lngWarnSerial;
    if (ctx.m.lngWarnSerial >= 1999000)
        ctx.m.lngWarnSerial = 1000000;
    // A carriage return in our texts starts a new line.
    Label1->setText(QString(ErrorMsgStr)
                        .replace(QLatin1String("\r\n"), QLatin1String("\n"))
                        .replace(QLatin1Char('\r'), QLatin1Char('\n')));

    window_twips::makeTopmost(this);
    show();
}

QString Form11::text() const {
    return Label1->text();
}

void Form11::cmdOK_Click() {
    giveFrontBack();
    close();
}

// However the warning goes (OK, its close box, Escape), the window before it gets the front back once.
void Form11::giveFrontBack() {
    if (m_frontGivenBack)
        return;
    m_frontGivenBack = true;
    Front::WhoWillForeground(lngPrevTop);
    m_ctx.m.lngTopWho = 0;
}

void Form11::reject() {
    giveFrontBack();
    QDialog::reject();
}

void Form11::closeEvent(QCloseEvent* event) {
    giveFrontBack();
    QDialog::closeEvent(event);
}

void Form11::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow())
        QTimer::singleShot(0, this, &Form11::Form_LostFocus);
}

void Form11::Form_LostFocus() {
    if (!isVisible()) {
        close();
        return;
    }
    if (isActiveWindow())
        return;
    const int32_t top = m_ctx.m.lngTopWho;
    if (m_serial >= top && top >= 0) {
        raise();
        activateWindow();
        QApplication::beep();
        m_ctx.m.lngTopWho = m_serial;
    }
}
