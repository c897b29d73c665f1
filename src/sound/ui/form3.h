#pragma once

#include <QDialog>

// The About box.
class Form3 : public QDialog {
    Q_OBJECT
public:
    Form3();
};
