#include "datafiles/editor_click.h"

#include "engine/context.h"
#include "sound/notices.h"

#include <QProcess>
#include <QStandardPaths>

namespace {

bool start(const EditorLauncher& launcher, const QString& program, const QString& path) {
    const QString found = launcher.findExecutable(program);
    return !found.isEmpty() && launcher.startDetached(found, {path});
}

QString firstEditorOnPath(const EditorLauncher& launcher) {
    for (const QString& editor : plainTextEditors()) {
        if (!launcher.findExecutable(editor).isEmpty())
            return editor;
    }
    return {};
}

} // namespace

EditorLauncher EditorLauncher::system() {
    return {[](const QString& program) { return QStandardPaths::findExecutable(program); },
            [](const QString& program, const QStringList& arguments) {
                return QProcess::startDetached(program, arguments);
            }};
}

const QStringList& plainTextEditors() {
    static const QStringList editors = {QStringLiteral("mousepad"),   QStringLiteral("gedit"),
                                        QStringLiteral("kate"),       QStringLiteral("xed"),
                                        QStringLiteral("pluma"),      QStringLiteral("leafpad"),
                                        QStringLiteral("featherpad"), QStringLiteral("gnome-text-editor"),
                                        QStringLiteral("kwrite")};
    return editors;
}

void EditorClick(Context& ctx, const QString& fFileName, const EditorLauncher& launcher) {
    const QString path = ctx.appFile(fFileName);
    if (start(launcher, QStringLiteral("xdg-open"), path))
        return;
    const QString editor = firstEditorOnPath(launcher);
    if (!editor.isEmpty() && start(launcher, editor, path))
        return;
    // The words of the program's first home, where the two choices were Notepad and Wordpad.
    ctx.notices.AnswerOk(QStringLiteral("Notepad and Wordpad not found"));
}
