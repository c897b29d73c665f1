#pragma once

#include <QObject>
#include <QPoint>

class QWidget;

// Keeps a window where the user left it across a hide and a show. A window the program never placed itself is
// placed by the window manager at every showing, so one dragged away and hidden would come back at its first place.
class PlaceKeeper : public QObject {
public:
    // Watches the window for as long as it lives.
    static void keep(QWidget* window);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using QObject::QObject;
    QPoint m_place;
    bool m_known = false;
};
