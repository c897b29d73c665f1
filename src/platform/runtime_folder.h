#pragma once

#include <QString>

// The folder of this user's lock and midi copy. Other users share /tmp and may share a badly set
// $XDG_RUNTIME_DIR, so a folder is only used when no one else can put anything in it.
namespace runtime_folder {

// With a trailing '/': bellwick/ in $XDG_RUNTIME_DIR, else bellwick/ in ${XDG_CACHE_HOME:-~/.cache}, else run/
// in the program folder; the first one that is private. Empty when none is.
QString path();

// Makes the folder (0700) when missing and tells whether it is private: a folder, not a link, owned by this
// user and closed to group and others. A folder of ours that is open to others is closed first.
bool makePrivate(const QString& folder);

} // namespace runtime_folder
