#include "clock/window_region.h"

#include "platform/numeric.h"

#include <QRect>
#include <algorithm>
#include <cmath>
#include <utility>

namespace {

constexpr double kDesignTwipsPerPixel = 12.0;
constexpr int32_t kCornerEllipse = 28; // pixels, not scaled with the density

void normalise(int32_t& a, int32_t& b) {
    if (a > b)
        std::swap(a, b);
}

// A box with its corners cut by quarter ellipses of the given size, scanned row by row.
// A pixel belongs to the region when its centre lies inside the outline.
QRegion roundedBox(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t cornerWidth,
                   int32_t cornerHeight) {
    normalise(left, right);
    normalise(top, bottom);
    QRegion region;
    if (right <= left || bottom <= top)
        return region;
    const double rx = std::min(std::abs(cornerWidth), right - left) / 2.0;
    const double ry = std::min(std::abs(cornerHeight), bottom - top) / 2.0;
    for (int32_t y = top; y < bottom; ++y) {
        const double centreY = y + 0.5;
        double reach = 0; // how far into the corner ellipse, 0 on the straight part, 1 at its tip
        if (ry > 0 && centreY < top + ry)
            reach = (top + ry - centreY) / ry;
        else if (ry > 0 && centreY > bottom - ry)
            reach = (centreY - (bottom - ry)) / ry;
        if (reach >= 1)
            continue;
        const double inset = rx * (1 - std::sqrt(1 - reach * reach));
        const auto first = static_cast<int32_t>(std::ceil(left + inset - 0.5));
        const auto last = static_cast<int32_t>(std::floor(right - inset - 0.5));
        if (last >= first)
            region += QRect(first, y, last - first + 1, 1);
    }
    return region;
}

struct Box {
    double left, top, right, bottom;
};

Box plainBox(const ShapeControl& s) {
    return {s.left, s.top, static_cast<double>(s.left) + s.width, static_cast<double>(s.top) + s.height};
}

// The largest square centred in the box.
Box centredSquare(const ShapeControl& s) {
    if (s.width > s.height) {
        const auto d = static_cast<int16_t>(roundHalfEven((s.width - s.height) / 2.0));
        return {s.left + d, s.top, s.left - d + static_cast<double>(s.width), static_cast<double>(s.top) + s.height};
    }
    const auto d = static_cast<int16_t>(roundHalfEven((s.height - s.width) / 2.0));
    return {s.left, s.top + d, static_cast<double>(s.left) + s.width, s.top - d + static_cast<double>(s.height)};
}

QRegion shapeRegion(ShapeControl& shape, int16_t xOffset, int16_t yOffset) {
    if (shape.kind < 0 || shape.kind > 5)
        shape.kind = 2;
    const bool square = shape.kind == 1 || shape.kind == 3 || shape.kind == 5;
    const Box box = square ? centredSquare(shape) : plainBox(shape);
    const auto px = [&](double v, int16_t offset) {
        return static_cast<int32_t>(roundHalfEven(v / kDesignTwipsPerPixel + offset));
    };
    const int32_t l = px(box.left, xOffset), t = px(box.top, yOffset);
    const int32_t r = px(box.right, xOffset), b = px(box.bottom, yOffset);
    switch (shape.kind) {
    case 0:
    case 1:
        return rectRegion(l, t, r, b);
    case 2:
    case 3:
        return ellipseRegion(l, t, r, b);
    default:
        return roundRectRegion(l, t, r, b, kCornerEllipse, kCornerEllipse);
    }
}

} // namespace

QRegion rectRegion(int32_t left, int32_t top, int32_t right, int32_t bottom) {
    normalise(left, right);
    normalise(top, bottom);
    return QRegion(left, top, right - left, bottom - top);
}

QRegion ellipseRegion(int32_t left, int32_t top, int32_t right, int32_t bottom) {
    return roundedBox(left, top, right, bottom, std::abs(right - left), std::abs(bottom - top));
}

QRegion roundRectRegion(int32_t left, int32_t top, int32_t right, int32_t bottom, int32_t cornerWidth,
                        int32_t cornerHeight) {
    return roundedBox(left, top, right, bottom, cornerWidth, cornerHeight);
}

QRegion windowRegion(std::vector<ShapeControl>& borderShapes, int16_t xOffset, int16_t yOffset) {
    QRegion outline;
    for (ShapeControl& shape : borderShapes)
        outline = outline.united(shapeRegion(shape, xOffset, yOffset));
    return outline;
}

std::vector<ShapeControl> clockBorderShapes() {
    return {
        {3, 12, 12, 252, 252},
        {0, 120, 12, 1608, 240},
        {3, 1620, 12, 252, 252},
    };
}
