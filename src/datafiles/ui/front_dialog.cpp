#include "datafiles/ui/front_dialog.h"

#include "engine/context.h"
#include "platform/ui/front.h"
#include "platform/ui/window_twips.h"
#include "sound/notices.h"

#include <QCloseEvent>
#include <QTimer>

FrontDialog::FrontDialog(Context& ctx, int32_t frontNumber) : m_ctx(ctx), m_front(frontNumber) {
    setAttribute(Qt::WA_DeleteOnClose);
}

void FrontDialog::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && !isActiveWindow())
        QTimer::singleShot(0, this, &FrontDialog::onDeactivated);
}

void FrontDialog::onDeactivated() {
    if (!isVisible()) {
        close();
        return;
    }
    if (isActiveWindow() || !m_front.lostFocus(m_ctx.front.claimant))
        return;
    window_twips::makeTopmost(this);
    activateWindow();
    m_ctx.notices.beep();
}

void FrontDialog::closeEvent(QCloseEvent* event) {
    unloading();
    Front::bringToFront(m_front.close(m_ctx.front.claimant));
    // Not the dialog's own closing, which would reject and keep the window up.
    event->accept();
}
