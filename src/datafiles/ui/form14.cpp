#include "datafiles/ui/form14.h"

#include "alarmset/ui/button_faces.h"
#include "alarmset/ui/picture_box.h"
#include "datafiles/chooser_actions.h"
#include "datafiles/ui/form13.h"
#include "engine/context.h"
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

QPointer<Form14>& current() {
    static QPointer<Form14> form;
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

Form14* Form14::instance() {
    return current();
}

Form14* Form14::openLoad(Context& ctx) {
    return open(ctx, ChooserMode::Load);
}

Form14* Form14::openSave(Context& ctx) {
    return open(ctx, ChooserMode::Save);
}

Form14* Form14::openEditor(Context& ctx) {
    return open(ctx, ChooserMode::Open);
}

Form14* Form14::open(Context& ctx, ChooserMode mode) {
    Form14* form = current();
    if (!form) {
        form = new Form14(ctx);
        current() = form;
        form->Form_Load();
    }
    form->setMode(mode);
    form->show();
    form->raise();
    form->activateWindow();
    return form;
}

Form14::Form14(Context& ctx) : FrontDialog(ctx, kFrontNumber) {
    setObjectName(QStringLiteral("Form14"));
    setWindowTitle(QStringLiteral(" Load Data From Files"));
    window_twips::sizeAndCentre(this, 5736, 3720);

    Label1 = new QLabel(this);
    place(Label1, 240, 240, 2652, 252);
    File1 = new QListWidget(this);
    place(File1, 240, 600, 4452, 1824);
    File1->setSelectionMode(QAbstractItemView::ExtendedSelection);
    File1->installEventFilter(this);
    lblInputFileN = new QLabel(QStringLiteral("Input file name :"), this);
    place(lblInputFileN, 240, 2880, 1692, 252);
    txtInput = new QLineEdit(this);
    place(txtInput, 240, 3240, 3132, 264);
    txtInput->setMaxLength(kChooserNameMaxLength);
    txtInput->installEventFilter(this);
    // Pasted or composed text keeps to the typed keys' rule: no blank, no path out of the folder.
    txtInput->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QLatin1String(kChooserNamePattern)), txtInput));
    cmdConfirm = new QPushButton(this);
    place(cmdConfirm, 4920, 2160, 732, 372);
    cmdConfirm->setDefault(true);
    cmdCancel = new QPushButton(QStringLiteral("Cancel"), this);
    place(cmdCancel, 4920, 2760, 732, 372);
    cmdCancel->setAutoDefault(false);
    imgLoad = new PictureBox(button_faces::openFolder, this);
    place(imgLoad, 5040, 240, 216, 192);
    imgSave = new PictureBox(button_faces::floppyDisk, this);
    place(imgSave, 5040, 240, 192, 204);
    imgEdit = new PictureBox(button_faces::sheetAndPencil, this);
    place(imgEdit, 5040, 240, 312, 300);

    QFont design = window_twips::designFont(font());
    setFont(design);
    for (QWidget* w : findChildren<QWidget*>())
        w->setFont(design);

    connect(cmdConfirm, &QPushButton::clicked, this, &Form14::cmdConfirm_Click);
    connect(cmdCancel, &QPushButton::clicked, this, &Form14::cmdCancel_Click);
    connect(File1, &QListWidget::itemClicked, this, &Form14::File1_Click);
    connect(File1, &QListWidget::currentRowChanged, this, &Form14::File1_Click);
    Front::registerWindow(kFrontNumber, this);
}

void Form14::Form_Load() {
    const QString folder = m_ctx.m.strAppPath;
    // A folder that cannot be made leaves the list empty; a save then reports its own error.
    if (QDir().mkpath(folder)) {
        const QDir dir(folder, QStringLiteral("*.dat"), QDir::Name | QDir::IgnoreCase, QDir::Files);
        File1->addItems(dir.entryList());
    }
    m_front.open(m_ctx.m.lngTopWho);
    window_twips::makeTopmost(this);
}

void Form14::setMode(ChooserMode mode) {
    const ChooserTexts texts = chooserTexts(mode);
    Label1->setText(texts.label);
    cmdConfirm->setText(texts.confirm);
    imgLoad->setVisible(mode == ChooserMode::Load);
    imgSave->setVisible(mode == ChooserMode::Save);
    imgEdit->setVisible(mode == ChooserMode::Open);
}

ChooserMode Form14::mode() const {
    return chooserModeOf(cmdConfirm->text());
}

FileListState Form14::file1State() const {
    FileListState state;
    for (int i = 0; i < File1->count(); ++i) {
        state.names.append(File1->item(i)->text());
        state.selected.append(File1->item(i)->isSelected());
    }
    state.current = File1->currentRow();
    return state;
}

void Form14::unselectCurrentFile() {
    if (QListWidgetItem* item = File1->currentItem())
        item->setSelected(false);
}

void Form14::cmdConfirm_Click() {
    QString typed = txtInput->text();
    Context& ctx = m_ctx;
    const ChooserActions actions = chooserActionsFor(
        ctx, [&ctx](const QString& origin, const QString& name) { Form13::FileAlreadyExist(ctx, origin, name); });
    const bool done = ConfirmChoice(ctx, mode(), typed, file1State(), actions);
    txtInput->setText(typed);
    if (done)
        close();
}

void Form14::cmdCancel_Click() {
    close();
}

void Form14::File1_Click() {
    if (FileClickEmptiesInput(mode(), file1State()))
        txtInput->clear();
}

bool Form14::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtInput) {
        if (event->type() == QEvent::FocusIn && InputFocusUnselectsFile(mode(), file1State())) {
            unselectCurrentFile();
        } else if (event->type() == QEvent::KeyPress) {
            const auto* key = static_cast<QKeyEvent*>(event);
            if (typesCharacter(key) && !ChooserNameKeyPasses(key->text().at(0)))
                return true;
        }
    } else if (watched == File1 && event->type() == QEvent::KeyPress) {
        if (ModifierKeyUnselectsFile(mode(), file1State(), keyCodeOf(static_cast<QKeyEvent*>(event))))
            unselectCurrentFile();
    }
    return QDialog::eventFilter(watched, event);
}

void Form14::unloading() {
    if (current() == this)
        current() = nullptr;
}
