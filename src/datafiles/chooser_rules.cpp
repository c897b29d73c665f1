#include "datafiles/chooser_rules.h"

#include "engine/context.h"
#include "sound/notices.h"

namespace {

const QString kDat = QStringLiteral(".dat");

void noFile(Context& ctx) {
    ctx.notices.answerOk(QStringLiteral("No file is chosen"));
}

// The name of the other program's data, which is never written over.
bool isReservedName(const QString& name) {
    return name.toLower() == QLatin1String("wpaper.dat");
}

bool refuseReserved(Context& ctx, const QString& name) {
    if (!isReservedName(name))
        return false;
    ctx.notices.answerOk(QStringLiteral("Wpaper.dat has data of wallpaper"));
    return true;
}

void call(const std::function<void(const QString&)>& action, const QString& name) {
    if (action)
        action(name);
}

bool confirmLoad(Context& ctx, const QString& input, const FileListState& fileList, const ChooserActions& actions) {
    bool called = false;
    // The typed name as it stands: a load adds no extension.
    if (!input.isEmpty()) {
        call(actions.load, input);
        called = true;
    }
    for (int i = 0; i < fileList.names.size(); ++i) {
        if (i < fileList.selected.size() && fileList.selected.at(i)) {
            call(actions.load, fileList.names.at(i));
            called = true;
        }
    }
    if (!called)
        noFile(ctx);
    return called;
}

bool confirmSave(Context& ctx, QString& input, const FileListState& fileList, const ChooserActions& actions) {
    if (!input.isEmpty()) {
        if (input.right(4).toLower() != kDat)
            input += kDat;
        if (refuseReserved(ctx, input))
            return false;
        call(actions.save, input);
        return true;
    }
    if (!fileList.currentSelected()) {
        noFile(ctx);
        return false;
    }
    const QString& name = fileList.names.at(fileList.current);
    if (refuseReserved(ctx, name))
        return false;
    call(actions.save, name);
    return true;
}

bool confirmOpen(Context& ctx, QString& input, const FileListState& fileList, const ChooserActions& actions) {
    if (!input.isEmpty()) {
        // Here the case counts: "A.DAT" becomes "A.DAT.dat".
        if (input.right(4) != kDat)
            input += kDat;
        call(actions.edit, input);
        return true;
    }
    if (!fileList.currentSelected()) {
        noFile(ctx);
        return false;
    }
    call(actions.edit, fileList.names.at(fileList.current));
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

ChooserMode chooserModeOf(const QString& confirmCaption) {
    if (confirmCaption == QLatin1String("Save"))
        return ChooserMode::Save;
    if (confirmCaption == QLatin1String("Open"))
        return ChooserMode::Open;
    return ChooserMode::Load;
}

bool confirmChoice(Context& ctx, ChooserMode mode, QString& input, const FileListState& fileList,
                   const ChooserActions& actions) {
    if (input.isEmpty() && !fileList.holdsFiles()) {
        noFile(ctx);
        return false;
    }
    switch (mode) {
    case ChooserMode::Save:
        return confirmSave(ctx, input, fileList, actions);
    case ChooserMode::Open:
        return confirmOpen(ctx, input, fileList, actions);
    case ChooserMode::Load:
        break;
    }
    return confirmLoad(ctx, input, fileList, actions);
}

bool fileClickEmptiesInput(ChooserMode mode, const FileListState& fileList) {
    return mode != ChooserMode::Load && fileList.holdsFiles() && fileList.currentSelected();
}

bool inputFocusUnselectsFile(ChooserMode mode, const FileListState& fileList) {
    return mode != ChooserMode::Load && fileList.holdsFiles();
}

bool modifierKeyUnselectsFile(ChooserMode mode, const FileListState& fileList, int keyCode) {
    const bool wantsOneName = mode == ChooserMode::Save || (mode == ChooserMode::Open && fileList.holdsFiles());
    return wantsOneName && (keyCode == 16 || keyCode == 17);
}

bool chooserNameKeyPasses(QChar key) {
    const char16_t c = key.unicode();
    return (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || (c >= u'0' && c <= u'9') || c == 8 || c == u'_' ||
           c == u'-' || c == u'.';
}
