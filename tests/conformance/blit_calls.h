#pragma once
// What scripts call to fill surfaces with pixels and to copy them in other forms: functions with plain
// arguments, each made of some of platform/gdi.h. A seed stands for pixels that look like nothing but are the
// same wherever they are made.

#include "platform/gdi.h"

namespace conformance {

/// Fills the surface's bitmap with values of any kind; those of 32 bits are multiplied by their alpha.
int noise(platform::HDC dc, int seed);

platform::BOOL alphaBlend(platform::HDC dc, int x, int y, int width, int height, platform::HDC source,
                          int xSource, int ySource, int widthSource, int heightSource, int alpha, int format);

/// Colours are 0x00bbggrr; `mode` is one of the two with rectangles.
platform::BOOL gradientRectangle(platform::HDC dc, int mode, int x1, int y1, platform::COLORREF color1,
                                 int x2, int y2, platform::COLORREF color2);
platform::BOOL gradientTriangle(platform::HDC dc, int x1, int y1, platform::COLORREF color1, int x2, int y2,
                                platform::COLORREF color2, int x3, int y3, platform::COLORREF color3);

/// Six corners and so many rectangles or triangles between some of them, all made of the seed.
platform::BOOL gradientMesh(platform::HDC dc, int mode, int seed, int count);

/// With a mask of 32 by 32 made of the seed.
platform::BOOL maskBlt(platform::HDC dc, int x, int y, int width, int height, platform::HDC source,
                       int xSource, int ySource, int seed, int xMask, int yMask, platform::DWORD rop);

/// A seed of 0 is no mask.
platform::BOOL plgBlt(platform::HDC dc, int x1, int y1, int x2, int y2, int x3, int y3, platform::HDC source,
                      int xSource, int ySource, int widthSource, int heightSource, int seed, int xMask,
                      int yMask);

/// Device-independent pixels, 24 by 16, bottom row first, of 1 to 32 bits.
int stretchDib(platform::HDC dc, int bits, int seed, int x, int y, int width, int height, int xSource,
               int ySource, int widthSource, int heightSource, platform::DWORD rop);
int dibToDevice(platform::HDC dc, int bits, int seed, int x, int y, int width, int height, int xSource,
                int ySource, int start, int lines);
/// Replaces rows of the surface's own bitmap.
int setDib(platform::HDC dc, int bits, int seed, int start, int lines);

/// Draws an icon of 16 by 16 pixels: `kind` 0 of 1 bit, 1 with colours, 2 with alpha.
platform::BOOL drawIcon(platform::HDC dc, int kind, int seed, int x, int y, int width, int height, int flags);

} // namespace conformance
