#pragma once

class QKeyEvent;

// Whether a key press types a character into a box. Enter belongs to the default button, Tab moves the
// focus, Delete and Escape edit or leave: none of them counts as typed.
bool typesCharacter(const QKeyEvent* key);
