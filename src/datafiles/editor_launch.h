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
    // Starts the desktop's opener without waiting for it; calls `failed` later when it cannot start or ends
    // in failure (no application for the file, no such file).
    std::function<void(const QString& program, const QStringList& arguments, std::function<void()> failed)>
        startWatched;

    static EditorLauncher system();
};

// The plain text editors tried, in order, when the desktop's own opener is missing.
const QStringList& plainTextEditors();

// Opens a data file of the program folder in a text editor, without waiting for it: first through the desktop's
// opener, then, when it is missing or fails, in the first plain text editor on PATH. When there is neither the user
// is told; an editor that is there but does not start passes in silence.
void openInEditor(Context& ctx, const QString& fileName, const EditorLauncher& launcher = EditorLauncher::system());
