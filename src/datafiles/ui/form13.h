#pragma once

#include "datafiles/chooser_front.h"

#include <QDialog>

class Context;
class QLabel;
class QPushButton;

// "File already exists, overwrite ?": asked before a save writes over a data file. Not modal; it keeps
// itself in front by the number 157.
class Form13 : public QDialog {
    Q_OBJECT
public:
    static constexpr int32_t kFrontNumber = 157;

    // Opens the question (once) for this origin and bare file name, and beeps.
    static Form13* FileAlreadyExist(Context& ctx, const QString& WhereDoYouComeFrom, const QString& fFileName);
    static Form13* instance();

    void cmdYes_Click();
    void cmdCancel_Click();

    QLabel* Label1;
    QPushButton* cmdYes;
    QPushButton* cmdCancel;

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    // Escape closes the window the same way as every other way out.
    void reject() override { close(); }

private:
    explicit Form13(Context& ctx);
    void Form_Deactivate();

    Context& m_ctx;
    FrontClaim m_front{kFrontNumber};
    QString m_origin;
    QString m_fileName;
};
