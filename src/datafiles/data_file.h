#pragma once

#include <QString>

#include <functional>

class Context;

// Merges a data file of the program folder into the day's lists; bad records go to the shared error list.
void loadDataFile(Context& ctx, const QString& fileName);

// Writes the day's lists to a data file; when the name exists already, asks first through fileAlreadyExist
// (origin "AlarmSet" and the name) and writes nothing now.
void saveDataFile(Context& ctx, const QString& fileName,
                  const std::function<void(const QString& origin, const QString& fileName)>& fileAlreadyExist);

// Replaces the file with the rows of todayList, then those of todayMessages. Reports a failure in the user's words;
// a message with characters the file cannot hold is named in a warning, and nothing is written.
void writeDataFile(Context& ctx, const QString& fileName);
