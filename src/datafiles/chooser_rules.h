#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class Context;

// The data-file chooser's modes. The window keeps no mode of its own: it is the caption of its confirm button.
enum class ChooserMode { Load, Save, Open };

struct ChooserTexts {
    QString label;   // textLabel
    QString confirm; // confirmButton
};
ChooserTexts chooserTexts(ChooserMode mode);
ChooserMode chooserModeOf(const QString& confirmCaption);

// fileList as the rules read it: the names in list order, their highlights and the current item (-1 for none).
struct FileListState {
    QStringList names;
    QList<bool> selected;
    int current = -1;

    bool holdsFiles() const { return !names.isEmpty(); }
    bool currentSelected() const { return current >= 0 && current < selected.size() && selected.at(current); }
};

// What confirming can do with a bare file name of the program folder.
struct ChooserActions {
    std::function<void(const QString&)> load; // loadDataFile
    std::function<void(const QString&)> save; // saveDataFile
    std::function<void(const QString&)> edit; // openInEditor
};

// confirmButton: runs the mode's action on the typed name or the chosen files. The typed name may get ".dat"
// appended, and stays so in the box. Refusals are told to the user. True when the window unloads.
bool confirmChoice(Context& ctx, ChooserMode mode, QString& input, const FileListState& fileList,
                   const ChooserActions& actions);

// In Save and Open one name is wanted, so the file list and the typed name exclude each other.
// onFileClicked: true when input is to be emptied.
bool fileClickEmptiesInput(ChooserMode mode, const FileListState& fileList);
// The name box taking the focus: true when fileList's current item is to be unselected.
bool inputFocusUnselectsFile(ChooserMode mode, const FileListState& fileList);
// A key pressed on the file list with Ctrl or Shift: true when the current item is to be unselected, so no second file
// or range can be chosen.
bool modifierKeyUnselectsFile(ChooserMode mode, const FileListState& fileList, int keyCode);

// A key in the name box: letters, digits, backspace, "_", "-" and "." only, so a name holds no blank and no path.
bool chooserNameKeyPasses(QChar key);
// The same rule for a whole name, as a pattern for pasted and composed text.
inline constexpr char kChooserNamePattern[] = "[A-Za-z0-9_.-]*";
constexpr int kChooserNameMaxLength = 50;
