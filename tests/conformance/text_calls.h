#pragma once
// What scripts call to measure and to draw text: functions with plain arguments, each made of one of
// platform/gdi.h. Text is of bytes of the ANSI code page.

#include "platform/gdi.h"

#include <string>
#include <vector>

namespace conformance {

/// Sizes and angles as in LOGFONT; the orientation is the escapement.
platform::HFONT createFont(int height, int width, int escapement, int weight, int italic, int underline,
                           int strikeOut, int quality, const std::string& face);

platform::BOOL textOut(platform::HDC dc, int x, int y, const std::string& text);
platform::BOOL extTextOut(platform::HDC dc, int x, int y, platform::UINT options, const platform::RECT* box,
                          const std::string& text);

/// `written` takes the rectangle's edges afterwards.
int drawText(platform::HDC dc, const platform::RECT* box, platform::UINT format, const std::string& text,
             std::vector<int>* written);

platform::BOOL textExtent(platform::HDC dc, const std::string& text, platform::SIZE* size);

/// How many characters fit; `extents` takes the extent up to each of those.
int textFit(platform::HDC dc, int mostPixels, const std::string& text, std::vector<int>* extents);

/// `metrics` takes height, ascent, descent, the two leadings, the two widths and overhang.
platform::BOOL textMetrics(platform::HDC dc, std::vector<int>* metrics);

} // namespace conformance
