#include "eventlist/ui/delete_chooser_window.h"

#include "engine/alarm_set_ui.h"
#include "engine/context.h"
#include "platform/ui/window_twips.h"

#include "platform/ui/dialog_keys.h"
#include <QCloseEvent>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

using window_twips::place;

namespace {

QPointer<DeleteChooserWindow>& openChooser() {
    static QPointer<DeleteChooserWindow> form;
    return form;
}

void unshadeTodayList(Context& ctx) {
    if (ctx.alarmSetUi)
        ctx.alarmSetUi->setTodayListShaded(false);
}

} // namespace

DeleteChooserWindow* DeleteChooserWindow::instance() {
    return openChooser();
}

void DeleteChooserWindow::chooseMessageToDelete(Context& ctx, int messageTotal, const QList<int>& doomedRows) {
    DeleteChooserWindow* form = openChooser();
    if (!form) {
        form = new DeleteChooserWindow(ctx);
        openChooser() = form;
    }
    if (!form->m_chooser.chooseMessageToDelete(ctx, messageTotal, doomedRows, form->m_message)) {
        form->close();
        return;
    }
    form->showMessage();
    form->show();
    form->raise();
    form->activateWindow();
}

DeleteChooserWindow::DeleteChooserWindow(Context& ctx) : QWidget(nullptr, Qt::Dialog), m_ctx(ctx) {
    setAttribute(Qt::WA_DeleteOnClose);
    setObjectName(QStringLiteral("DeleteChooserWindow"));
    setWindowTitle(QStringLiteral("Delete Alarm Event"));
    setFixedSize(window_twips::px(this, 3744), window_twips::px(this, 2496));

    nextMessageButton = new QPushButton(QStringLiteral(">"), this);
    place(nextMessageButton, 120, 120, 492, 252);
    informationLabel =
        new QLabel(QStringLiteral("More than one message found, which one do you like to delete?"), this);
    // Down to the text box, so that the three lines of the executed notice fit.
    place(informationLabel, 840, 0, 2772, 600);
    informationLabel->setWordWrap(true);
    informationLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    messageText = new QPlainTextEdit(this);
    place(messageText, 240, 600, 3252, 1212);
    messageText->setReadOnly(true);
    deleteButton = new QPushButton(QStringLiteral("Delete"), this);
    place(deleteButton, 1440, 1920, 852, 372);
    cancelButton = new QPushButton(QStringLiteral("Cancel"), this);
    place(cancelButton, 2640, 1920, 852, 372);

    QFont design = window_twips::designFont(font());
    setFont(design);
    for (QWidget* w : findChildren<QWidget*>())
        w->setFont(design);

    nextMessageButton->setAccessibleName(QStringLiteral("Next message"));
    messageText->setAccessibleName(QStringLiteral("Message"));
    new DialogKeys(this, cancelButton);

    connect(nextMessageButton, &QPushButton::clicked, this, &DeleteChooserWindow::onNextMessageClicked);
    connect(deleteButton, &QPushButton::clicked, this, &DeleteChooserWindow::onDeleteClicked);
    connect(cancelButton, &QPushButton::clicked, this, &DeleteChooserWindow::onCancelClicked);
}

void DeleteChooserWindow::showMessage() {
    messageText->setPlainText(QString(m_message).replace(QLatin1String("\r\n"), QLatin1String("\n")));
}

void DeleteChooserWindow::onNextMessageClicked() {
    QString information = informationLabel->text();
    m_chooser.showNext(m_ctx, m_message, information);
    showMessage();
    informationLabel->setText(information);
}

void DeleteChooserWindow::onDeleteClicked() {
    m_chooser.remove(m_ctx);
    close();
}

void DeleteChooserWindow::onCancelClicked() {
    close();
}

void DeleteChooserWindow::closeEvent(QCloseEvent* event) {
    // Unloaded from here on: the next opening builds the window anew.
    if (openChooser() == this)
        openChooser() = nullptr;
    unshadeTodayList(m_ctx);
    QWidget::closeEvent(event);
}
