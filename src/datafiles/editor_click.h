#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class Context;

// How an editor is found and started; replaced in tests.
struct EditorLauncher {
    // The full path of a program on PATH, empty when there is none.
    std::function<QString(const QString& program)> findExecutable;
    // Starts a program on its own; false when it could not be started.
    std::function<bool(const QString& program, const QStringList& arguments)> startDetached;

    static EditorLauncher system();
};

// The plain text editors tried, in order, when the desktop's own opener is missing.
const QStringList& plainTextEditors();

// Opens a data file of the program folder in a text editor, without waiting for it: first through the desktop's
// opener, then in the first plain text editor on PATH. When neither starts the user is told.
void EditorClick(Context& ctx, const QString& fFileName, const EditorLauncher& launcher = EditorLauncher::system());
