#include "datafiles/chooser_actions.h"

#include "datafiles/data_file.h"

ChooserActions chooserActionsFor(Context& ctx, AskOverwriteFn fileAlreadyExist, EditorLauncher launcher) {
    ChooserActions actions;
    actions.load = [&ctx](const QString& name) { loadDataFile(ctx, name); };
    actions.save = [&ctx, ask = std::move(fileAlreadyExist)](const QString& name) { saveDataFile(ctx, name, ask); };
    actions.edit = [&ctx, launcher = std::move(launcher)](const QString& name) { openInEditor(ctx, name, launcher); };
    return actions;
}

void overwriteConfirmed(Context& ctx, const QString& origin, const QString& fileName) {
    if (origin == QLatin1String("AlarmSet"))
        writeDataFile(ctx, fileName);
}
