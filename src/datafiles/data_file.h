#pragma once

#include <QString>

#include <functional>

class Context;

// Merges a data file of the program folder into the day's lists; bad records go to the shared error list.
void LoadClick(Context& ctx, const QString& fFileName);

// Writes the day's lists to a data file; when the name exists already, asks first through fileAlreadyExist
// (origin "AlarmSet" and the name) and writes nothing now.
void SaveFileClick(Context& ctx, const QString& fFileName,
                   const std::function<void(const QString& origin, const QString& fFileName)>& fileAlreadyExist);

// Replaces the file with the rows of lstData, then those of lstMessage. Reports a failure in the user's words.
void WriteDataFile(Context& ctx, const QString& fFileName);
