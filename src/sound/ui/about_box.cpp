#include "sound/ui/about_box.h"

#include "platform/ui/pictures.h"
#include "platform/ui/window_twips.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>

using window_twips::place;

AboutBox::AboutBox() {
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(QStringLiteral(" ")); // the About box has no title of its own
    setAccessibleName(QStringLiteral("About Bellwick Alarm Clock"));
    window_twips::sizeAndCentre(this, 4788, 3120);

    auto* picture = new QLabel(this);
    place(picture, 240, 240, 960, 960);
    picture->setPixmap(pictures::clock(picture->width(), true));
    picture->setAccessibleName(QStringLiteral("Clock"));

    auto* name = new QLabel(QStringLiteral("Bellwick Alarm Clock"), this);
    place(name, 1440, 300, 3200, 420);
    QFont big = name->font();
    big.setPointSizeF(big.pointSizeF() * 1.5);
    big.setBold(true);
    name->setFont(big);

    auto* version = new QLabel(QStringLiteral("Version ") + QCoreApplication::applicationVersion(), this);
    place(version, 1440, 840, 3200, 300);

    auto* about = new QLabel(QStringLiteral("A resident alarm clock for your desktop: alarms with messages and "
                                            "reminders, a chime, and a small clock that keeps to the screen's edge."),
                             this);
    about->setWordWrap(true);
    place(about, 240, 1380, 4300, 960);

    auto* okButton = new QPushButton(QStringLiteral("OK"), this);
    place(okButton, 240, 2520, 4000, 252);
    okButton->setDefault(true);
    connect(okButton, &QPushButton::clicked, this, &QWidget::close);
}
