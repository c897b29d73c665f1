#include "datafiles/editor_launch.h"

#include "engine/context.h"
#include "sound/notices.h"

#include <QProcess>
#include <QStandardPaths>

namespace {

QString firstEditorOnPath(const EditorLauncher& launcher) {
    for (const QString& editor : plainTextEditors()) {
        const QString found = launcher.findExecutable(editor);
        if (!found.isEmpty())
            return found;
    }
    return {};
}

void openInTextEditor(Context& ctx, const EditorLauncher& launcher, const QString& path) {
    const QString editor = firstEditorOnPath(launcher);
    if (editor.isEmpty()) {
        // The words of the program's first home, where the two choices were Notepad and Wordpad.
        ctx.notices.answerOk(QStringLiteral("Notepad and Wordpad not found"));
        return;
    }
    launcher.startDetached(editor, {path});
}

} // namespace

EditorLauncher EditorLauncher::system() {
    return {[](const QString& program) { return QStandardPaths::findExecutable(program); },
            [](const QString& program, const QStringList& arguments) {
                return QProcess::startDetached(program, arguments);
            },
            [](const QString& program, const QStringList& arguments, std::function<void()> failed) {
                // No parent: an opener still running when the program ends is left to run, with its editor.
                auto* process = new QProcess();
                process->setStandardOutputFile(QProcess::nullDevice());
                process->setStandardErrorFile(QProcess::nullDevice());
                QObject::connect(process, &QProcess::finished, process,
                                 [process, failed](int code, QProcess::ExitStatus status) {
                                     process->deleteLater();
                                     if (status != QProcess::NormalExit || code != 0)
                                         failed();
                                 });
                QObject::connect(process, &QProcess::errorOccurred, process,
                                 [process, failed](QProcess::ProcessError error) {
                                     if (error != QProcess::FailedToStart)
                                         return;
                                     process->deleteLater();
                                     failed();
                                 });
                process->start(program, arguments);
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

void openInEditor(Context& ctx, const QString& fileName, const EditorLauncher& launcher) {
    const QString path = ctx.appFile(fileName);
    const QString opener = launcher.findExecutable(QStringLiteral("xdg-open"));
    if (opener.isEmpty()) {
        openInTextEditor(ctx, launcher, path);
        return;
    }
    Context* context = &ctx; // lives as long as the program
    launcher.startWatched(opener, {path}, [context, launcher, path] { openInTextEditor(*context, launcher, path); });
}
