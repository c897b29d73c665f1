#include "datafiles/chooser_rules.h"

#include "engine/context.h"
#include "sound/notices.h"

namespace {

const QString kDat = QStringLiteral(".dat");

void noFile(Context& ctx) {
    ctx.notices.AnswerOk(QStringLiteral("No file is chosen"));
}

// The name of the other program's data, which is never written over.
bool isReservedName(const QString& name) {
    return name.toLower() == QLatin1String("wpaper.dat");
}

bool refuseReserved(Context& ctx, const QString& name) {
    if (!isReservedName(name))
        return false;
    ctx.notices.AnswerOk(QStringLiteral("Wpaper.dat has data of wallpaper"));
    return true;
}

void call(const std::function<void(const QString&)>& action, const QString& name) {
    if (action)
        action(name);
}

bool confirmLoad(Context& ctx, const QString& txtInput, const FileListState& file1, const ChooserActions& actions) {
    bool called = false;
    // The typed name as it stands: a load adds no extension.
    if (!txtInput.isEmpty()) {
        call(actions.load, txtInput);
        called = true;
    }
    for (int i = 0; i < file1.names.size(); ++i) {
        if (i < file1.selected.size() && file1.selected.at(i)) {
            call(actions.load, file1.names.at(i));
            called = true;
        }
    }
    if (!called)
        noFile(ctx);
    return called;
}

bool confirmSave(Context& ctx, QString& txtInput, const FileListState& file1, const ChooserActions& actions) {
    if (!txtInput.isEmpty()) {
        if (txtInput.right(4).toLower() != kDat)
            txtInput += kDat;
        if (refuseReserved(ctx, txtInput))
            return false;
        call(actions.save, txtInput);
        return true;
    }
    if (!file1.currentSelected()) {
        noFile(ctx);
        return false;
    }
    const QString& name = file1.names.at(file1.current);
    if (refuseReserved(ctx, name))
        return false;
    call(actions.save, name);
    return true;
}

bool confirmOpen(Context& ctx, QString& txtInput, const FileListState& file1, const ChooserActions& actions) {
    if (!txtInput.isEmpty()) {
        // Here the case counts: "A.DAT" becomes "A.DAT.dat".
        if (txtInput.right(4) != kDat)
            txtInput += kDat;
        call(actions.edit, txtInput);
        return true;
    }
    if (!file1.currentSelected()) {
        noFile(ctx);
        return false;
    }
    call(actions.edit, file1.names.at(file1.current));
    return true;
}

} // namespace

ChooserTexts chooserTexts(ChooserMode mode) {
    switch (mode) {
    case ChooserMode::Save:
        return {QStringLiteral("Save file as :"), QStringLiteral("Save")};
    case ChooserMode::Open:
        return {QStringLiteral("Open a file to edit data :"), QStringLiteral("Open")};
    case ChooserMode::Load:
        break;
    }
    return {QStringLiteral("Load data from files :"), QStringLiteral("Load")};
}

ChooserMode chooserModeOf(const QString& cmdConfirmCaption) {
    if (cmdConfirmCaption == QLatin1String("Save"))
        return ChooserMode::Save;
    if (cmdConfirmCaption == QLatin1String("Open"))
        return ChooserMode::Open;
    return ChooserMode::Load;
}

bool ConfirmChoice(Context& ctx, ChooserMode mode, QString& txtInput, const FileListState& file1,
                   const ChooserActions& actions) {
    if (txtInput.isEmpty() && !file1.holdsFiles()) {
        noFile(ctx);
        return false;
    }
    switch (mode) {
    case ChooserMode::Save:
        return confirmSave(ctx, txtInput, file1, actions);
    case ChooserMode::Open:
        return confirmOpen(ctx, txtInput, file1, actions);
    case ChooserMode::Load:
        break;
    }
    return confirmLoad(ctx, txtInput, file1, actions);
}

bool FileClickEmptiesInput(ChooserMode mode, const FileListState& file1) {
    return mode != ChooserMode::Load && file1.holdsFiles() && file1.currentSelected();
}

bool InputFocusUnselectsFile(ChooserMode mode, const FileListState& file1) {
    return mode != ChooserMode::Load && file1.holdsFiles();
}

bool ModifierKeyUnselectsFile(ChooserMode mode, const FileListState& file1, int keyCode) {
    const bool wantsOneName = mode == ChooserMode::Save || (mode == ChooserMode::Open && file1.holdsFiles());
    return wantsOneName && (keyCode == 16 || keyCode == 17);
}

bool ChooserNameKeyPasses(QChar key) {
    const char16_t c = key.unicode();
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') || c == 8 || c == u'_' ||
           c == u'-' || c == u'.';
}
