#include "eventlist/ui/form12.h"

#include "engine/context.h"
#include "engine/form4_ui.h"
#include "platform/ui/window_twips.h"

#include <QCloseEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

using window_twips::place;

namespace {

QPointer<Form12>& current() {
    static QPointer<Form12> form;
    return form;
}

void unshadeDataList(Context& ctx) {
    if (ctx.form4Ui)
        ctx.form4Ui->SetDataListShaded(false);
}

} // namespace

Form12* Form12::instance() {
    return current();
}

void Form12::GetAllMessages(Context& ctx, int indexOfDimension, const QList<int>& BeKilled) {
    Form12* form = current();
    if (!form) {
        form = new Form12(ctx);
        current() = form;
    }
    if (!form->m_chooser.GetAllMessages(ctx, indexOfDimension, BeKilled, form->m_message)) {
        form->close();
        return;
    }
    form->showMessage();
    form->show();
    form->raise();
    form->activateWindow();
}

Form12::Form12(Context& ctx) : QWidget(nullptr, Qt::Dialog), m_ctx(ctx) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("Form12"));
    setWindowTitle(QStringLiteral("Delete Alarm Event"));
    setFixedSize(window_twips::px(this, 3744), window_twips::px(this, 2496));

    cmdShowMessages = new QPushButton(QStringLiteral(">"), this);
    place(cmdShowMessages, 120, 120, 492, 252);
    lblInformation = new QLabel(QStringLiteral("More than one message found, which one do you like to delete?"), this);
    // Down to the text box, so that the three lines of the executed notice fit.
    place(lblInformation, 840, 0, 2772, 600);
    lblInformation->setWordWrap(true);
    lblInformation->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    txtMessageIs = new QPlainTextEdit(this);
    place(txtMessageIs, 240, 600, 3252, 1212);
    txtMessageIs->setReadOnly(true);
    cmdDelete = new QPushButton(QStringLiteral("Delete"), this);
    place(cmdDelete, 1440, 1920, 852, 372);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    place(cmdCancel, 2640, 1920, 852, 372);

    QFont design = window_twips::designFont(font());
    setFont(design);
    for (QWidget* w : findChildren<QWidget*>())
        w->setFont(design);

    connect(cmdShowMessages, &QPushButton::clicked, this, &Form12::cmdShowMessages_Click);
    connect(cmdDelete, &QPushButton::clicked, this, &Form12::cmdDelete_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &Form12::cmdCancel_Click);
}

void Form12::showMessage() {
    txtMessageIs->setPlainText(QString(m_message).replace(QLatin1String("\r\n"), QLatin1String("\n")));
}

void Form12::cmdShowMessages_Click() {
    QString information = lblInformation->text();
    m_chooser.ShowMessages(m_ctx, m_message, information);
    showMessage();
    lblInformation->setText(information);
}

void Form12::cmdDelete_Click() {
    m_chooser.Delete(m_ctx);
    close();
}

void Form12::cmdCancel_Click() {
    close();
}

void Form12::closeEvent(QCloseEvent* event) {
    // Unloaded from here on: the next opening builds the window anew.
    if (current() == this)
        current() = nullptr;
    unshadeDataList(m_ctx);
    QWidget::closeEvent(event);
}
