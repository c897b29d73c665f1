#pragma once

// Window geometry is kept in twips (1/1440 inch); a pixel here is a device pixel.
namespace twips {

// LOGPIXELSX: logical dots per inch times the device pixel ratio, rounded.
int logPixels(double logicalDpi, double devicePixelRatio);

// 15 at 96 dpi, 12 at 120, 10 at 144.
double twipsPerPixel(int logPixels);

// Twips to device pixels and back, rounding half to even.
int toPixels(double twipValue, double twipsPerPixel);
double toTwips(int pixels, double twipsPerPixel);

} // namespace twips
