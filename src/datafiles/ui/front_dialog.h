#pragma once

#include "datafiles/chooser_front.h"

#include <QDialog>

class Context;

// A window of the data-file chooser that acts modal without being so: it claims the front by its number
// while it is up, takes the focus back with a beep when another of our windows takes it, and gives the front
// back when it closes, whichever way it goes (Escape included).
class FrontDialog : public QDialog {
    Q_OBJECT
protected:
    FrontDialog(Context& ctx, int32_t frontNumber);

    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void reject() override { close(); }
    // The window is closing: from here on the next opening builds it anew.
    virtual void unloading() = 0;

    Context& m_ctx;
    FrontClaim m_front;

private:
    void onDeactivated();
};
