#pragma once

#include <QPixmap>

// The program's pictures, drawn in code.
namespace pictures {

QPixmap warning(int size);
QPixmap error(int size);
// The tray's alarm clock, and the same struck through while alarms are disabled.
QPixmap clock(int size, bool enabled);

} // namespace pictures
