#pragma once

#include "datafiles/ui/front_dialog.h"

class Context;
class QLabel;
class QPushButton;

// "File already exists, overwrite ?": asked before a save writes over a data file. Not modal; it keeps
// itself in front by the number 157.
class Form13 : public FrontDialog {
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
    void unloading() override;

private:
    explicit Form13(Context& ctx);

    QString m_origin;
    QString m_fileName;
};
