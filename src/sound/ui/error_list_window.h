#pragma once

#include "sound/notices.h"

#include <QDialog>

class QListWidget;

// The bad records of a file, listed until the user presses OK.
class ErrorListWindow : public QDialog, public ErrorList {
    Q_OBJECT
public:
    ErrorListWindow();
    void addLine(const QString& text) override;
    void showList() override;
    QStringList items() const;

private:
    QListWidget* lines;
};
