#include "datafiles/ui/overwrite_question.h"

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
QPointer<OverwriteQuestion>& openQuestion() {
    static QPointer<OverwriteQuestion> form;
    return form;
}
} // namespace

OverwriteQuestion* OverwriteQuestion::instance() {
    return openQuestion();
}

OverwriteQuestion* OverwriteQuestion::askOverwrite(Context& ctx, const QString& origin, const QString& fileName) {
    OverwriteQuestion* form = openQuestion();
    if (!form) {
        form = new OverwriteQuestion(ctx);
        openQuestion() = form;
    }
    form->m_front.open(ctx.front.claimant);
    window_twips::makeTopmost(form);
    form->show();
    form->activateWindow();
    form->m_origin = origin;
    form->m_fileName = fileName;
    ctx.notices.beep();
    return form;
}

OverwriteQuestion::OverwriteQuestion(Context& ctx) : FrontDialog(ctx, kFrontNumber) {
    setObjectName(QStringLiteral("OverwriteQuestion"));
    setWindowTitle(QStringLiteral("Warning Message"));
    window_twips::sizeAndCentre(this, 3336, 1212);

    auto* warningIcon = new QLabel(this);
    place(warningIcon, 120, 120, 480, 480);
    warningIcon->setPixmap(pictures::warning(warningIcon->width()));
    textLabel = new QLabel(QStringLiteral("File already exists, overwrite ?"), this);
    place(textLabel, 720, 240, 2532, 252);
    yesButton = new QPushButton(QStringLiteral("Yes"), this);
    place(yesButton, 1200, 720, 732, 252);
    cancelButton = new QPushButton(QStringLiteral("Cancel"), this);
    place(cancelButton, 2280, 720, 732, 252);

    QFont design = window_twips::designFont(font());
    setFont(design);
    for (QWidget* w : findChildren<QWidget*>())
        w->setFont(design);

    connect(yesButton, &QPushButton::clicked, this, &OverwriteQuestion::onYesClicked);
    connect(cancelButton, &QPushButton::clicked, this, &OverwriteQuestion::onCancelClicked);
    Front::registerWindow(kFrontNumber, this);
}

void OverwriteQuestion::onYesClicked() {
    overwriteConfirmed(m_ctx, m_origin, m_fileName);
    close();
}

void OverwriteQuestion::onCancelClicked() {
    close();
}

void OverwriteQuestion::unloading() {
    if (openQuestion() == this)
        openQuestion() = nullptr;
}
