#pragma once

#include "datafiles/chooser_rules.h"
#include "datafiles/ui/front_dialog.h"

class Context;
class PictureBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;

// " Load Data From Files": names a data file of the program folder to load, save or open in an editor.
// Not modal; it keeps itself in front by the number 13. Its mode is the caption of cmdConfirm.
class Form14 : public FrontDialog {
    Q_OBJECT
public:
    static constexpr int32_t kFrontNumber = 13;

    // cmdLoad, cmdSaveFile and cmdEditor of the Alarm Set window.
    static Form14* openLoad(Context& ctx);
    static Form14* openSave(Context& ctx);
    static Form14* openEditor(Context& ctx);
    static Form14* instance();

    void cmdConfirm_Click();
    void cmdCancel_Click();
    void File1_Click();

    QLabel* Label1;
    QListWidget* File1;
    QLabel* lblInputFileN;
    QLineEdit* txtInput;
    QPushButton* cmdConfirm;
    QPushButton* cmdCancel;
    PictureBox* imgLoad;
    PictureBox* imgSave;
    PictureBox* imgEdit;

protected:
    void unloading() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit Form14(Context& ctx);
    static Form14* open(Context& ctx, ChooserMode mode);
    void Form_Load();
    void setMode(ChooserMode mode);
    ChooserMode mode() const;
    FileListState file1State() const;
    void unselectCurrentFile();
};
