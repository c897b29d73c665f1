#pragma once

#include <QDialog>

// The About box.
class AboutBox : public QDialog {
    Q_OBJECT
public:
    AboutBox();
};
