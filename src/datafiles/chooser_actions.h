#pragma once

#include "datafiles/chooser_rules.h"
#include "datafiles/editor_launch.h"

#include <functional>

class Context;

// Asks before a save writes over a file: origin ("AlarmSet") and the bare file name.
using AskOverwriteFn = std::function<void(const QString& origin, const QString& fileName)>;

// The chooser's actions on the day's lists and the program folder.
ChooserActions chooserActionsFor(Context& ctx, AskOverwriteFn fileAlreadyExist,
                                 EditorLauncher launcher = EditorLauncher::system());

// "Yes" to the overwrite question: the lists are written as they stand at this moment, not at the question.
void overwriteConfirmed(Context& ctx, const QString& origin, const QString& fileName);
