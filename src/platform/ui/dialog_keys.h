#pragma once

#include <QObject>

class QAbstractButton;
class QWidget;

// The keys of a window that is a dialog but not a QDialog: Escape presses its cancel button, and Return or Enter
// presses the push button that has the focus (a key that the focused control takes itself never gets here).
class DialogKeys : public QObject {
public:
    DialogKeys(QWidget* window, QAbstractButton* cancel);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* m_window;
    QAbstractButton* m_cancel;
};
