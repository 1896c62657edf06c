#include "conformance/text_calls.h"

namespace conformance {

using namespace platform;

HFONT createFont(int height, int width, int escapement, int weight, int italic, int underline, int strikeOut,
                 int quality, const std::string& face) {
    constexpr DWORD ansi = 0;
    return CreateFontA(height, width, escapement, escapement, weight, static_cast<DWORD>(italic),
                       static_cast<DWORD>(underline), static_cast<DWORD>(strikeOut), ansi, 0, 0,
                       static_cast<DWORD>(quality), 0, face.c_str());
}

BOOL textOut(HDC dc, int x, int y, const std::string& text) {
    return TextOutA(dc, x, y, text.data(), static_cast<int>(text.size()));
}

BOOL extTextOut(HDC dc, int x, int y, UINT options, const RECT* box, const std::string& text) {
    return ExtTextOutA(dc, x, y, options, box, text.data(), static_cast<UINT>(text.size()), nullptr);
}

int drawText(HDC dc, const RECT* box, UINT format, const std::string& text, std::vector<int>* written) {
    RECT r = *box;
    const int height = DrawTextA(dc, text.data(), static_cast<int>(text.size()), &r, format);
    *written = {r.left, r.top, r.right, r.bottom};
    return height;
}

BOOL textExtent(HDC dc, const std::string& text, SIZE* size) {
    *size = {};
    return GetTextExtentPoint32A(dc, text.data(), static_cast<int>(text.size()), size);
}

int textFit(HDC dc, int mostPixels, const std::string& text, std::vector<int>* extents) {
    extents->assign(text.size(), 0);
    SIZE size;
    int count = 0;
    GetTextExtentExPointA(dc, text.data(), static_cast<int>(text.size()), mostPixels, &count, extents->data(),
                          &size);
    extents->resize(static_cast<std::size_t>(count)); // those of characters that do not fit are undefined
    return count;
}

BOOL textMetrics(HDC dc, std::vector<int>* metrics) {
    TEXTMETRICW m{};
    const BOOL done = GetTextMetricsW(dc, &m);
    *metrics = {m.tmHeight,          m.tmAscent,       m.tmDescent,      m.tmInternalLeading,
                m.tmExternalLeading, m.tmAveCharWidth, m.tmMaxCharWidth, m.tmOverhang};
    return done;
}

} // namespace conformance
