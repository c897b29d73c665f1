#pragma once

class QEvent;
class QKeyEvent;
class QString;

// Whether a key press types a character into a box. Enter belongs to the default button, Tab moves the
// focus, Delete and Escape edit or leave: none of them counts as typed.
bool typesCharacter(const QKeyEvent* key);

// The text an input method (a dead key, a compose sequence) commits with this event; empty for other events.
// Boxes with key rules must hold it to the same rules as typed keys.
QString committedText(const QEvent* event);
