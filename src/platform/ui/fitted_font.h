#pragma once

class QFont;
class QString;

// The font a text is drawn in when its face, as laid out, is wider than the room: the same face, smaller by
// quarter points until the widest line fits, but never below 6 points. A text that fits keeps the font.
QFont fittedFont(const QFont& font, const QString& text, int width);
