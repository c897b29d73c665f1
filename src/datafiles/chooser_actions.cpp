#include "datafiles/chooser_actions.h"

#include "datafiles/data_file.h"

ChooserActions chooserActionsFor(Context& ctx, FileAlreadyExistFn fileAlreadyExist, EditorLauncher launcher) {
    ChooserActions actions;
    actions.load = [&ctx](const QString& name) { LoadClick(ctx, name); };
    actions.save = [&ctx, ask = std::move(fileAlreadyExist)](const QString& name) { SaveFileClick(ctx, name, ask); };
    actions.edit = [&ctx, launcher = std::move(launcher)](const QString& name) { EditorClick(ctx, name, launcher); };
    return actions;
}

void OverwriteConfirmed(Context& ctx, const QString& WhereDoYouComeFrom, const QString& fFileName) {
    if (WhereDoYouComeFrom == QLatin1String("AlarmSet"))
        WriteDataFile(ctx, fFileName);
}
