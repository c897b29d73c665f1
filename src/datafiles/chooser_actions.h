#pragma once

#include "datafiles/chooser_rules.h"
#include "datafiles/editor_click.h"

#include <functional>

class Context;

// Asks before a save writes over a file: origin ("AlarmSet") and the bare file name.
using FileAlreadyExistFn = std::function<void(const QString& WhereDoYouComeFrom, const QString& fFileName)>;

// The chooser's actions on the day's lists and the program folder.
ChooserActions chooserActionsFor(Context& ctx, FileAlreadyExistFn fileAlreadyExist,
                                 EditorLauncher launcher = EditorLauncher::system());

// "Yes" to the overwrite question: the lists are written as they stand at this moment, not at the question.
void OverwriteConfirmed(Context& ctx, const QString& WhereDoYouComeFrom, const QString& fFileName);
