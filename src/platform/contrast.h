#pragma once

#include <QColor>

// Readability of one colour on another, as the usual accessibility guidelines measure it: text wants 4.5:1,
// pictures 3:1.
namespace contrast {

constexpr double kText = 4.5;
constexpr double kGraphics = 3.0;

// Relative luminance, 0 for black to 1 for white.
double luminance(const QColor& colour);
// From 1 (the same) to 21 (black on white).
double ratio(const QColor& a, const QColor& b);

// The colour itself where it reaches the ratio on the background, so a light palette keeps its look; otherwise
// the colour mixed towards `towards` (the palette's text colour, say) just far enough, or black or white where
// even that would not do.
QColor readable(const QColor& colour, const QColor& background, double minRatio, const QColor& towards);

} // namespace contrast
