#include "sound/ui/widget_notices.h"

#include "engine/ui/message_window.h"
#include "platform/ui/front.h"
#include "sound/ui/error_list_window.h"
#include "sound/ui/warning_window.h"

#include <QApplication>
#include <QEvent>
#include <QMessageBox>
#include <QSet>
#include <QTimer>

namespace {

// Keeps the standing box above every window: itself once it is on the screen, and again above each window
// that comes up while it stands. A first paint follows the server's expose, so the window manager has
// placed that window by then.
class BoxKeeper : public QObject {
public:
    explicit BoxKeeper(QWidget& box) : m_box(box) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (!watched->isWidgetType() || !static_cast<QWidget*>(watched)->isWindow())
            return false;
        if (event->type() == QEvent::Show)
            m_coming.insert(watched);
        else if (event->type() == QEvent::Paint && m_coming.remove(watched))
            QTimer::singleShot(0, &m_box, [] { Front::keepSystemBoxOnTop(); });
        return false;
    }

private:
    QWidget& m_box;
    QSet<QObject*> m_coming;
};

} // namespace

void WidgetNotices::answerOk(const QString& text) {
    new WarningWindow(m_ctx, text);
}

void WidgetNotices::showAlarmWindow(const QString& text) {
    new MessageWindow(m_ctx, text);
}

ErrorList& WidgetNotices::newErrorList() {
    return *new ErrorListWindow();
}

ErrorList& WidgetNotices::sharedErrorList() {
    // The shared list lives until its OK is pressed; the next use after that opens a fresh one.
    if (!m_shared)
        m_shared = new ErrorListWindow();
    return *m_shared;
}

void WidgetNotices::beep() {
    QApplication::beep();
}

void WidgetNotices::systemModalBox(const QString& text) {
    QMessageBox box(QMessageBox::NoIcon, QStringLiteral("Bellwick Alarm Clock sp"),
                    QString(text).replace(QLatin1Char('\r'), QLatin1Char('\n')), QMessageBox::Ok);
    // A topmost window of its own, not a dialog of the program's other windows. The flags come after the
    // modality: a message box's modality makes it a plain dialog again, and the topmost flag would go with it.
    box.setWindowModality(Qt::ApplicationModal);
    box.setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                       Qt::WindowStaysOnTopHint);
    Front::setSystemBox(&box);
    // A window manager may put a window that comes without the focus under the focused one, the topmost
    // message window: the box asks to stand on top and to take the keyboard once it is up, and again
    // whenever another window comes up while it stands.
    BoxKeeper keeper(box);
    qApp->installEventFilter(&keeper);
    box.exec();
    qApp->removeEventFilter(&keeper);
    Front::setSystemBox(nullptr);
}
