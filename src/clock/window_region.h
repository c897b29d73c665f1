#pragma once

#include <QRegion>
#include <cstdint>
#include <vector>

// A shape control as the outline reads it: its kind and its box in twips. The shapes are never drawn.
struct ShapeControl {
    int16_t kind = 0; // 0 rectangle, 1 square, 2 oval, 3 circle, 4 rounded rectangle, 5 rounded square
    float left = 0;
    float top = 0;
    float width = 0;
    float height = 0;
};

// Region primitives in pixels; the right and bottom edges lie outside, as with the system's regions.
QRegion rectRegion(int32_t left, int32_t top, int32_t right, int32_t bottom);
QRegion ellipseRegion(int32_t left, int32_t top, int32_t right, int32_t bottom);
QRegion roundRectRegion(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t cornerWidth,
                        int32_t cornerHeight);

// The union of the shapes' regions, in pixels. Boxes are turned into pixels at the design's 12 twips a pixel
// whatever the screen, so the outline keeps its pixel size at every density. A shape of unknown kind
// becomes an oval, in the array too.
QRegion windowRegion(std::vector<ShapeControl>& borderShapes, int16_t xOffset, int16_t yOffset);

// The clock's outline: left circle, bar, right circle.
std::vector<ShapeControl> clockBorderShapes();
