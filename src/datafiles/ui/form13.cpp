#include "datafiles/ui/form13.h"

#include "datafiles/chooser_actions.h"
#include "engine/context.h"
#include "platform/ui/front.h"
#include "platform/ui/pictures.h"
#include "platform/ui/window_twips.h"
#include "sound/notices.h"

#include <QLabel>
#include <QPointer>
#include <QPushButton>

using window_twips::place;

namespace {
QPointer<Form13>& current() {
    static QPointer<Form13> form;
    return form;
}
} // namespace

Form13* Form13::instance() {
    return current();
}

Form13* Form13::FileAlreadyExist(Context& ctx, const QString& WhereDoYouComeFrom, const QString& fFileName) {
    Form13* form = current();
    if (!form) {
        form = new Form13(ctx);
        current() = form;
    }
    form->m_front.open(ctx.m.lngTopWho);
    window_twips::makeTopmost(form);
    form->show();
    form->activateWindow();
    form->m_origin = WhereDoYouComeFrom;
    form->m_fileName = fFileName;
    ctx.notices.Beep();
    return form;
}

Form13::Form13(Context& ctx) : FrontDialog(ctx, kFrontNumber) {
    setObjectName(QStringLiteral("Form13"));
    setWindowTitle(QStringLiteral("Warning Message"));
    window_twips::sizeAndCentre(this, 3336, 1212);

    auto* imgWarningMessage = new QLabel(this);
    place(imgWarningMessage, 120, 120, 480, 480);
    imgWarningMessage->setPixmap(pictures::warning(imgWarningMessage->width()));
    Label1 = new QLabel(QStringLiteral("File already exists, overwrite ?"), this);
    place(Label1, 720, 240, 2532, 252);
    cmdYes = new QPushButton(QStringLiteral("Yes"), this);
    place(cmdYes, 1200, 720, 732, 252);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    place(cmdCancel, 2280, 720, 732, 252);

    QFont design = window_twips::designFont(font());
    setFont(design);
    for (QWidget* w : findChildren<QWidget*>())
        w->setFont(design);

    connect(cmdYes, &QPushButton::clicked, this, &Form13::cmdYes_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &Form13::cmdCancel_Click);
    Front::registerWindow(kFrontNumber, this);
}

void Form13::cmdYes_Click() {
    OverwriteConfirmed(m_ctx, m_origin, m_fileName);
    close();
}

void Form13::cmdCancel_Click() {
    close();
}

void Form13::unloading() {
    if (current() == this)
        current() = nullptr;
}
