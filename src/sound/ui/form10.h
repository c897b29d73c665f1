#pragma once

#include "sound/notices.h"

#include <QDialog>

class QListWidget;

// The bad records of a file, listed until the user presses OK.
class Form10 : public QDialog, public ErrorList {
    Q_OBJECT
public:
    Form10();
    void AddItem(const QString& text) override;
    void Show() override;
    QStringList items() const;

private:
    QListWidget* lstErrorMsg;
};
