#include "platform/ui/front.h"

#include "platform/ui/window_twips.h"

std::map<int, QPointer<QWidget>>& Front::windows() {
    static std::map<int, QPointer<QWidget>> registry;
    return registry;
}

void Front::registerWindow(int who, QWidget* window) {
    windows()[who] = window;
}

void Front::bringToFront(int who) {
    if (who != 1 && who != 13 && who != 157)
        return;
    const auto it = windows().find(who);
    if (it == windows().end() || !it->second || !it->second->isVisible())
        return;
    window_twips::makeTopmost(it->second);
    it->second->activateWindow();
}

QPointer<QWidget>& Front::systemBox() {
    static QPointer<QWidget> box;
    return box;
}

void Front::setSystemBox(QWidget* box) {
    systemBox() = box;
}

void Front::keepSystemBoxOnTop() {
    QWidget* box = systemBox();
    if (!box || !box->isVisible())
        return;
    box->raise();
    box->activateWindow();
}
