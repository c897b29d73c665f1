#include "sound/ui/error_list_window.h"

#include "platform/ui/focus_marked_button.h"
#include "platform/ui/pictures.h"
#include "platform/ui/window_twips.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>

using window_twips::place;

ErrorListWindow::ErrorListWindow() {
    setAttribute(Qt::WA_DeleteOnClose);
    setFont(window_twips::designFont(font()));
    setWindowTitle(QStringLiteral("Error found"));
    window_twips::sizeAndCentre(this, 4296, 1980);

    auto* bellPicture = new QLabel(this);
    place(bellPicture, 120, 240, 480, 480);
    bellPicture->setPixmap(pictures::error(bellPicture->width()));
    bellPicture->setAccessibleName(QStringLiteral("Error"));

    lines = new QListWidget(this);
    place(lines, 840, 120, 3372, 1104);
    QPalette palette = lines->palette();
    palette.setColor(QPalette::Base, QColor(0xC0, 0xC0, 0xC0));
    palette.setColor(QPalette::Text, Qt::black);
    lines->setPalette(palette);
    lines->setAccessibleName(QStringLiteral("Errors found"));

    auto* okButton = new FocusMarkedButton(QStringLiteral("OK"), this);
    place(okButton, 1800, 1440, 732, 372);
    okButton->setDefault(true);
    connect(okButton, &QPushButton::clicked, this, &QWidget::close);
}

void ErrorListWindow::addLine(const QString& text) {
    lines->addItem(text);
}

void ErrorListWindow::showList() {
    show();
}

QStringList ErrorListWindow::items() const {
    QStringList out;
    for (int i = 0; i < lines->count(); ++i)
        out.append(lines->item(i)->text());
    return out;
}
