#pragma once

#include "datafiles/ui/front_dialog.h"

class Context;
class QLabel;
class QPushButton;

// "File already exists, overwrite ?": asked before a save writes over a data file. Not modal; it keeps
// itself in front by the number 157.
class OverwriteQuestion : public FrontDialog {
    Q_OBJECT
public:
    static constexpr int32_t kFrontNumber = 157;

    // Opens the question (once) for this origin and bare file name, and beeps.
    static OverwriteQuestion* askOverwrite(Context& ctx, const QString& origin, const QString& fileName);
    static OverwriteQuestion* instance();

    void onYesClicked();
    void onCancelClicked();

    QLabel* textLabel;
    QPushButton* yesButton;
    QPushButton* cancelButton;

protected:
    void unloading() override;

private:
    explicit OverwriteQuestion(Context& ctx);

    QString m_origin;
    QString m_fileName;
};
