#include "datafiles/ui/data_file_chooser.h"

#include "alarmset/ui/button_faces.h"
#include "alarmset/ui/picture_box.h"
#include "datafiles/chooser_actions.h"
#include "datafiles/ui/overwrite_question.h"
#include "engine/context.h"
#include "platform/data_folder.h"
#include "platform/ui/focus_marked_button.h"
#include "platform/ui/front.h"
#include "platform/ui/typed_key.h"
#include "platform/ui/window_twips.h"

#include <QDir>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpressionValidator>

using window_twips::place;

namespace {

QPointer<DataFileChooser>& current() {
    static QPointer<DataFileChooser> form;
    return form;
}

// The key codes the list's rule looks for: 16 Shift, 17 Ctrl.
int keyCodeOf(const QKeyEvent* key) {
    switch (key->key()) {
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    default:
        return 0;
    }
}

} // namespace

DataFileChooser* DataFileChooser::instance() {
    return current();
}

DataFileChooser* DataFileChooser::openLoad(Context& ctx) {
    return open(ctx, ChooserMode::Load);
}

DataFileChooser* DataFileChooser::openSave(Context& ctx) {
    return open(ctx, ChooserMode::Save);
}

DataFileChooser* DataFileChooser::openEditor(Context& ctx) {
    return open(ctx, ChooserMode::Open);
}

DataFileChooser* DataFileChooser::open(Context& ctx, ChooserMode mode) {
    DataFileChooser* form = current();
    if (!form) {
        form = new DataFileChooser(ctx);
        current() = form;
        form->load();
    }
    form->setMode(mode);
    form->show();
    form->raise();
    form->activateWindow();
    return form;
}

DataFileChooser::DataFileChooser(Context& ctx) : FrontDialog(ctx, kFrontNumber) {
    setObjectName(QStringLiteral("DataFileChooser"));
    setWindowTitle(QStringLiteral(" Load Data From Files"));
    window_twips::sizeAndCentre(this, 5736, 3720);

    textLabel = new QLabel(this);
    place(textLabel, 240, 240, 2652, 252);
    fileList = new QListWidget(this);
    place(fileList, 240, 600, 4452, 1824);
    fileList->setSelectionMode(QAbstractItemView::ExtendedSelection);
    fileList->installEventFilter(this);
    fileNameLabel = new QLabel(QStringLiteral("Input file name :"), this);
    place(fileNameLabel, 240, 2880, 1692, 252);
    input = new QLineEdit(this);
    place(input, 240, 3240, 3132, 264);
    input->setMaxLength(kChooserNameMaxLength);
    input->installEventFilter(this);
    // Pasted or composed text keeps to the typed keys' rule: no blank, no path out of the folder.
    input->setValidator(new QRegularExpressionValidator(QRegularExpression(QLatin1String(kChooserNamePattern)), input));
    confirmButton = new FocusMarkedButton(QString(), this);
    place(confirmButton, 4920, 2160, 732, 372);
    confirmButton->setDefault(true);
    cancelButton = new QPushButton(QStringLiteral("Cancel"), this);
    place(cancelButton, 4920, 2760, 732, 372);
    // Focused, Cancel takes Return for itself; elsewhere Return goes to the confirm button.
    cancelButton->setAutoDefault(true);
    fileList->setAccessibleName(QStringLiteral("Data files"));
    input->setAccessibleName(QStringLiteral("File name"));
    loadPicture = new PictureBox(button_faces::openFolder, this);
    place(loadPicture, 5040, 240, 216, 192);
    savePicture = new PictureBox(button_faces::floppyDisk, this);
    place(savePicture, 5040, 240, 192, 204);
    editPicture = new PictureBox(button_faces::sheetAndPencil, this);
    place(editPicture, 5040, 240, 312, 300);

    QFont design = window_twips::designFont(font());
    setFont(design);
    for (QWidget* w : findChildren<QWidget*>())
        w->setFont(design);

    connect(confirmButton, &QPushButton::clicked, this, &DataFileChooser::onConfirmClicked);
    connect(cancelButton, &QPushButton::clicked, this, &DataFileChooser::onCancelClicked);
    connect(fileList, &QListWidget::itemClicked, this, &DataFileChooser::onFileClicked);
    connect(fileList, &QListWidget::currentRowChanged, this, &DataFileChooser::onFileClicked);
    Front::registerWindow(kFrontNumber, this);
}

void DataFileChooser::load() {
    const QString folder = m_ctx.folder;
    // A folder that cannot be made leaves the list empty; a save then reports its own error.
    if (data_folder::makePrivate(folder)) {
        // Names starting with a dot can be typed and saved, so they are listed too.
        const QDir dir(folder, QStringLiteral("*.dat"), QDir::Name | QDir::IgnoreCase, QDir::Files | QDir::Hidden);
        fileList->addItems(dir.entryList());
    }
    m_front.open(m_ctx.front.claimant);
    window_twips::makeTopmost(this);
}

void DataFileChooser::setMode(ChooserMode mode) {
    const ChooserTexts texts = chooserTexts(mode);
    textLabel->setText(texts.label);
    confirmButton->setText(texts.confirm);
    loadPicture->setVisible(mode == ChooserMode::Load);
    savePicture->setVisible(mode == ChooserMode::Save);
    editPicture->setVisible(mode == ChooserMode::Open);
}

ChooserMode DataFileChooser::mode() const {
    return chooserModeOf(confirmButton->text());
}

FileListState DataFileChooser::fileListState() const {
    FileListState state;
    for (int i = 0; i < fileList->count(); ++i) {
        state.names.append(fileList->item(i)->text());
        state.selected.append(fileList->item(i)->isSelected());
    }
    state.current = fileList->currentRow();
    return state;
}

void DataFileChooser::unselectCurrentFile() {
    if (QListWidgetItem* item = fileList->currentItem())
        item->setSelected(false);
}

void DataFileChooser::onConfirmClicked() {
    QString typed = input->text();
    Context& ctx = m_ctx;
    const ChooserActions actions = chooserActionsFor(ctx, [&ctx](const QString& origin, const QString& name) {
        OverwriteQuestion::askOverwrite(ctx, origin, name);
    });
    const bool done = confirmChoice(ctx, mode(), typed, fileListState(), actions);
    input->setText(typed);
    if (done)
        close();
}

void DataFileChooser::onCancelClicked() {
    close();
}

void DataFileChooser::onFileClicked() {
    if (fileClickEmptiesInput(mode(), fileListState()))
        input->clear();
}

bool DataFileChooser::eventFilter(QObject* watched, QEvent* event) {
    if (watched == input) {
        if (event->type() == QEvent::FocusIn && inputFocusUnselectsFile(mode(), fileListState())) {
            unselectCurrentFile();
        } else if (event->type() == QEvent::KeyPress) {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (typesCharacter(key) && !chooserNameKeyPasses(key->text().at(0)))
                return true;
        }
    } else if (watched == fileList && event->type() == QEvent::KeyPress) {
        if (modifierKeyUnselectsFile(mode(), fileListState(), keyCodeOf(static_cast<QKeyEvent*>(event))))
            unselectCurrentFile();
    }
    return QDialog::eventFilter(watched, event);
}

void DataFileChooser::unloading() {
    if (current() == this)
        current() = nullptr;
}
