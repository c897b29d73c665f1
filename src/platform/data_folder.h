#pragma once

#include <QString>

namespace data_folder {

// The program folder: ${XDG_DATA_HOME:-~/.local/share}/bellwick/, with a trailing '/'.
QString programFolder();
// Where the sounds and help page that come with the program lie: beside the program when run from the
// build tree, else the installed share folder.
QString bundledFolder();
// Makes the folder and those above it that are missing, each open to this user only, and closes the folder
// itself to others when it stood already (they stay able to pass through the ones above). False when it cannot.
bool makePrivate(const QString& folder);
// Creates the program folder and copies in the bundled files it lacks; never overwrites. False when the
// folder cannot be made.
bool prepare(const QString& folder, const QString& bundled);

} // namespace data_folder
