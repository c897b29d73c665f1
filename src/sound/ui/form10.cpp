#include "sound/ui/form10.h"

#include "platform/ui/pictures.h"
#include "platform/ui/window_twips.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

using window_twips::place;

Form10::Form10() {
    setAttribute(Qt::WA_DeleteOnClose);
    setFont(window_twips::designFont(font()));
    setWindowTitle(QStringLiteral("Error found"));
    window_twips::sizeAndCentre(this, 4296, 1980);

    auto* Image1 = new QLabel(this);
    place(Image1, 120, 240, 480, 480);
    Image1->setPixmap(pictures::error(Image1->width()));

    lstErrorMsg = new QListWidget(this);
    place(lstErrorMsg, 840, 120, 3372, 1104);
    QPalette palette = lstErrorMsg->palette();
    palette.setColor(QPalette::Base, QColor(0xC0, 0xC0, 0xC0));
    palette.setColor(QPalette::Text, Qt::black);
    lstErrorMsg->setPalette(palette);

    auto* cmdOK = new QPushButton(QStringLiteral("OK"), this);
    place(cmdOK, 1800, 1440, 732, 372);
    cmdOK->setDefault(true);
    connect(cmdOK, &QPushButton::clicked, this, &QWidget::close);
}

void Form10::AddItem(const QString& text) {
    lstErrorMsg->addItem(text);
}

void Form10::Show() {
    show();
}

QStringList Form10::items() const {
    QStringList out;
    for (int i = 0; i < lstErrorMsg->count(); ++i)
        out.append(lstErrorMsg->item(i)->text());
    return out;
}
