#pragma once

#include <QRectF>

class QPainter;

// The pictures of the Alarm Set window, drawn to fit any rectangle. The painter's background is the colour they
// stand on and its pen the palette's text colour: a colour of a picture that would fade into that background is
// drawn nearer the text colour instead, so dark palettes stay readable.
namespace button_faces {

void arrowUp(QPainter& p, const QRectF& r);
void arrowDown(QPainter& p, const QRectF& r);
void scissors(QPainter& p, const QRectF& r);
void twoScissors(QPainter& p, const QRectF& r);
void floppyDisk(QPainter& p, const QRectF& r);
void openFolder(QPainter& p, const QRectF& r);
void sheetAndPencil(QPainter& p, const QRectF& r);
void playTriangle(QPainter& p, const QRectF& r);
void minimiseBar(QPainter& p, const QRectF& r);
// The word Add and a pencil.
void addWithPencil(QPainter& p, const QRectF& r);
void hourglass(QPainter& p, const QRectF& r);
// A bell ringing, the window's decoration.
void ringingBell(QPainter& p, const QRectF& r);

} // namespace button_faces
