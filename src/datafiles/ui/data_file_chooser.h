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
// Not modal; it keeps itself in front by the number 13. Its mode is the caption of confirmButton.
class DataFileChooser : public FrontDialog {
    Q_OBJECT
public:
    static constexpr int32_t kFrontNumber = 13;

    // loadButton, saveFileButton and editorButton of the Alarm Set window.
    static DataFileChooser* openLoad(Context& ctx);
    static DataFileChooser* openSave(Context& ctx);
    static DataFileChooser* openEditor(Context& ctx);
    static DataFileChooser* instance();

    void onConfirmClicked();
    void onCancelClicked();
    void onFileClicked();

    QLabel* textLabel;
    QListWidget* fileList;
    QLabel* fileNameLabel;
    QLineEdit* input;
    QPushButton* confirmButton;
    QPushButton* cancelButton;
    PictureBox* loadPicture;
    PictureBox* savePicture;
    PictureBox* editPicture;

protected:
    void unloading() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    explicit DataFileChooser(Context& ctx);
    static DataFileChooser* open(Context& ctx, ChooserMode mode);
    void load();
    void setMode(ChooserMode mode);
    ChooserMode mode() const;
    FileListState fileListState() const;
    void unselectCurrentFile();
};
